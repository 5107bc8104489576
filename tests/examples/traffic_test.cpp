// The messages of a feed, held against their ranges, and the tracks of the traffic.
#include <Orlek/Geodetic.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <vector>

#include "FeedMessage.h"
#include "RouteFile.h"
#include "traffic/AirTraffic.h"
#include "traffic/Racetrack.h"

namespace {

using namespace MovingMap;

OwnShipMessage goodOwnShip() {
    return {36.3, -84.2, 5500.0F, 270.0F, 110.0F, 0};
}

TargetMessage goodTarget() {
    TargetMessage target{36.3, -84.2, 5500.0F, 270.0F, 110.0F, -600.0F, 7, {}};
    target.setName("HAWK-21");
    return target;
}

std::vector<std::byte> datagramOf(const FeedMessage& message) {
    const auto header = headerOf(message);
    const auto headerBytes = std::as_bytes(std::span(&header, 1));
    std::vector<std::byte> bytes(headerBytes.begin(), headerBytes.end());
    const auto payload = payloadOf(message);
    bytes.insert(bytes.end(), payload.begin(), payload.end());
    return bytes;
}

TEST(FeedMessage, comesBackAsItWasSent) {
    const auto own = readDatagram(datagramOf(goodOwnShip()));
    ASSERT_TRUE(own && std::holds_alternative<OwnShipMessage>(*own));
    EXPECT_EQ(std::get<OwnShipMessage>(*own).headingDeg, 270.0F);
    const auto target = readDatagram(datagramOf(goodTarget()));
    ASSERT_TRUE(target && std::holds_alternative<TargetMessage>(*target));
    EXPECT_EQ(std::get<TargetMessage>(*target).name(), "HAWK-21");
    EXPECT_EQ(std::get<TargetMessage>(*target).number, 7U);
}

TEST(FeedMessage, liesWhereTheFormatPutsIt) {
    const std::vector<std::byte> bytes = datagramOf(goodTarget());
    ASSERT_EQ(bytes.size(), 72U);
    float verticalFpm = 0.0F;
    std::memcpy(&verticalFpm, &bytes[24 + 28], sizeof verticalFpm);
    EXPECT_EQ(verticalFpm, -600.0F);
    EXPECT_EQ(std::memcmp(&bytes[24 + 36], "HAWK-21\0\0\0\0\0", 12), 0);
}

TEST(FeedMessage, isIgnoredWithAValueOutOfRange) {
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    constexpr float infinity = std::numeric_limits<float>::infinity();
    const std::pair<const char*, std::function<void(TargetMessage&)>> changes[] = {
        {"latitude", [](auto& m) { m.lat = 85.1; }},
        {"latitude", [](auto& m) { m.lat = -nan; }},
        {"longitude", [](auto& m) { m.lon = -180.5; }},
        {"longitude", [](auto& m) { m.lon = nan; }},
        {"altitude", [](auto& m) { m.altitudeFt = infinity; }},
        {"altitude", [](auto& m) { m.altitudeFt = -2001.0F; }},
        {"track", [](auto& m) { m.trackDeg = 360.5F; }},
        {"track", [](auto& m) { m.trackDeg = nan; }},
        {"speed", [](auto& m) { m.speedKt = -1.0F; }},
        {"vertical speed", [](auto& m) { m.verticalFpm = nan; }},
        {"vertical speed", [](auto& m) { m.verticalFpm = -30001.0F; }},
        {"no callsign", [](auto& m) { m.setName(""); }},
        {"small letters", [](auto& m) { m.setName("hawk"); }},
        {"control characters", [](auto& m) { m.setName("A\n"); }},
        {"beyond the zeros", [](auto& m) { m.callsign[11] = 'X'; }},
    };
    for (const auto& [what, change] : changes) {
        TargetMessage target = goodTarget();
        change(target);
        EXPECT_FALSE(readDatagram(datagramOf(target))) << what;
    }
    OwnShipMessage own = goodOwnShip();
    own.headingDeg = nan;
    EXPECT_FALSE(readDatagram(datagramOf(own)));
}

TEST(FeedMessage, isIgnoredInAnotherForm) {
    const std::vector<std::byte> good = datagramOf(goodTarget());
    for (std::size_t size = 0; size < good.size(); ++size) {
        EXPECT_FALSE(readDatagram(std::span(good).first(size))) << size;
    }
    const struct {
        const char* what;
        std::size_t at;
        std::byte value;
    } changes[] = {
        {"another version", 4, std::byte{0x04}}, {"the id of the own ship", 8, std::byte{1}},
        {"an unknown id", 8, std::byte{3}},      {"another length", 12, std::byte{47}},
        {"a huge length", 15, std::byte{0xFF}},
    };
    for (const auto& [what, at, value] : changes) {
        std::vector<std::byte> bytes = good;
        bytes[at] = value;
        EXPECT_FALSE(readDatagram(bytes)) << what;
    }
    std::vector<std::byte> longer = good;
    longer.push_back(std::byte{0});
    EXPECT_FALSE(readDatagram(longer));
}

// Positions a second apart lie as far from each other as the speed says, in the direction of the
// track, all around the racetrack and over its joints.
TEST(Racetrack, positionTrackAndAltitudeAgree) {
    for (const double legM : {0.0, 5000.0}) {
        for (const bool left : {false, true}) {
            const Traffic::Racetrack racetrack{{36.3, -84.2}, 250.0,  legM,   1500.0, left,
                                               180.0,         3000.0, 4000.0, 600.0};
            for (int second = 0; second < 600; ++second) {
                const Traffic::Motion from = motionAt(racetrack, second);
                const Traffic::Motion to = motionAt(racetrack, second + 1.0);
                EXPECT_NEAR(Orlek::Geodetic::calcDistance(from.position.lat, from.position.lon,
                                                          to.position.lat, to.position.lon),
                            92.6, 1.0);
                const double bearing = Orlek::Geodetic::calcBearing(
                    from.position.lat, from.position.lon, to.position.lat, to.position.lon);
                EXPECT_NEAR(std::remainder(bearing - from.trackDeg, 360.0), 0.0, 4.0) << second;
                EXPECT_NEAR(to.altitudeFt - from.altitudeFt,
                            (from.verticalFpm + to.verticalFpm) / 120.0, 5.1);
            }
        }
    }
}

TEST(Traffic, keepsToTheFormatForHours) {
    const Traffic::AirTraffic traffic(defaultRoute(), 110.0, 5500.0);
    for (double seconds = 0.0; seconds < 20000.0; seconds += 7.3) {
        const auto messages = traffic.messagesAt(seconds);
        ASSERT_EQ(messages.size(), 13U);
        for (const FeedMessage& message : messages) {
            ASSERT_TRUE(readDatagram(datagramOf(message))) << seconds;
        }
    }
}

}  // namespace
