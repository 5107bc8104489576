#include <Orlek/Network/SocketTcp.h>
#include <Orlek/Network/SocketTcpServer.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/time.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <random>
#include <vector>

#include "PlainPeer.h"
#include "support/Capture.h"
#include "support/OpenFiles.h"

namespace {

using Orlek::Network::MsgHeader;
using Orlek::Network::SocketTcp;
using Orlek::Network::SocketTcpServer;
using namespace OrlekTest;

const std::string wrongVersion = "Wrong KOVA version data received --> 0x1204, should be 0x1203\n";

class SocketTcpTest : public testing::Test {
protected:
    void SetUp() override {
        connectLink();
        ASSERT_TRUE(link.connected());
    }

    void TearDown() override {
        link.closeConnection();
        peer.close();
        listener.close();
        EXPECT_EQ(openFiles(), filesBefore);
    }

    void connectLink() {
        ASSERT_TRUE(link.createTcpClientSocketNonBlock(loopback, listener.port(), 1000));
        peer = listener.accepted();
    }

    /// Loopback may deliver a little after the send has returned.
    int readSoon() {
        int id = -1;
        for (int attempt = 0; attempt < 2000 && id == -1; ++attempt) {
            id = link.readPackage(payload.data(), header);
            if (id == -1) {
                usleep(100);
            }
        }
        return id;
    }

    std::string received() const { return {payload.data(), header.length}; }

    int write(std::uint32_t id, const std::string& text) {
        MsgHeader sent;
        sent.id = id;
        sent.length = static_cast<std::uint32_t>(text.size());
        return link.writePackage(text.data(), sent, sent.length);
    }

