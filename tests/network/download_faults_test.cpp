#include <fcntl.h>
#include <poll.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <regex>
#include <thread>

#include "network/Download.h"
#include "network/PlainPeer.h"
#include "support/Capture.h"
#include "support/OpenFiles.h"

namespace {

using namespace OrlekTest;
using namespace std::chrono_literals;
using Hosts = Orlek::Network::Network;

const std::string fine = "HTTP/1.1 200 OK\r\n\r\n";

constexpr int longMs = 20000;

bool comes(const PlainPeer& peer, int timeoutMs) {
    pollfd waited = {peer.descriptor(), POLLIN, 0};
    return poll(&waited, 1, timeoutMs) > 0;
}

/// After its request the client has nothing to say but that it closes.
void awaitClose(const PlainPeer& peer) {
    EXPECT_TRUE(comes(peer, longMs)) << "the client did not close";
}

struct Server {
    const char* fault;
    std::function<void(PlainPeer&)> serve;
    bool answered = true;
    std::string content;
};

/// One download from a server that takes one connection. What getFileHttp() gave.
bool downloadFrom(const PlainPeer& listener, const Server& server, const std::string& target,
                  const std::string& host = "127.0.0.1") {
    const std::string request = requestFor(host, "/map");
    std::thread serving([&] {
        if (!comes(listener, longMs)) {
            ADD_FAILURE() << "no connection";
            return;
        }
        PlainPeer peer = listener.accepted();
        EXPECT_EQ(peer.receive(request.size(), longMs), request);
        try {
            server.serve(peer);
        } catch (const std::runtime_error&) {
            // The client closes while it is sent more than it takes.
        }
    });
    const bool answered = Hosts::getFileHttp("http://" + host + "/map", target);
    serving.join();
    return answered;
}

void sendThenStay(PlainPeer& peer, const std::string& bytes) {
    peer.send(bytes);
    awaitClose(peer);
}

void drip(PlainPeer& peer, const std::string& bytes) {
    for (const char byte : bytes) {
        peer.send(std::string(1, byte));
        std::this_thread::sleep_for(5ms);
    }
}

/// The second part comes when the client has had two seconds to close, or closed.
void pauseWithin(PlainPeer& peer, const std::string& first, const std::string& second) {
    peer.send(first);
    comes(peer, 2000);
    peer.send(second);
}

std::vector<Server> faultyServers() {
    constexpr std::size_t longestAnswer = 1048576;
    const std::string body(60, 'x'), huge(longestAnswer + longestAnswer / 2, 'y');
    std::string noEnd;
    while (noEnd.size() < huge.size()) {
        noEnd += "Name: value\r\n";
    }
    return {
        {"says nothing", awaitClose, false, untouched},
        {"closes at once", [](auto& peer) { peer.close(); }, true, untouched},
        {"resets", [](auto& peer) { peer.reset(); }, true, untouched},
        {"half a header", [](auto& peer) { sendThenStay(peer, "HTTP/1.1 20"); }, true, untouched},
        {"header without end", [=](auto& peer) { peer.send(noEnd); }, true, untouched},
        {"header only", [](auto& peer) { sendThenStay(peer, fine); }, true, untouched},
        {"drips", [=](auto& peer) { drip(peer, fine + body); }, true, body},
        {"pauses in the header",
         [](auto& peer) { pauseWithin(peer, "HTTP/1.1 200 OK\r\n\r", "\nbody"); }, true, untouched},
        {"pauses in the body", [](auto& peer) { pauseWithin(peer, fine + "first", "second"); },
         true, "first"},
        {"sends too much", [=](auto& peer) { peer.send(fine + huge); }, true,
         huge.substr(0, longestAnswer - fine.size())},
        {"no HTTP", [](auto& peer) { sendThenStay(peer, "\r\n\r\n\r\n\r\n"); }, true, "\r\n\r\n"},
    };
}

TEST(Download, SurvivesFaultyServers) {
    onPort80([] {
        const PlainPeer listener = PlainPeer::listening(80);
        const TempDir dir;
        const auto before = openFiles();
        for (const Server& server : faultyServers()) {
            const Downloaded expected = {server.answered, server.content};
            const auto start = std::chrono::steady_clock::now();
            const Downloaded got = downloadedBy(
                [&](const std::string& target) { return downloadFrom(listener, server, target); },
                dir, expected);
            EXPECT_EQ(got, expected) << server.fault;
            if (!server.answered) {
                EXPECT_GE(std::chrono::steady_clock::now() - start, 1s);
            }
        }
        EXPECT_EQ(openFiles(), before);
    });
}

/// A pipe that has no room left, held open.
PlainPeer fullPipe(const std::string& path) {
    if (mkfifo(path.c_str(), 0600) != 0) {
        throw std::runtime_error("no pipe");
    }
    PlainPeer pipe(open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
    while (write(pipe.descriptor(), "x", 1) == 1) {
    }
    return pipe;
}

TEST(Download, SaysWhyAFileIsNotWritten) {
    onPort80([] {
        const PlainPeer listener = PlainPeer::listening(80);
        const TempDir dir;
        const std::string file = dir.write("plain", "x");
        const PlainPeer pipe = fullPipe(dir.path("pipe"));
        struct Row {
            std::string target, verb, reason;
        };
        const Row rows[] = {
            {file + "/below/file", "open", "Not a directory"},
            {dir.path(), "open", "Is a directory"},
            {dir.path() + "/", "open", "Is a directory"},
            {"", "open", "No such file or directory"},
            {dir.path("zero") + '\0' + "/below/file", "open", "Invalid argument"},
            {"/dev/full", "write", "No space left on device"},  // as a full disk
            {dir.path("pipe"), "write", "Resource temporarily unavailable"},
            {dir.path("a/b.c/d/file"), "", ""},  // folders are made
        };
        const Server server = {"", [](auto& peer) { sendThenStay(peer, fine + "body"); }, true,
                               "body"};
        const auto before = openFiles();
        for (const auto& [target, verb, reason] : rows) {
            std::string line;
            const std::string error = captureStderr([&, &target = target] {
                line = captureStdout(
                    [&] { EXPECT_TRUE(downloadFrom(listener, server, target)) << target; });
            });
            const std::string shown = target.c_str();
            EXPECT_EQ(line, verb.empty() ? "" : "could not " + verb + " <" + shown + ">\n");
            EXPECT_EQ(error, verb.empty() ? "" : "f" + verb + ": " + reason + "\n");
        }
        EXPECT_EQ(openFiles(), before);
        EXPECT_EQ(wholeText(dir.path("a/b.c/d/file")), "body");
        EXPECT_EQ(wholeText(file), "x");
        EXPECT_FALSE(std::filesystem::exists(dir.path("zero")));
    });
}

TEST(Download, FailsWithoutAServer) {
    onPort80([] {
        const TempDir dir;
        const std::string target = dir.write("target", untouched);
        EXPECT_FALSE(Hosts::getFileHttp("http://127.0.0.1/closed/port", target));
        for (const char* url : {"http://no-such-host.invalid/a", "", "http:///a", "0.0.0.0/a"}) {
            const std::string text =
                captureStderr([&] { EXPECT_FALSE(Hosts::getFileHttp(url, target)) << url; });
            EXPECT_TRUE(*url == '0' ? text.empty()
                                    : std::regex_match(text, std::regex("getaddrinfo: .+\n")))
                << url << text;
        }
        const PlainPeer listener = PlainPeer::listening(80);
        for (const std::string& odd : {std::string("\r\nX: y"), std::string("\n"),
                                       std::string(1, '\0'), std::string("\x7F")}) {
            EXPECT_FALSE(Hosts::getFileHttp("http://127.0.0.1/a" + odd, target)) << odd;
        }
        EXPECT_FALSE(comes(listener, 0)) << "an unclean URL was sent";
        EXPECT_EQ(wholeText(target), untouched);
    });
}

/// Lets the file `hosts` say which names there are, for this process only.
void useHosts(const std::string& hosts) {
    if (unshare(CLONE_NEWNS) != 0 || mount("", "/", "", MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount(hosts.c_str(), "/etc/hosts", "", MS_BIND, nullptr) != 0) {
        throw Refused();
    }
}

TEST(Download, ResolvesAHostOnce) {
    onPort80([] {
        const TempDir dir;
        useHosts(dir.write("hosts", "127.0.0.1 early.test\n"));
        const PlainPeer listener = PlainPeer::listening(80);
        const auto download = [&](const char* how, const std::string& host) {
            const Server server = {how, [](auto& peer) { peer.close(); }, true, ""};
            EXPECT_TRUE(downloadFrom(listener, server, dir.path("target"), host)) << how;
        };
        download("known to the system", "early.test");
        const std::string text = captureStderr([&] {
            EXPECT_FALSE(Hosts::getFileHttp("http://late.test/map", dir.path("target")));
            dir.write("hosts", "127.0.0.1 late.test\n");
            EXPECT_EQ(Hosts::getAddressFromName("early.test"), 0U);
        });
        EXPECT_TRUE(std::regex_match(text, std::regex("(getaddrinfo: .+\n){2}"))) << text;
        download("known from before", "early.test");
        download("known to the system by now", "late.test");
    });
}

}  // namespace
