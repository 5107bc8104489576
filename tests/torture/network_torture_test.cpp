// Connections, datagrams, host names and downloads while one allocation or system call after the
// other fails.
#include <Orlek/Network.h>
#include <signal.h>
#include <sys/prctl.h>

#include <array>
#include <cstring>
#include <string>

#include "Sweep.h"
#include "network/Download.h"
#include "network/PlainPeer.h"
#include "support/TempDir.h"
#include "support/WholeText.h"

namespace {

using namespace OrlekTest;
using namespace Orlek::Network;

constexpr int port = 4699;  // in a network of its own
constexpr std::array<std::uint32_t, 3> lengths{10, 0, 5000};
std::array<char, 1048551> room;

const std::string& target() {
    static const TempDir dir;
    static const std::string path = dir.path("target");
    return path;
}

std::array<char, 5000> payload(std::uint32_t id) {
    std::array<char, 5000> bytes;
    bytes.fill(static_cast<char>('a' + id));
    return bytes;
}

// The library's objects leave their sockets open.
struct Link {
    SocketTcpServer server;
    SocketTcp client;
    SocketTcp peer;

    ~Link() {
        peer.closeConnection();
        client.closeConnection();
        server.closeConnection();
    }
};

struct Datagrams {
    SocketUdp receiver;
    SocketUdp sender;

    ~Datagrams() {
        receiver.closeConnection();
        sender.closeConnection();
    }
};

// What arrives is what was sent, in order, as far as it comes; refused packages stay out.
Came exchangePackages() {
    Link link;
    auto& [server, client, peer] = link;
    const bool linked = server.init(port) &&
                        client.createTcpClientSocketNonBlock(loopback, port, 100) &&
                        server.acceptConnectionNonBlock(peer);
    bool right = true;
    for (std::uint32_t id = 0; linked && id < lengths.size(); ++id) {
        MsgHeader header;
        header.id = id;
        header.length = lengths[id];
        client.writePackage(payload(id).data(), header, header.length);
    }
    MsgHeader header;
    std::uint32_t next = 0;
    for (int i = 0; linked && next < lengths.size() && i < 50; ++i) {
        const int id = peer.readPackage(room.data(), header);
        if (id >= 0) {
            right = right && header.id >= next && header.id < lengths.size() &&
                    header.length == lengths[header.id] &&
                    std::memcmp(room.data(), payload(header.id).data(), header.length) == 0;
            next = header.id + 1;
        } else if (!peer.connected()) {
            break;
        } else {
            usleep(10);
        }
    }
    return came(right && next == lengths.size(), right);
}

Came exchangeDatagrams() {
    Datagrams datagrams;
    auto& [receiver, sender] = datagrams;
    const bool opened =
        receiver.openReceiveSocket(loopback, port, 0) && sender.openSendSocket(loopback, port, 0);
    bool right = true;
    int received = 0;
    if (opened) {
        sender.write("one", 3);
        sender.write(port, "two", 3);
        for (int i = 0; i < 4; ++i) {
            const int size = receiver.read(room.data(), 100);
            right =
                right && (size <= 0 || (size == 3 && (std::memcmp(room.data(), "one", 3) == 0 ||
                                                      std::memcmp(room.data(), "two", 3) == 0)));
            received += size > 0 ? 1 : 0;
        }
    }
    return came(right && received == 2, right);
}

Came askNames() {
    const unsigned long address = Network::getAddressFromName("127.0.0.1");
    for (const Network::Adapter& adapter : Network::getNetworkAdapters()) {
        if (adapter.name != "lo") {
            return Came::wrong;
        }
    }
    const bool text = Network::getAddressString(loopback) == "127.0.0.1";
    return came(text && address == loopback, text && address == 0);
}

Came download() {
    const bool answered = Network::getFileHttp("http://127.0.0.1/file", target());
    return answered ? Came::done : came(false, wholeText(target()) == untouched);
}

// Answers whoever comes, until it is stopped.
[[noreturn]] void serve(const PlainPeer& listener) {
    for (;;) {
        const PlainPeer peer = listener.accepted();
        peer.receive(20, 1000);
        ::send(peer.descriptor(), "HTTP/1.0 200 OK\r\n\r\ncontent", 26, MSG_NOSIGNAL);
    }
}

void tortureAll() {
    const PlainPeer listener = PlainPeer::listening(80);
    const pid_t server = fork();
    if (server == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        serve(listener);
    }
    const Scenario scenarios[] = {
        {"exchange packages", nothing, exchangePackages, always},
        {"exchange datagrams", nothing, exchangeDatagrams, always},
        {"ask for names", nothing, askNames, always},
        {"download", [] { std::ofstream(target()) << untouched; }, download,
         [] {
             return std::string_view("content").starts_with(wholeText(target())) ||
                    wholeText(target()) == untouched;
         }},
    };
    torture(scenarios);
    kill(server, SIGKILL);
    waitpid(server, nullptr, 0);
}

TEST(Torture, Network) {
    target();  // makes its directory in this process, which removes it: the child ends at once
    onPort80(tortureAll);
}

}  // namespace
