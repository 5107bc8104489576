#include <Orlek/Network/Network.h>
#include <Orlek/Network/SocketUdp.h>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <string>
#include <thread>

#include "PlainPeer.h"
#include "support/Capture.h"
#include "support/OpenFiles.h"
#include "support/OwnNetwork.h"

namespace {

using namespace OrlekTest;
using Orlek::Network::SocketUdp;

const int port = PlainPeer::listening().port();
constexpr int nonBlocking = 0;
constexpr int blocking = 1;

int send(SocketUdp& socket, const std::string& text) {
    return socket.write(text.data(), static_cast<unsigned int>(text.size()));
}

// The next datagram, waited for as long as a loaded machine may take; "none" when there is none.
std::string receive(SocketUdp& socket, std::chrono::milliseconds limit = std::chrono::seconds(5)) {
    std::array<char, 70000> buffer{};
    const auto end = std::chrono::steady_clock::now() + limit;
    do {
        const int count = socket.read(buffer.data(), buffer.size());
        if (count >= 0) {
            return {buffer.data(), static_cast<std::size_t>(count)};
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    } while (std::chrono::steady_clock::now() < end);
    return "none";
}

constexpr auto atOnce = std::chrono::milliseconds(0);

TEST(SocketUdp, CarriesDatagramsWholeAndInOrder) {
    SocketUdp receiver;
    SocketUdp sender;
    ASSERT_TRUE(receiver.openReceiveSocket(loopback, port, nonBlocking));
    ASSERT_TRUE(sender.openSendSocket(loopback, port, 0));
    EXPECT_TRUE(receiver.connected() && sender.connected());
    EXPECT_EQ(receive(receiver, atOnce), "none");
    const std::string largest(65507, 'x');
    EXPECT_EQ(send(sender, "first"), 5);
    EXPECT_EQ(sender.write(port + 1, "second", 6), 6);  // the port of the call does not count
    EXPECT_EQ(send(sender, ""), 0);
    EXPECT_EQ(send(sender, largest), 65507);
    EXPECT_EQ(receive(receiver), "first");
    EXPECT_EQ(receive(receiver), "second");
    EXPECT_EQ(receive(receiver), "");
    EXPECT_EQ(receive(receiver), largest);

    EXPECT_EQ(send(sender, "long"), 4);
    EXPECT_EQ(send(sender, "next"), 4);
    std::array<char, 3> small{'-', '-', '-'};
    EXPECT_EQ(receiver.read(small.data(), 2), 2);
    EXPECT_EQ(std::string(small.data(), 3), "lo-");
    EXPECT_EQ(receive(receiver), "next") << "the rest of a datagram is lost, not handed out later";
}

TEST(SocketUdp, DoesNothingSilentlyWhenNotOpen) {
    SocketUdp socket;
    std::array<char, 4> buffer{};
    const std::string text = captureStderr([&] {
        for (const bool opened : {false, true}) {
            EXPECT_TRUE(!opened || socket.openSendSocket(loopback, port, 0));
            socket.closeConnection();
            EXPECT_FALSE(socket.connected());
            EXPECT_EQ(socket.read(buffer.data(), 4), -1);
            EXPECT_EQ(socket.write("a", 1), -1);
            EXPECT_EQ(socket.write(port, "a", 1), -1);
        }
    });
    EXPECT_EQ(text, "");
}

TEST(SocketUdp, TellsWhichStepFailedAndLeavesNoDescriptor) {
    const struct {
        bool sends;
        unsigned long address;
        int port;
        const char* line;
    } rows[] = {
        {true, loopback, -1, "connect send socket: Invalid argument\n"},
        {true, loopback, 65536, "connect send socket: Invalid argument\n"},
        {false, loopback, -1, "bind recv socket: Invalid argument\n"},
        {false, loopback, 65536, "bind recv socket: Invalid argument\n"},
        {false, 0xC0000201, port, "bind recv socket: Cannot assign requested address\n"},
    };
    SocketUdp socket;
    const auto before = openFiles();
    for (const auto& row : rows) {
        EXPECT_EQ(captureStderr([&] {
                      EXPECT_FALSE(row.sends
                                       ? socket.openSendSocket(row.address, row.port, 0)
                                       : socket.openReceiveSocket(row.address, row.port, blocking));
                  }),
                  row.line);
        EXPECT_FALSE(socket.connected());
    }
    ASSERT_TRUE(socket.openSendSocket(loopback, port, 0));
    EXPECT_EQ(captureStderr([&] { EXPECT_EQ(send(socket, std::string(65508, 'x')), -1); }),
              "write: Message too long\n");
    socket.closeConnection();
    EXPECT_EQ(openFiles(), before);
}

// The system reports the first datagram that nobody took at the second one.
TEST(SocketUdp, KeepsSendingWhenNobodyListens) {
    SocketUdp sender;
    ASSERT_TRUE(sender.openSendSocket(loopback, port, 0));
    const std::string text = captureStderr([&] {
        for (int i = 0; i < 10; ++i) {
            EXPECT_EQ(send(sender, "lost"), 4);
        }
        SocketUdp receiver;
        ASSERT_TRUE(receiver.openReceiveSocket(0, port, nonBlocking));
        EXPECT_EQ(send(sender, "heard"), 5);
        EXPECT_EQ(receive(receiver), "heard");
    });
    EXPECT_EQ(text, "");
}

TEST(SocketUdp, CopiesShareADescriptorThatIsClosedOnce) {
    const auto before = openFiles();
    SocketUdp receiver;
    ASSERT_TRUE(receiver.openReceiveSocket(loopback, port, nonBlocking));
    {
        SocketUdp first;
        ASSERT_TRUE(first.openSendSocket(loopback, port, 0));
        SocketUdp last;
        last = SocketUdp(first);
        ASSERT_TRUE(first.openSendSocket(loopback, port, 0));  // of its own from now on
        EXPECT_EQ(openFiles(), before + 3);
        EXPECT_EQ(send(last, "last"), 4);
        EXPECT_EQ(receive(receiver), "last");

        SocketUdp copy = last;
        last.closeConnection();
        EXPECT_EQ(openFiles(), before + 2);
        SocketUdp other;  // gets the number of the closed descriptor
        ASSERT_TRUE(other.openSendSocket(loopback, port, 0));
        EXPECT_EQ(captureStderr([&] { EXPECT_EQ(send(copy, "a"), -1); }),
                  "write: Bad file descriptor\n");
        copy.closeConnection();
        EXPECT_EQ(send(other, "other"), 5);
        EXPECT_EQ(receive(receiver), "other");
    }
    EXPECT_EQ(openFiles(), before + 1);
    for (int i = 0; i < 2000; ++i) {
        ASSERT_TRUE(receiver.openReceiveSocket(loopback, port, i % 2));
    }
    EXPECT_EQ(openFiles(), before + 1);
}

// Two networks joined by a wire: this thread is on the left, the other one on the right.
void checkBroadcast() {
    const std::string self = std::to_string(getpid());
    EXPECT_EQ(SocketUdp::getBroadcastAddress(), loopback) << "only loopback is there";
    SocketUdp sender;
    EXPECT_EQ(captureStderr([&] { EXPECT_FALSE(sender.openSendSocket(0x0A0102FF, port, 0)); }),
              "connect send socket: Network is unreachable\n");
    SocketUdp any;
    SocketUdp local;
    SocketUdp own;
    std::thread right([&] {
        ASSERT_EQ(unshare(CLONE_NEWNET), 0);
        shell("ip link add left type veth peer name right");
        shell("ip link set left netns " + self);
        shell("ip addr add 10.1.2.4/24 brd + dev right");
        shell("ip link set right up");
        EXPECT_EQ(SocketUdp::getBroadcastAddress(), 0x0A0102FFU);
        ASSERT_TRUE(any.openReceiveSocket(0, port, nonBlocking));
        ASSERT_TRUE(local.openReceiveSocket(0x0A0102FF, port, nonBlocking));
        ASSERT_TRUE(own.openReceiveSocket(0x0A010204, port + 1, nonBlocking));
    });
    right.join();
    shell("ip addr add 10.1.2.3/24 brd + dev left");
    shell("ip link set left up");
    ASSERT_TRUE(sender.openSendSocket(SocketUdp::getBroadcastAddress(), port, 0));
    EXPECT_EQ(send(sender, "to all"), 6);
    EXPECT_EQ(receive(any), "to all");
    EXPECT_EQ(receive(local), "to all");
    ASSERT_TRUE(sender.openSendSocket(0x0A010204, port + 1, 0));
    EXPECT_EQ(send(sender, "to one"), 6);
    EXPECT_EQ(receive(own), "to one");
}

TEST(SocketUdp, ReachesAllReceiversOnAWire) {
    inOwnNetworkOrSkip(checkBroadcast, "broadcasts between two networks are left out");
}

TEST(SocketUdp, FindsTheAddressOfThisHost) {
    const unsigned long address = SocketUdp::getHostAddress();
    std::string listed;
    try {
        listed = shell("getent ahostsv4 \"$(uname -n)\" | cut -d' ' -f1");
    } catch (const std::runtime_error&) {  // the name of this host has no address
    }
    EXPECT_EQ(listed.empty(), address == 0);
    const std::string dotted = Orlek::Network::Network::getAddressString(address);
    EXPECT_EQ(listed.substr(0, listed.find('\n')), address == 0 ? "" : dotted);
}

}  // namespace
