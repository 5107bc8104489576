// Sender and map as two programs: what is drawn while data come, when they stop, when they are bad.
#include <Orlek/Network.h>
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "FeedMessage.h"
#include "MapView.h"
#include "ProgramRun.h"
#include "RouteFile.h"
#include "network/PlainPeer.h"
#include "support/Process.h"
#include "traffic/AirTraffic.h"

namespace {

using namespace MovingMap;
using OrlekSupport::Image;
using OrlekTest::PlainPeer;
using OrlekTest::Process;

constexpr int width = 640;
constexpr int height = 480;
constexpr int infoHeight = 88;  // Two rows of figures.
constexpr double fromS = 404.0;

class LiveMap : public OrlekTest::ProgramRun {
protected:
    // Aircraft that stand still, so that it is known where they are.
    std::vector<std::string> sender(int tcpPort, int udpPort) const {
        return words(SENDER " --pace 0 --from 404 --rate 20 --seconds 600 --tcp " +
                     std::to_string(tcpPort) + " --udp " + std::to_string(udpPort));
    }

    std::vector<std::string> map(const std::string& url) const {
        return words(MAP
                     " --feed-old 0.5 --frames 4000 --feed-seconds 600 --width 640 --height 480 "
                     "--airspace none --out " +
                     mDir.path("map.png") + mNoTiles + "--feed " + url);
    }

