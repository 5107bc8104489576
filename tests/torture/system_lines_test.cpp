// What is printed about each system call that fails, and on which stream.
#include <Orlek/Network.h>
#include <Orlek/OpenGL/TextureFont.h>
#include <Orlek/OpenGL/TextureFontSdf.h>
#include <gtest/gtest.h>

#include <new>
#include <string>
#include <utility>
#include <vector>

#include "Faults.h"
#include "support/Capture.h"
#include "support/OwnNetwork.h"

namespace {

using namespace OrlekTest;
using namespace Orlek::Network;

constexpr int port = 4698;  // in a network of its own
constexpr unsigned long loopback = 0x7F000001;

struct Printed {
    std::string out;
    std::string error;
};

/// What a function prints while the call of that number fails.
/// @return false when there was no such call
bool printedWhileFailing(FaultKind kind, long number, void (*act)(), Printed& printed) {
    bool struck = false;
    printed.error = captureStderr([&] {
        printed.out = captureStdout([&] {
            armFault(kind, number);
            try {
                act();
            } catch (const std::bad_alloc&) {  // NOLINT(bugprone-empty-catch): one of its failures
            }
            struck = disarmFault();
        });
    });
    return struck;
}

void listenAndAccept() {
    SocketTcpServer server;
    SocketTcp client;
    SocketTcp peer;
    if (server.init(port) && client.createTcpClientSocketNonBlock(loopback, port, 100)) {
        server.acceptConnection(peer);
    }
    peer.closeConnection();
    client.closeConnection();
    server.closeConnection();
}

void connectInVain() {
    SocketTcp client;
    client.createTcpClientSocketNonBlock(loopback, port, 100);
    client.closeConnection();
}

void openSender() {
    SocketUdp().openSendSocket(loopback, port, 0);
}

void openReceiver() {
    SocketUdp().openReceiveSocket(loopback, port, 0);
}

/// The calls whose failure is told, in their order, each with what it prints on both streams.
std::vector<std::string> toldCalls(void (*act)()) {
    std::vector<std::string> told;
    Printed printed;
    for (long number = 1; printedWhileFailing(FaultKind::system, number, act, printed); ++number) {
        if (!printed.out.empty() || !printed.error.empty()) {
            told.push_back(failedCall() + ("|" + printed.out) + "|" + printed.error);
        }
    }
    return told;
}

TEST(SystemLines, NameTheCallThatFailed) {
    const std::string noClient =
        "socket|SocketTcp::createTcpClientSocket failed 0x7f000001 port 4698\n|socket: Too many "
        "open "
        "files in system\n";
    const std::string noOutcome = "getsockopt||getsockopt: No buffer space available\n";
    const std::string noOption = "setsockopt||setsockopt: No buffer space available\n";
    const std::string refusal = inOwnNetwork([&] {
        const std::pair<void (*)(), std::vector<std::string>> rows[] = {
            {openSender,
             {"socket||Opening send socket: Too many open files in system\n",
              "setsockopt||set send broadcast: No buffer space available\n",
              "connect||connect send socket: Connection refused\n"}},
            {openReceiver,
             {"socket||Opening recv socket: Too many open files in system\n",
              "fcntl||Opening recv socket: Bad file descriptor\n",
              "fcntl||Opening recv socket: Bad file descriptor\n", noOption,
              "bind||bind recv socket: Address already in use\n"}},
            {connectInVain, {noClient, noOutcome}},
            {listenAndAccept,
             {"socket||socket: Too many open files in system\n", noOption,
              "bind||bind: Address already in use\n", "listen||listen: Address already in use\n",
              noClient, noOutcome, "accept4||accept: Too many open files\n", noOption}},
        };
        for (const auto& [act, lines] : rows) {
            EXPECT_EQ(toldCalls(act), lines);
        }
    });
    if (!refusal.empty()) {
        GTEST_SKIP() << refusal << ": the system calls of sockets are left out";
    }
}

#ifndef ORLEK_SANITIZED  // the sanitizer's allocations do not fail

template <typename Font>
void expectASecondStart() {
    constexpr long never = 1'000'000'000;
    const auto make = [] { const Font font; };
    Printed printed;
    for (long number = 1; printed.out.empty(); ++number) {
        ASSERT_TRUE(printedWhileFailing(FaultKind::allocation, number, make, printed));
    }
    EXPECT_EQ(printed.out, "init freetype failed !\n");
    for (const char* line : {"INIT Freetype done\n", ""}) {
        EXPECT_FALSE(printedWhileFailing(FaultKind::allocation, never, make, printed));
        EXPECT_EQ(printed.out, line);
        EXPECT_EQ(printed.error, "");
    }
}

TEST(SystemLines, FreeTypeIsStartedAgainWhenItHasFailed) {
    expectASecondStart<Orlek::OpenGL::TextureFont>();
    expectASecondStart<Orlek::OpenGL::TextureFontSdf>();
}

#endif

}  // namespace