    std::ptrdiff_t filesBefore = openFiles();
    PlainPeer listener = PlainPeer::listening();
    PlainPeer peer;
    SocketTcp link;
    MsgHeader header;
    std::vector<char> payload = std::vector<char>(1048551);
};

TEST_F(SocketTcpTest, ReadsOneByteAtATime) {
    header.reserved = 77;
    const std::string bytes = packageBytes(5, "abc");
    for (std::size_t i = 0; i + 1 < bytes.size(); ++i) {
        peer.send(bytes.substr(i, 1));
        ASSERT_EQ(link.readPackage(payload.data(), header), -1);
    }
    peer.send(bytes.substr(bytes.size() - 1));
    EXPECT_EQ(readSoon(), 5);
    EXPECT_EQ(received(), "abc");
    EXPECT_EQ(header.user0, 0x44332211U);
    EXPECT_EQ(header.user1, 1U);
    EXPECT_EQ(header.user2, 2U);
    EXPECT_EQ(header.reserved, 77);
}

TEST_F(SocketTcpTest, HandsOutWhatIsBufferedWithoutTheSocket) {
    peer.send(packageBytes(1, "one") + packageBytes(2, "") + packageBytes(3, "three"));
    EXPECT_EQ(readSoon(), 1);
    const int moved = dup(static_cast<int>(link.sd()));
    const int nothing = open("/dev/null", O_RDONLY);
    dup2(nothing, static_cast<int>(link.sd()));
    EXPECT_EQ(link.readPackage(payload.data(), header), 2);
    EXPECT_EQ(received(), "");
    EXPECT_EQ(link.readPackage(payload.data(), header), 3);
    EXPECT_EQ(received(), "three");
    const std::string error =
        captureStderr([&] { EXPECT_EQ(link.readPackage(payload.data(), header), -2); });
    EXPECT_EQ(error, "read: Socket operation on non-socket\n");
    close(moved);
    close(nothing);
}

TEST_F(SocketTcpTest, DropsBytesOfAWrongVersion) {
    peer.send(packageBytes(1, "") + packageBytes(2, "bad", 0x1204) + packageBytes(3, ""));
    EXPECT_EQ(readSoon(), 1);
    const auto read = [&](int expected) {
        return captureStdout(
            [&] { EXPECT_EQ(link.readPackage(payload.data(), header), expected); });
    };
    EXPECT_EQ(read(-1), wrongVersion);
    EXPECT_EQ(read(-1), "");
    peer.send(packageBytes(4, "good"));
    EXPECT_EQ(read(4), "");
    peer.send(packageBytes(5, "", 0x8001));
    EXPECT_EQ(read(-1), "Wrong KOVA version data received --> 0xffff8001, should be 0x1203\n");
    EXPECT_TRUE(link.connected());
}

TEST_F(SocketTcpTest, TakesTheLongestPackageAndRefusesLonger) {
    peer.send(packageBytes(1, std::string(400000, 'a')));
    EXPECT_EQ(readSoon(), 1);
    std::string longest = packageBytes(2, std::string(1048551, 'b'));
    for (std::size_t at = 0; at < longest.size(); at += 100000) {
        peer.send(longest.substr(at, 100000));
        if (at + 100000 < longest.size()) {
            EXPECT_EQ(link.readPackage(payload.data(), header), -1);
        }
    }
    EXPECT_EQ(readSoon(), 2);
    EXPECT_EQ(received(), longest.substr(24));
    for (const std::uint32_t length : {1048552U, 0xFFFFFFFFU}) {
        std::string tooLong = packageBytes(3, "");
        std::memcpy(&tooLong[12], &length, 4);
        peer.send(tooLong);
        EXPECT_EQ(captureStderr([&] { EXPECT_EQ(readSoon(), -2); }), "read: Message too long\n");
        EXPECT_FALSE(link.connected());
        EXPECT_EQ(link.readPackage(payload.data(), header), -2);
        connectLink();
    }
    peer.send(packageBytes(4, "fresh"));
    EXPECT_EQ(readSoon(), 4);
}

TEST_F(SocketTcpTest, TellsHowAPeerWentAway) {
    peer.send(packageBytes(1, "last") + packageBytes(2, "half").substr(0, 10));
    peer.close();
    EXPECT_EQ(readSoon(), 1);
    EXPECT_EQ(captureStderr([&] { EXPECT_EQ(readSoon(), -2); }), "read: Success\n");
    EXPECT_EQ(link.sd(), ~std::uint64_t{0});
    link = SocketTcp();
    connectLink();
    peer.reset();
    EXPECT_EQ(captureStderr([&] { EXPECT_EQ(readSoon(), -2); }),
              "read: Connection reset by peer\n");
    EXPECT_EQ(write(1, "nobody"), 0);
}

TEST_F(SocketTcpTest, KeepsBufferedBytesOverAReconnect) {
    peer.send(packageBytes(1, "") + packageBytes(2, "kept"));
    EXPECT_EQ(readSoon(), 1);
    link.closeConnection();
    EXPECT_EQ(link.readPackage(payload.data(), header), -2);
    connectLink();
    EXPECT_EQ(link.readPackage(payload.data(), header), 2);
    EXPECT_EQ(received(), "kept");
}

/// Ids of the packages in a stream that must hold whole packages only.
std::vector<std::uint32_t> idsOf(const std::string& stream, std::size_t payloadSize) {
    std::vector<std::uint32_t> ids;
    std::size_t at = 0;
    for (; at + 24 + payloadSize <= stream.size(); at += 24 + payloadSize) {
        std::uint32_t id = 0;
        std::memcpy(&id, &stream[at + 8], 4);
        MsgHeader expected;
        expected.id = id;
        expected.length = static_cast<std::uint32_t>(payloadSize);
        EXPECT_EQ(std::memcmp(&stream[at], &expected, 24), 0);
        EXPECT_EQ(stream.substr(at + 24, payloadSize),
                  std::string(payloadSize, char('a' + id % 26)));
        ids.push_back(id);
    }
    EXPECT_EQ(at, stream.size());
    return ids;
}

TEST_F(SocketTcpTest, DropsTheOldestWholePackagesForAPeerThatDoesNotRead) {
    constexpr std::size_t size = 20000;
    constexpr std::uint32_t count = 1000;
    for (std::uint32_t id = 0; id < count; ++id) {
        ASSERT_EQ(write(id, std::string(size, char('a' + id % 26))), 0);
    }
    // Each write sends on what the peer has made room for.
    std::string stream = peer.receive();
    for (int round = 0; round < 5; ++round) {
        write(count + 1, "");
        stream += peer.receive();
    }
    // The empty packages that drove the queue are of no interest.
    MsgHeader empty;
    empty.id = count + 1;
    const std::string driver(reinterpret_cast<const char*>(&empty), 24);
    for (std::size_t at = stream.find(driver); at != std::string::npos; at = stream.find(driver)) {
        stream.erase(at, driver.size());
    }
    const std::vector<std::uint32_t> ids = idsOf(stream, size);
    ASSERT_GT(ids.size(), 200U);
    ASSERT_LT(ids.size(), count);
    const std::size_t sentAtOnce = ids.size() - 200;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        ASSERT_EQ(ids[i], i < sentAtOnce ? i : count - 200 + (i - sentAtOnce));
    }
}

TEST_F(SocketTcpTest, StartsAPackageOverOnANewConnection) {
    std::string first(1000000, 'a');
    for (int i = 0; i < 20; ++i) {
        write(static_cast<std::uint32_t>(i), first);
    }
    peer.receive(100);
    peer.close();
    link.closeConnection();
    connectLink();
    write(100, "");
    const std::string stream = peer.receive(24);
    std::uint32_t id = 0;
    std::memcpy(&id, &stream.at(8), 4);
    EXPECT_GT(id, 0U);
    EXPECT_EQ(stream.substr(4, 2), "\x03\x12");
}