    const int mPort = PlainPeer::listening().port();
};

Image pictureOf(const std::string& line) {
    return OrlekSupport::readPng(line.substr(0, line.find(": ")));
}

int countNear(const Image& image, Point at, bool (*wanted)(const std::array<int, 4>&)) {
    int count = 0;
    for (int y = -11; y <= 11; ++y) {
        for (int x = -11; x <= 11; ++x) {
            count +=
                wanted(image.at(static_cast<int>(at.x) + x, height - static_cast<int>(at.y) + y));
        }
    }
    return count;
}

using Pixel = std::array<int, 4>;
bool isCyan(const Pixel& pixel) {
    return pixel[0] < 170 && pixel[1] > 180 && pixel[2] > 200;
}
bool isYellow(const Pixel& pixel) {
    return pixel[0] > 220 && pixel[1] > 180 && pixel[2] < 110;
}
bool isRed(const Pixel& pixel) {
    return pixel[0] > 200 && pixel[1] < 130 && pixel[2] < 120;
}

// Where the targets of the sender must be, those that no plate covers.
std::vector<Point> placesOfTargets() {
    const auto messages = Traffic::AirTraffic(defaultRoute(), 110.0, 5500.0).messagesAt(fromS);
    const double metresPerPixel = 4.0 * metresPerMile / ((height - infoHeight) / 2.0 - 58.0);
    const MapView view(std::get<OwnShipMessage>(messages[0]).position(), metresPerPixel, 0.0,
                       Point(width / 2.0, (height + infoHeight) / 2.0), Point(width, height));
    std::vector<Point> places;
    for (std::size_t i = 1; i < messages.size(); ++i) {
        const Point at = view.toScreen(std::get<TargetMessage>(messages[i]).position());
        if (at.x > 220.0 && at.x < 500.0 && at.y > infoHeight + 50.0 && at.y < height - 50.0) {
            places.push_back(at);
        }
    }
    return places;
}

const Point ownPlace(width / 2.0, (height + infoHeight) / 2.0);

// The next picture of all traffic.
void expectLiveNext(Process& drawing) {
    const std::string line = drawing.waitForLine("LIVE   12 TARGETS");
    ASSERT_NE(line, "") << drawing.output();
    const Image image = pictureOf(line);
    EXPECT_GT(countNear(image, ownPlace, isYellow), 30);
    const std::vector<Point> places = placesOfTargets();
    ASSERT_GE(places.size(), 3U);
    for (const Point& place : places) {
        EXPECT_GT(countNear(image, place, isCyan), 20) << place.x << " " << place.y;
    }
}

std::string bytesOf(const FeedMessage& message) {
    const auto header = headerOf(message);
    std::string bytes(reinterpret_cast<const char*>(&header), sizeof header);
    return bytes.append(reinterpret_cast<const char*>(payloadOf(message).data()),
                        payloadOf(message).size());
}

// With one value out of its range each.
std::vector<FeedMessage> badMessages() {
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    const std::function<void(TargetMessage&)> changes[] = {
        [](auto& m) { m.lat = 85.1; },
        [](auto& m) { m.lon = nan; },
        [](auto& m) { m.altitudeFt = -2001.0F; },
        [](auto& m) { m.trackDeg = 360.5F; },
        [](auto& m) { m.speedKt = -1.0F; },
        [](auto& m) { m.verticalFpm = -30001.0F; },
        [](auto& m) { m.setName(""); },
        [](auto& m) { m.setName("no capitals"); },
        [](auto& m) { m.callsign[11] = 'X'; },
    };
    std::vector<FeedMessage> messages{OwnShipMessage{36, -84, 5500, nan, 110, 0}};
    for (const auto& change : changes) {
        TargetMessage target{36.3, -84.2, 5500.0F, 270.0F, 110.0F, -600.0F, 70, {}};
        target.setName("HAWK-21");
        change(target);
        messages.emplace_back(target);
    }
    return messages;
}

// The format byte by byte, and what differs from it.
std::vector<std::string> badDatagrams() {
    TargetMessage target{36.3, -84.2, 5500.0F, 270.0F, 110.0F, -600.0F, 71, {}};
    target.setName("HAWK-21");
    const std::string good = bytesOf(target);
    EXPECT_EQ(good.substr(24 + 28, 20), std::string("\0\0\x16\xC4G\0\0\0HAWK-21\0\0\0\0\0", 20));
    std::vector<std::string> datagrams{"", std::string(60000, 'x'), good.substr(0, 23),
                                       good.substr(0, 71), good + "x"};
    for (const auto& [at, value] : {std::pair{4, 4}, {8, 1}, {8, 3}, {12, 47}, {15, 255}}) {
        datagrams.push_back(good);
        datagrams.back()[static_cast<std::size_t>(at)] = static_cast<char>(value);
    }
    for (const FeedMessage& message : badMessages()) {
        datagrams.push_back(bytesOf(message));
    }
    return datagrams;
}

TEST_F(LiveMap, survivesBadDatagramsAndDrawsWhatGoodOnesTell) {
    Process drawing(map("udp://:" + std::to_string(mPort)), mDir.path("drawn"));
    ASSERT_NE(drawing.waitForLine("NO DATA YET"), "") << drawing.output();
    Orlek::Network::SocketUdp socket;
    ASSERT_TRUE(socket.openSendSocket(OrlekTest::loopback, mPort, 0));
    for (const std::string& bad : badDatagrams()) {
        socket.write(bad.data(), static_cast<unsigned int>(bad.size()));
    }
    ASSERT_NE(drawing.waitForLine(" 20 BAD MESSAGES"), "") << drawing.output();
    Process sending(sender(0, mPort), mDir.path("sender"));
    expectLiveNext(drawing);
}

// The line of a picture that was drawn when no data had come for so long.
std::string waitForAge(Process& drawing, int seconds) {
    const std::string state = "NOT CONNECTED   ";
    std::string line;
    int age = -1;
    for (int i = 0; i < 400 && age < seconds; ++i) {
        line = drawing.waitForLine(state);
        age = line.empty() ? seconds : std::atoi(line.c_str() + line.find(state) + state.size());
    }
    return line;
}

// Noise, then a package that can never be whole, until the map has hung up.
void sendNoise(const PlainPeer& peer, Process& drawing) {
    peer.send(std::string(100000, '\x5A'));
    ASSERT_NE(drawing.waitForLine("Wrong KOVA version"), "");
    Orlek::Network::MsgHeader header;
    header.length = 0xFFFFFFFF;
    const std::string endless(reinterpret_cast<const char*>(&header), sizeof header);
    const auto goOn = [&] {
        for (int i = 0; i < 300; ++i) {
            peer.send(endless);
            peer.receive(1, 100);
        }
    };
    EXPECT_THROW(goOn(), std::runtime_error) << "nobody has hung up";
}

TEST_F(LiveMap, survivesABadPeerAndFindsTheNextOnes) {
    PlainPeer server = PlainPeer::listening(mPort);
    Process drawing(map("tcp://127.0.0.1:" + std::to_string(mPort)), mDir.path("drawn"));
    for (const std::string bad : {"12", "24"}) {
        const PlainPeer peer = server.accepted();
        // Ids that look like what a connection without packages, or none, returns.
        for (const std::uint32_t id : {0xFFFFFFFFU, 0xFFFFFFFEU}) {
            Orlek::Network::MsgHeader header;
            header.id = id;
            peer.send({reinterpret_cast<const char*>(&header), sizeof header});
        }
        for (const FeedMessage& message : badMessages()) {
            peer.send(bytesOf(message));
        }
        ASSERT_NE(drawing.waitForLine(bad + " BAD MESSAGES"), "") << drawing.output();
        sendNoise(peer, drawing);
    }
    server.close();
    {
        Process sending(sender(mPort, 0), mDir.path("sender"));
        expectLiveNext(drawing);
        EXPECT_EQ(sending.stop(SIGTERM), 0);
    }
    const std::string gone = waitForAge(drawing, 3);
    ASSERT_NE(gone, "") << drawing.output();
    const Image image = pictureOf(gone);
    EXPECT_GT(countNear(image, ownPlace, isRed), 30);
    for (const Point& place : placesOfTargets()) {
        EXPECT_EQ(countNear(image, place, isCyan), 0);
    }
    Process sending(sender(mPort, 0), mDir.path("sender"));
    expectLiveNext(drawing);
}

}  // namespace
