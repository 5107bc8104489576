// Connecting, accepting, waiting and closing.
#include <Orlek/Network/SocketTcpServer.h>
#include <Orlek/Network/SocketUdp.h>
#include <fcntl.h>
#include <netinet/tcp.h>

#include <chrono>
#include <functional>
#include <future>
#include <thread>

#include "LinkTest.h"
#include "support/Capture.h"
#include "support/FrequentSignals.h"
#include "support/OwnNetwork.h"

namespace {

using namespace OrlekTest;
using namespace std::chrono_literals;
using Orlek::Network::MsgHeader;
using Orlek::Network::SocketTcp;
using Orlek::Network::SocketTcpServer;
using Orlek::Network::SocketUdp;

int freePort() {
    return PlainPeer::listening().port();
}

using SocketTcpTest = LinkTest;

TEST_F(SocketTcpTest, CopiesShareOneDescriptorThatIsClosedOnce) {
    SocketTcp copy = link;
    copy = *&copy;
    arrive(packageBytes(1, "for the copy"));
    EXPECT_EQ(copy.readPackage(payload.data(), header), 1);
    EXPECT_EQ(copy.connectionName(), "127.0.0.1");
    copy.closeConnection();
    EXPECT_FALSE(link.connected());
    // Gets the number of the closed descriptor.
    const PlainPeer unrelated = PlainPeer::listening();
    link.closeConnection();
    EXPECT_NE(fcntl(unrelated.descriptor(), F_GETFD), -1) << "closed a descriptor of others";
    EXPECT_EQ(read(), -2);
    EXPECT_EQ(link.read(payload.data(), 1, 1000), 0);
    write(1, "");
}

TEST_F(SocketTcpTest, DestructionLeavesTheDescriptorOpen) {
    const int descriptor = fcntl(static_cast<int>(link.sd()), F_DUPFD_CLOEXEC, 0);
    SocketTcp().setDescriptor(static_cast<std::uint64_t>(descriptor));
    EXPECT_EQ(close(descriptor), 0);
}

TEST(SocketTcp, FailsToConnect) {
    const int port = freePort();
    const auto before = openFiles();
    const std::vector<std::pair<unsigned long, int>> nobody = {
        {0, port}, {loopback, port}, {loopback, -1}, {loopback, 65536 + port}, {0x17F000001, port}};
    for (const auto& [address, badPort] : nobody) {
        SocketTcp link;
        EXPECT_FALSE(link.createTcpClientSocket(address, badPort));
        EXPECT_FALSE(link.createTcpClientSocketNonBlock(address, badPort, 1000));
        EXPECT_FALSE(link.connected());
        EXPECT_EQ(link.sd(), ~std::uint64_t{0});
    }
    EXPECT_EQ(openFiles(), before);
}

/// With one port to choose from, the system takes the very port that is asked for.
void connectToOwnPort() {
    shell("echo 40000 40000 > /proc/sys/net/ipv4/ip_local_port_range");
    const auto before = openFiles();
    SocketTcp link;
    EXPECT_FALSE(link.createTcpClientSocketNonBlock(loopback, 40000, 1000));
    EXPECT_EQ(errno, ECONNREFUSED);
    EXPECT_FALSE(link.createTcpClientSocket(loopback, 40000));
    EXPECT_EQ(errno, ECONNREFUSED) << "the port is free again";
    EXPECT_FALSE(link.connected());
    EXPECT_EQ(openFiles(), before);
    SocketTcpServer server;
    EXPECT_TRUE(server.init(40000));
}

TEST(SocketTcp, NeverConnectsToItself) {
    inOwnNetworkOrSkip(connectToOwnPort, "a port that would connect to itself is left out");
}

/// How long `wait` takes under signals; of three runs the shortest, as other programs may hold one
/// up, though none may be too short.
double shortestWait(double limitMs, const std::function<void()>& wait) {
    const FrequentSignals signals;
    double shortest = 1e9;
    for (int i = 0; i < 3 && shortest > limitMs + 50; ++i) {
        const auto start = std::chrono::steady_clock::now();
        wait();
        const std::chrono::duration<double, std::milli> took =
            std::chrono::steady_clock::now() - start;
        EXPECT_GE(took.count(), limitMs);
        shortest = std::min(shortest, took.count());
    }
    return shortest;
}

TEST_F(SocketTcpTest, WaitsAsLongAsAskedWhileSignalsArrive) {
    const int before = FrequentSignals::received;
    EXPECT_LT(shortestWait(150, [&] { EXPECT_EQ(link.read(payload.data(), 10, 150), 0); }), 200);
    SocketTcpServer server;
    SocketTcp served;
    SocketUdp receiver, sender;
    const int port = freePort();
    ASSERT_TRUE(server.init(port));
    ASSERT_TRUE(receiver.openReceiveSocket(loopback, port, 1));
    ASSERT_TRUE(sender.openSendSocket(loopback, port, 0));
    EXPECT_LT(shortestWait(1, [&] { EXPECT_FALSE(server.acceptConnectionNonBlock(served)); }), 51);
    std::thread late([&] {
        std::this_thread::sleep_for(50ms);
        const PlainPeer connected = PlainPeer::connectedTo(port);
        std::this_thread::sleep_for(50ms);
        sender.write("late", 4);
    });
    {
        const FrequentSignals signals;
        EXPECT_TRUE(server.acceptConnection(served));
        EXPECT_EQ(receiver.read(payload.data(), 10), 4);
    }
    late.join();
    served.closeConnection();
    server.closeConnection();
    EXPECT_GT(FrequentSignals::received, before + 2);
}

/// 10.1.2.4 does not answer: whoever has that hardware address is not on the wire.
void connectToSilence() {
    shell("ip link add left type veth peer name right");
    shell("ip addr add 10.1.2.3/24 dev left");
    shell("ip link set left up && ip link set right up");
    shell("ip neigh replace 10.1.2.4 lladdr 02:00:00:00:00:01 dev left");
    constexpr unsigned long silent = 0x0A010204;
    const auto before = openFiles();
    SocketTcp link;
    for (const unsigned int limitMs : {0U, 1U, 200U}) {
        EXPECT_LT(
            shortestWait(limitMs,
                         [&] {
                             EXPECT_FALSE(link.createTcpClientSocketNonBlock(silent, 9, limitMs));
                             EXPECT_EQ(errno, ETIMEDOUT);
                         }),
            limitMs + 50);
    }
    EXPECT_EQ(openFiles(), before);
    // Once this host has the address, the system's next attempt, after a second, gets through.
    std::thread answer([] {
        std::this_thread::sleep_for(50ms);
        shell("ip addr add 10.1.2.4/32 dev lo");
    });
    SocketTcpServer server;
    ASSERT_TRUE(server.init(9));
    {
        const FrequentSignals signals;
        EXPECT_TRUE(link.createTcpClientSocket(silent, 9));
    }
    EXPECT_EQ(link.connectionName(), "10.1.2.4");
    answer.join();
}

TEST(SocketTcp, WaitsForAnAddressThatDoesNotAnswer) {
    inOwnNetworkOrSkip(connectToSilence, "connecting to an address that never answers is left out");
}

int option(const SocketTcp& link, int level, int name) {
    int value = -1;
    socklen_t size = sizeof(value);
    getsockopt(static_cast<int>(link.sd()), level, name, &value, &size);
    return value;
}

std::string socketsOfAnotherProgram() {
    return shell("ls -l /proc/self/fd | grep -c socket: || true");
}

TEST_F(SocketTcpTest, ComesFromAServer) {
    const std::string inherited = socketsOfAnotherProgram();
    const int port = freePort();
    SocketTcpServer server;
    SocketTcp served;
    EXPECT_FALSE(server.acceptConnectionNonBlock(served));
    ASSERT_TRUE(server.init(port));
    EXPECT_FALSE(server.acceptConnectionNonBlock(served));
    link.closeConnection();
    ASSERT_TRUE(link.createTcpClientSocket(loopback, port));
    SocketTcpServer copy = server;
    ASSERT_TRUE(copy.acceptConnectionNonBlock(served));
    EXPECT_TRUE(served.connected());
    EXPECT_EQ(served.connectionName(), "127.0.0.1");
    EXPECT_EQ(served.address(), 0x0100007FU);
    EXPECT_EQ(option(served, IPPROTO_TCP, TCP_NODELAY), 1);
    EXPECT_EQ(option(link, IPPROTO_TCP, TCP_NODELAY), 1);
    EXPECT_EQ(socketsOfAnotherProgram(), inherited);
    EXPECT_EQ(captureStderr([&] { EXPECT_FALSE(SocketTcpServer().init(port)); }),
              "bind: Address already in use\n");
    EXPECT_EQ(captureStderr([&] { EXPECT_FALSE(SocketTcpServer().init(65536)); }),
              "bind: Invalid argument\n");
    EXPECT_TRUE(server.closeConnection());
    EXPECT_TRUE(copy.closeConnection());
    EXPECT_EQ(captureStderr([&] { EXPECT_FALSE(copy.acceptConnection(served)); }),
              "accept: Bad file descriptor\n");
    served.closeConnection();
}

/// A connection whose client has a package from the server waiting.
void greet(SocketTcpServer& server, int port, SocketTcp& client, SocketTcp& served) {
    ASSERT_TRUE(client.createTcpClientSocketNonBlock(loopback, port, 5000));
    ASSERT_TRUE(server.acceptConnection(served));
    served.writePackage(nullptr, {.id = static_cast<std::uint32_t>(served.sd())}, 0);
}

void expectGreeting(SocketTcp& client, SocketTcp& served) {
    MsgHeader header;
    EXPECT_EQ(readSoon(client, nullptr, header), static_cast<int>(served.sd()));
    EXPECT_EQ(client.readPackage(nullptr, header), -1);
    // The server's side ends first on purpose: its port stays usable.
    served.closeConnection();
    client.closeConnection();
}

TEST(SocketTcpServer, ServesThousandsInTurnAndHundredsAtOnce) {
    const auto before = openFiles();
    const int port = freePort();
    SocketTcpServer server;
    ASSERT_TRUE(server.init(port));
    std::vector<SocketTcp> clients(500), served(500);
    for (int i = 0; i < 2000; ++i) {
        greet(server, port, clients[0], served[0]);
        expectGreeting(clients[0], served[0]);
    }
    EXPECT_EQ(openFiles(), before + 1);
    server.closeConnection();
    const bool allowed = withDescriptors(2200, [&] {
        std::vector<PlainPeer> lower;  // all of them taken: select could not take what follows
        do {
            lower.emplace_back(fcntl(0, F_DUPFD_CLOEXEC, 0));
        } while (lower.back().descriptor() < 1023);
        ASSERT_TRUE(server.init(port));
        for (std::size_t i = 0; i < clients.size(); ++i) {
            greet(server, port, clients[i], served[i]);
        }
        EXPECT_FALSE(server.acceptConnectionNonBlock(served[0]));
        EXPECT_GT(clients[0].sd(), 1023U);
        for (std::size_t i = 0; i < clients.size(); ++i) {
            expectGreeting(clients[i], served[i]);
        }
        server.closeConnection();
    });
    EXPECT_EQ(openFiles(), before);
    if (!allowed) {
        GTEST_SKIP() << "the system does not allow descriptors above 1023";
    }
}

TEST(SocketTcpServer, TalksToTheExampleInTheDocumentation) {
    const int port = freePort();
    SocketTcpServer server;
    SocketTcp client;
    ASSERT_TRUE(server.init(port));
    const std::string program = "sed -n '/^```python$/,/^```$/{/^```/!p}' '" ORLEK_SOURCE_DIR
                                "/docs/protocol.md' | timeout 60 python3 - ";
    auto printed =
        std::async(std::launch::async, [&] { return shell(program + std::to_string(port)); });
    for (int attempt = 0; attempt < 50000 && !client.connected(); ++attempt) {
        server.acceptConnectionNonBlock(client);
    }
    server.closeConnection();
    std::string payload(1048551, ' ');
    MsgHeader header;
    EXPECT_EQ(readSoon(client, payload.data(), header), 7);
    EXPECT_EQ(payload.substr(0, header.length), "hello from Python");
    client.writePackage("hi", {.id = 8, .length = 2}, 2);
    EXPECT_EQ(printed.get(), "package 8 says hi\n");
    client.closeConnection();
}

}  // namespace