TEST_F(SocketTcpTest, RefusesWhatCannotBeSent) {
    MsgHeader large;
    large.length = 1048553;
    const auto refused = [&](const void* bytes) {
        return captureStdout([&] { EXPECT_EQ(link.writePackage(bytes, large, 0), 0); });
    };
    EXPECT_EQ(refused(payload.data()),
              "SocketTcp::writePackage refused a package of 1048577 bytes\n");
    large.length = 4;
    EXPECT_EQ(refused(nullptr), "SocketTcp::writePackage refused a package of 28 bytes\n");
    peer.reset();
    usleep(10000);
    EXPECT_EQ(captureStdout([&] { write(1, "x"); }), "SocketTcp::writePackage ret -1\n");
    EXPECT_EQ(peer.receive(), "");
}

TEST_F(SocketTcpTest, CopiesShareOneDescriptor) {
    SocketTcp copy = link;
    copy = *&copy;
    peer.send(packageBytes(1, "for the copy"));
    usleep(1000);
    EXPECT_EQ(copy.readPackage(payload.data(), header), 1);
    EXPECT_EQ(copy.connectionName(), "127.0.0.1");
    copy.closeConnection();
    EXPECT_FALSE(link.connected());
    const PlainPeer unrelated(::socket(AF_INET, SOCK_STREAM, 0));
    link.closeConnection();
    EXPECT_NE(fcntl(unrelated.descriptor(), F_GETFD), -1) << "closed a descriptor of others";
    EXPECT_EQ(link.readPackage(payload.data(), header), -2);
    EXPECT_EQ(write(1, ""), 0);
}

TEST_F(SocketTcpTest, DestructionLeavesTheDescriptorOpen) {
    std::uint64_t descriptor = 0;
    {
        SocketTcp passing;
        passing.setDescriptor(static_cast<std::uint64_t>(dup(static_cast<int>(link.sd()))));
        descriptor = passing.sd();
    }
    EXPECT_NE(fcntl(static_cast<int>(descriptor), F_GETFD), -1);
    SocketTcp next;
    next.setDescriptor(descriptor);
    next.closeConnection();
}

TEST_F(SocketTcpTest, WaitsAsLongAsAsked) {
    // Signals every 3 ms cut each wait short.
    struct sigaction action = {}, before = {};
    action.sa_handler = [](int) {};
    sigaction(SIGALRM, &action, &before);
    const itimerval often = {{0, 3000}, {0, 3000}}, never = {};
    setitimer(ITIMER_REAL, &often, nullptr);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(link.read(payload.data(), 10, 150), 0);
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_GE(waited, std::chrono::milliseconds(150));
    EXPECT_LT(waited, std::chrono::milliseconds(200));
    SocketTcp other;
    EXPECT_TRUE(other.createTcpClientSocket(loopback, listener.port()));
    other.closeConnection();
    setitimer(ITIMER_REAL, &never, nullptr);
    sigaction(SIGALRM, &before, nullptr);
}

TEST_F(SocketTcpTest, WorksAboveDescriptor1023) {
    rlimit limit = {};
    getrlimit(RLIMIT_NOFILE, &limit);
    const rlimit raised = {std::max<rlim_t>(limit.rlim_cur, 2000), limit.rlim_max};
    if (setrlimit(RLIMIT_NOFILE, &raised) != 0) {
        GTEST_SKIP() << "at most " << limit.rlim_cur << " descriptors are allowed here";
    }
    const int high = fcntl(static_cast<int>(link.sd()), F_DUPFD_CLOEXEC, 1500);
    ASSERT_GE(high, 1500);
    SocketTcp above;
    above.setDescriptor(static_cast<std::uint64_t>(high));
    EXPECT_EQ(above.read(payload.data(), 10, 5), 0);
    peer.send(packageBytes(8, "high"));
    EXPECT_EQ(above.read(payload.data(), 28, 1000), 28);
    MsgHeader sent;
    above.writePackage(nullptr, sent, 0);
    EXPECT_EQ(peer.receive().size(), 24U);
    above.closeConnection();
    setrlimit(RLIMIT_NOFILE, &limit);
}

