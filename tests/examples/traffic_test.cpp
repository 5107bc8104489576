// Traffic without GL and network: tracks that are flown, what is shown, old and forgotten.
#include <Orlek/Geodetic.h>
#include <gtest/gtest.h>

#include <cmath>

#include "FeedMessage.h"
#include "LiveFlight.h"
#include "RouteFile.h"
#include "TargetText.h"
#include "TrafficState.h"
#include "traffic/AirTraffic.h"
#include "traffic/Racetrack.h"

namespace {

using namespace MovingMap;

TargetMessage target(std::uint32_t number = 7, double lat = 36.3) {
    TargetMessage target{lat, -84.2, 5500.0F, 270.0F, 110.0F, -600.0F, number, {}};
    target.setName("HAWK-21");
    return target;
}

// Positions a second apart lie as far from each other as the speed says, in the direction of the
// track, all around the racetrack and over its joints.
TEST(Racetrack, PositionTrackAndAltitudeAgree) {
    for (const auto& [legM, left] : {std::pair{0.0, true}, {5000.0, false}, {5000.0, true}}) {
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
    for (double seconds = 0.0; seconds < 20000.0; seconds += 7.3) {
        for (const auto& message :
             Traffic::AirTraffic(defaultRoute(), 110.0, 5500.0).messagesAt(seconds)) {
            ASSERT_TRUE(readMessage(headerOf(message).id, payloadOf(message))) << seconds;
        }
    }
}

TEST(TrafficState, IsBoundedAndForgetsSilentTargetsAndOldTrails) {
    TrafficState traffic(15.0);
    for (int second = 0; second <= 1000; ++second) {
        traffic.take(target(1, 36.0 + second * 1e-4), second);
        traffic.take(target(1, 36.0 + second * 1e-4), second + 0.5);
        traffic.expire(second);
    }
    ASSERT_EQ(traffic.targets().size(), 1U);
    EXPECT_NEAR(static_cast<double>(traffic.targets().at(1).trail.size()), 61.0, 1.0);
    for (std::uint32_t number = 0; number < 100000; ++number) {
        traffic.take(target(number, 40.0), 1001.0);
    }
    EXPECT_EQ(traffic.targets().at(1).trail.size(), 1U) << "a jump is no way";
    traffic.expire(1016.0);
    EXPECT_EQ(traffic.targets().size(), 200U);
    traffic.expire(1016.1);
    EXPECT_TRUE(traffic.targets().empty());
}

TEST(TargetText, IsThatOfACockpitDisplay) {
    const struct {
        OwnShipState own;
        float altitudeFt;
        float verticalFpm;
        const char* feet;
        const char* metres;
        int trend;
        bool near;
    } rows[] = {
        {OwnShipState::current, 5500, 499, "00", "00", 0, true},
        {OwnShipState::current, 6049, 500, "+05", "+17", 1, true},
        {OwnShipState::current, 6701, -500, "+12", "+37", -1, false},
        {OwnShipState::current, 4950, -499, "-06", "-17", 0, true},
        {OwnShipState::unknown, 6500, 0, "065", "198", 0, false},
    };
    for (const auto& row : rows) {
        Scene scene;
        scene.own = {36.0, -84.2};
        scene.altitudeFt = 5500.0;
        scene.ownState = row.own;
        TargetMessage message = target(1, 36.09);
        message.altitudeFt = row.altitudeFt;
        message.verticalFpm = row.verticalFpm;
        EXPECT_EQ(altitudeText(message, scene, AltitudeUnit::feet), row.feet);
        EXPECT_EQ(altitudeText(message, scene, AltitudeUnit::metres), row.metres);
        EXPECT_EQ(verticalTrend(message), row.trend) << row.feet;
        EXPECT_EQ(isNear(message, scene), row.near) << row.feet;
        message.lat = 36.11;
        EXPECT_FALSE(isNear(message, scene)) << "6.6 NM away";
    }
}

TEST(LiveNotes, SayWhatIsOld) {
    const struct {
        bool connected;
        std::optional<double> ageS;
        std::optional<double> ownAgeS;
        std::string words;
    } rows[] = {
        {false, {}, {}, "NOT CONNECTED|"},
        {true, {}, {}, "NO DATA YET|"},
        {true, 1.0, {}, "LIVE   0 TARGETS|NO OWN SHIP|"},
        {true, 1.0, 7.0, "LIVE   0 TARGETS|OWN SHIP OLD   7 S|"},
        {true, 4.0, 7.0, "DATA OLD   4 S|"},
        {false, 125.0, 7.0, "NOT CONNECTED   02:05|"},
    };
    for (const auto& row : rows) {
        Live live;
        live.source = "udp://:1";
        live.oldS = 3.0;
        live.connected = row.connected;
        live.ageS = row.ageS;
        live.ownAgeS = row.ownAgeS;
        live.ignored = 2;
        std::string words;
        for (const LiveNote& note : notesOf(live)) {
            words += note.text + "|";
        }
        EXPECT_EQ(words, "udp://:1|" + row.words + "2 BAD MESSAGES|");
    }
}

}  // namespace
