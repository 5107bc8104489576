// What the live map knows without GL and network: URLs, ages, bounds, words.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "FeedUrl.h"
#include "Fetch.h"
#include "LiveFlight.h"
#include "RoutePath.h"
#include "TargetText.h"
#include "TrafficState.h"

namespace {

using namespace MovingMap;

TEST(FeedUrl, isTcpWithHostOrUdpWithout) {
    const FeedUrl tcp = parseFeedUrl("tcp://sender-1.example:4611");
    EXPECT_TRUE(tcp.tcp);
    EXPECT_EQ(tcp.host, "sender-1.example");
    EXPECT_EQ(tcp.port, 4611);
    const FeedUrl udp = parseFeedUrl("udp://:65535");
    EXPECT_FALSE(udp.tcp);
    EXPECT_EQ(udp.port, 65535);
    for (const std::string bad :
         {"", "tcp", "tcp:", "tcp://", "tcp://host", "tcp://:1", "tcp://host:", "tcp://host:0",
          "tcp://host:65536", "tcp://host:1x", "tcp://host: 1", "tcp://a b:1", "tcp://a/b:1",
          "tcp://a:1:2", "udp://host:1", "udp://:", "udp://:-1", "http://host:1", "TCP://host:1"}) {
        try {
            parseFeedUrl(bad);
            ADD_FAILURE() << bad;
        } catch (const std::runtime_error& error) {
            EXPECT_EQ(error.what(),
                      "--feed: '" + bad + "' is neither tcp://HOST:PORT nor udp://:PORT");
        }
    }
}

TargetMessage target(std::uint32_t number, double lat = 36.0) {
    TargetMessage message;
    message.lat = lat;
    message.number = number;
    message.setName("T");
    return message;
}

TEST(TrafficState, forgetsSilentTargetsAndOldTrails) {
    TrafficState traffic(15.0);
    for (int second = 0; second <= 1000; ++second) {
        traffic.take(target(1, 36.0 + second * 1e-4), second);
        traffic.take(target(1, 36.0 + second * 1e-4), second + 0.5);
        traffic.expire(second);
    }
    ASSERT_EQ(traffic.targets().size(), 1U);
    EXPECT_NEAR(static_cast<double>(traffic.targets().at(1).trail.size()), 61.0, 1.0);
    traffic.take(target(1, 40.0), 1001.0);
    EXPECT_EQ(traffic.targets().at(1).trail.size(), 1U) << "a jump is no way";
    traffic.expire(1016.0);
    EXPECT_EQ(traffic.targets().size(), 1U);
    traffic.expire(1016.1);
    EXPECT_TRUE(traffic.targets().empty());
}

TEST(TrafficState, isBounded) {
    TrafficState traffic(15.0);
    for (std::uint32_t number = 0; number < 100000; ++number) {
        traffic.take(target(number), 0.0);
    }
    EXPECT_EQ(traffic.targets().size(), 200U);
}

TEST(TargetText, isThatOfACockpitDisplay) {
    const struct {
        OwnShipState own;
        float altitudeFt;
        float verticalFpm;
        const char* text;
        int trend;
        bool near;
    } rows[] = {
        {OwnShipState::current, 5500, 499, "00", 0, true},
        {OwnShipState::current, 6049, 500, "+05", 1, true},
        {OwnShipState::current, 6700, -499, "+12", 0, true},
        {OwnShipState::current, 6701, -500, "+12", -1, false},
        {OwnShipState::current, 4950, 3000, "-06", 1, true},
        {OwnShipState::old, 20000, 0, "+145", 0, false},
        {OwnShipState::unknown, 6500, 0, "065", 0, false},
    };
    for (const auto& row : rows) {
        Scene scene;
        scene.own = {36.0, 0.0};
        scene.altitudeFt = 5500.0;
        scene.ownState = row.own;
        TargetMessage message = target(1, 36.09);
        message.altitudeFt = row.altitudeFt;
        message.verticalFpm = row.verticalFpm;
        EXPECT_EQ(altitudeText(message, scene, AltitudeUnit::feet), row.text);
        EXPECT_EQ(verticalTrend(message), row.trend) << row.text;
        EXPECT_EQ(isNear(message, scene), row.near) << row.text;
        message.lat = 36.11;
        EXPECT_FALSE(isNear(message, scene)) << "6.6 NM away";
        if (row.trend > 0 && row.altitudeFt > 5500) {
            EXPECT_EQ(altitudeText(message, scene, AltitudeUnit::metres), "+17");
        }
    }
}

TEST(LiveNotes, sayWhatIsOld) {
    Live live;
    live.source = "udp://:1";
    live.oldS = 3.0;
    const auto words = [&] {
        std::string all;
        for (const LiveNote& note : notesOf(live)) {
            all += note.text + "|";
        }
        return all;
    };
    EXPECT_EQ(words(), "udp://:1|NOT CONNECTED|");
    live.connected = true;
    EXPECT_EQ(words(), "udp://:1|NO DATA YET|");
    live.ageS = 1.0;
    EXPECT_EQ(words(), "udp://:1|LIVE   0 TARGETS|NO OWN SHIP|");
    live.ownAgeS = 7.0;
    EXPECT_EQ(words(), "udp://:1|LIVE   0 TARGETS|OWN SHIP OLD   7 S|");
    live.ageS = 4.0;
    live.ignored = 2;
    EXPECT_EQ(words(), "udp://:1|DATA OLD   4 S|2 BAD MESSAGES|");
    live.connected = false;
    live.ageS = 125.0;
    EXPECT_EQ(words(), "udp://:1|NOT CONNECTED   02:05|2 BAD MESSAGES|");
}

TEST(RoutePath, knowsWhereOnItAPositionIs) {
    const RoutePath path = flyRoute({{"A", {36.0, -84.0}}, {"B", {36.0, -83.9}}}, 1000.0);
    const double half = path.lengthM() / 2.0;
    EXPECT_NEAR(alongAt(path, {36.001, -83.95}, 500.0).value(), half, 2.0);
    EXPECT_EQ(alongAt(path, {36.001, -84.001}, 500.0), 0.0);
    EXPECT_EQ(alongAt(path, {36.01, -83.95}, 500.0), std::nullopt);
    EXPECT_EQ(alongAt(path, {-36.0, 96.0}, 500.0), std::nullopt);
}

TEST(Fetch, takesTwoValuesOutOfTheArguments) {
    std::vector<std::string> texts{"map", "--fetch", "u", "f", "--out", "o", "--fetch", "--x", "y"};
    std::vector<char*> arguments;
    for (std::string& text : texts) {
        arguments.push_back(text.data());
    }
    const std::vector<Fetch> fetches = takeFetches(arguments);
    ASSERT_EQ(fetches.size(), 2U);
    EXPECT_EQ(fetches[0].url + fetches[0].file + fetches[1].url + fetches[1].file, "uf--xy");
    EXPECT_EQ(arguments.size(), 3U);
    arguments = {texts[0].data(), texts[1].data(), texts[2].data()};
    EXPECT_THROW(takeFetches(arguments), std::runtime_error);
}

}  // namespace