TEST(SocketTcp, FailsToConnect) {
    SocketTcp link;
    MsgHeader header;
    char byte = 0;
    EXPECT_EQ(link.readPackage(&byte, header), -2);
    EXPECT_EQ(link.read(&byte, 1, 1000), 0);
    EXPECT_EQ(link.sd(), ~std::uint64_t{0});
    PlainPeer listener = PlainPeer::listening();
    const int port = listener.port();
    listener.close();
    const auto before = openFiles();
    struct Row {
        unsigned long address;
        int port;
    };
    for (const Row& row : {Row{0, port}, Row{loopback, port}, Row{loopback, -1},
                           Row{loopback, 65536 + port}, Row{0x17F000001, port}}) {
        EXPECT_FALSE(link.createTcpClientSocket(row.address, row.port));
        EXPECT_FALSE(link.createTcpClientSocketNonBlock(row.address, row.port, 1000));
    }
    EXPECT_EQ(openFiles(), before);
}

TEST(SocketTcp, GivesUpOnAnAddressThatNeverAnswers) {
    SocketTcp link;
    const auto start = std::chrono::steady_clock::now();
    // 192.0.2.1 is set apart for documentation (RFC 5737).
    EXPECT_FALSE(link.createTcpClientSocketNonBlock(0xC0000201, 9, 200));
    const auto took = std::chrono::steady_clock::now() - start;
    EXPECT_LT(took, std::chrono::milliseconds(250));
    if (took < std::chrono::milliseconds(200)) {
        GTEST_SKIP() << "the network refused at once; the time limit was not reached";
    }
}

TEST(SocketTcp, ReportsThatNoSocketIsLeft) {
    rlimit limit = {};
    getrlimit(RLIMIT_NOFILE, &limit);
    SocketTcp link;
    SocketTcpServer server;
    // Sanitizers look at a class when it is first used, for which they need descriptors.
    EXPECT_FALSE(link.createTcpClientSocket(0, 9));
    EXPECT_FALSE(server.acceptConnectionNonBlock(link));
    std::string lines;
    const std::string errors = captureStderr([&] {
        lines = captureStdout([&] {
            const rlimit none = {0, limit.rlim_max};
            setrlimit(RLIMIT_NOFILE, &none);
            EXPECT_FALSE(link.createTcpClientSocket(loopback, 9));
            EXPECT_FALSE(server.init(0));
            setrlimit(RLIMIT_NOFILE, &limit);
        });
    });
    EXPECT_EQ(lines, "SocketTcp::createTcpClientSocket failed 0x7f000001 port 9\n");
    EXPECT_EQ(errors, "socket: Too many open files\nsocket: Too many open files\n");
}

int freePort() {
    return PlainPeer::listening().port();
}

TEST(SocketTcpServer, AcceptsPeers) {
    const auto before = openFiles();
    const int port = freePort();
    SocketTcpServer server;
    SocketTcp client;
    EXPECT_FALSE(server.acceptConnectionNonBlock(client));
    ASSERT_TRUE(server.init(port));
    EXPECT_FALSE(server.acceptConnectionNonBlock(client));
    PlainPeer peer = PlainPeer::connectedTo(port);
    SocketTcpServer copy = server;
    ASSERT_TRUE(copy.acceptConnectionNonBlock(client));
    EXPECT_TRUE(client.connected());
    EXPECT_EQ(client.connectionName(), "127.0.0.1");
    EXPECT_EQ(client.address(), 0x0100007FU);
    const int flags = fcntl(static_cast<int>(client.sd()), F_GETFD);
    EXPECT_TRUE(flags & FD_CLOEXEC);
    EXPECT_EQ(captureStderr([&] { EXPECT_FALSE(SocketTcpServer().init(port)); }),
              "bind: Address already in use\n");
    EXPECT_TRUE(server.closeConnection());
    EXPECT_TRUE(copy.closeConnection());
    EXPECT_EQ(captureStderr([&] { EXPECT_FALSE(copy.acceptConnection(client)); }),
              "accept: Bad file descriptor\n");
    client.closeConnection();
    peer.close();
    EXPECT_EQ(openFiles(), before);
}

TEST(SocketTcpServer, ServesTwoThousandConnections) {
    const auto before = openFiles();
    const int port = freePort();
    SocketTcpServer server;
    ASSERT_TRUE(server.init(port));
    SocketTcp client, served;
    MsgHeader header;
    for (std::uint32_t i = 0; i < 2000; ++i) {
        ASSERT_TRUE(client.createTcpClientSocket(loopback, port)) << i;
        ASSERT_TRUE(server.acceptConnection(served)) << i;
        header.id = i;
        served.writePackage(nullptr, header, 0);
        MsgHeader got;
        ASSERT_EQ(client.readPackage(nullptr, got), static_cast<int>(i));
        // The server's side ends first on purpose: its port stays usable.
        served.closeConnection();
        client.closeConnection();
    }
    server.closeConnection();
    EXPECT_EQ(openFiles(), before);
}

}  // namespace
