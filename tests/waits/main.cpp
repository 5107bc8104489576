// How long the calls that wait hold their caller at worst: peers, name servers and disks that do
// not answer. In a network of its own, as root or where the system grants one. Prints a line for
// each.
#include <Orlek/Geodetic/HeightMap.h>
#include <Orlek/Misc/Property.h>
#include <Orlek/Network.h>
#include <sys/mount.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>

#include "network/PlainPeer.h"
#include "support/Capture.h"
#include "support/OwnNetwork.h"
#include "support/TempDir.h"
#include "terrain/TileFiles.h"

namespace {

using namespace OrlekTest;
using namespace Orlek::Network;

constexpr unsigned long loopback = 0x7F000001;
constexpr unsigned long silent = 0x0A630002;  // 10.99.0.2, where nobody is
constexpr int port = 4697;

void print(const char* call, const std::function<void()>& act, int times = 1) {
    double longestMs = 0.0;
    captureStderr([&] {
        captureStdout([&] {
            for (int i = 0; i < times; ++i) {
                const auto start = std::chrono::steady_clock::now();
                act();
                const std::chrono::duration<double, std::milli> taken =
                    std::chrono::steady_clock::now() - start;
                longestMs = std::max(longestMs, taken.count());
            }
        });
    });
    std::printf("%-74s %10.1f ms\n", call, longestMs);
    std::fflush(stdout);
}

/// A wire on which nobody answers, not even with an address.
void layWire() {
    shell(
        "ip link add wire type veth peer name end && ip link set end up && ip addr add "
        "10.99.0.1/24 dev wire && ip link set wire up");
    shell("ip neigh add 10.99.0.2 lladdr 02:00:00:00:00:02 dev wire");
}

void waitForPeers() {
    print("createTcpClientSocketNonBlock, nobody there, 200 ms",
          [] { SocketTcp().createTcpClientSocketNonBlock(silent, port, 200); });
    print("createTcpClientSocket, nobody there",
          [] { SocketTcp().createTcpClientSocket(silent, port); });
    SocketTcpServer server;
    server.init(port);
    SocketTcp client;
    print(
        "acceptConnectionNonBlock, nobody connects, most of 100",
        [&] { server.acceptConnectionNonBlock(client); }, 100);
    client.createTcpClientSocketNonBlock(loopback, port, 100);
    std::array<char, 100> bytes{};
    print("SocketTcp::read, nothing comes, 200 ms", [&] { client.read(bytes.data(), 100, 200); });
    MsgHeader header;
    print(
        "readPackage, nothing comes, most of 1000",
        [&] { client.readPackage(bytes.data(), header); }, 1000);
    const std::string payload(1 << 20, 'x');
    header.length = 1 << 19;
    print(
        "writePackage, the peer takes nothing, most of 1000",
        [&] { client.writePackage(payload.data(), header, 0); }, 1000);
    client.closeConnection();
    server.closeConnection();
}

void waitForDatagrams() {
    SocketUdp sender;
    sender.openSendSocket(silent, port, 0);
    const std::string datagram(60000, 'x');
    print(
        "SocketUdp::write, nobody there, most of 1000",
        [&] { sender.write(datagram.data(), 60000); }, 1000);
    SocketUdp receiver;
    receiver.openReceiveSocket(loopback, port, 0);
    std::array<char, 100> bytes{};
    print(
        "SocketUdp::read that does not wait, nothing comes, most of 1000",
        [&] { receiver.read(bytes.data(), 100); }, 1000);
}

void waitForServers() {
    const TempDir dir;
    const PlainPeer listener = PlainPeer::listening(80);
    print("getFileHttp, the server says nothing",
          [&] { Network::getFileHttp("127.0.0.1/a", dir.path("a")); });
}

/// Three name servers that do not answer, for this process only.
void waitForNames() {
    const TempDir dir;
    const std::string servers =
        dir.write("resolv", "nameserver 10.99.0.2\nnameserver 10.99.0.2\nnameserver 10.99.0.2\n");
    if (unshare(CLONE_NEWNS) != 0 || mount("", "/", "", MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount(servers.c_str(), "/etc/resolv.conf", "", MS_BIND, nullptr) != 0) {
        throw Refused();
    }
    print("getAddressFromName, three name servers that do not answer",
          [] { Network::getAddressFromName("map.example."); });
}

void waitForDisks() {
    const TempDir dir;
    for (int i = 0; i < 2000; ++i) {
        writeFlatDted(dir, i % 50, i / 50, 1);
    }
    const auto scan = [&](Orlek::Geodetic::HeightMap& map) {
        map.setDataPath(dir.path());
        map.loadData();
    };
    print("HeightMap::loadData of 2000 tiles", [&] {
        static Orlek::Geodetic::HeightMap map;
        scan(map);
    });
    print("~HeightMap right behind loadData of 2000 tiles", [&] {
        Orlek::Geodetic::HeightMap map;
        scan(map);
    });
    dir.write("big/N70E100.SRTMGL1.hgt.zip",
              archiveOf(srtmSamples(3601, 3601, [](int i, int j) { return i ^ j; })));
    Orlek::Geodetic::HeightMap map;
    map.setDataPath(dir.path("big"));
    unsigned char n = 0;
    captureStdout([&] {
        map.loadData();
        while (!map.getNormal(0, 0, false, false, n, n, n)) {
        }
    });
    print("getAltitude that loads a tile of 1 arc second",
          [&] { map.getAltitude(70.5, 100.5, true, false); });
    Orlek::Misc::Property& settings = Orlek::Misc::Property::instance();
    for (int i = 0; i < 100; ++i) {
        settings.setInt("group.key" + std::to_string(i), i);
    }
    print(
        "Property::writeXmlFile of 100 settings, most of 50",
        [&] { settings.writeXmlFile(dir.path("settings.xml")); }, 50);
}

}  // namespace

int main() {
    const std::string refusal = inOwnNetwork([] {
        layWire();
        waitForDisks();
        waitForDatagrams();
        waitForServers();
        waitForNames();
        waitForPeers();
    });
    if (!refusal.empty()) {
        std::printf("not measured: %s\n", refusal.c_str());
    }
    return refusal.empty() ? 0 : 1;
}
