// The moving map without GL: what files and addresses it refuses, the flown path, airspace cut to
// the picture, labels, figures and holes in the terrain.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <sstream>

#include "AirspaceFile.h"
#include "AirspaceLayer.h"
#include "Cover.h"
#include "FeedUrl.h"
#include "Format.h"
#include "Graticule.h"
#include "Headless.h"
#include "HeightColours.h"
#include "LabelPlacer.h"
#include "MapImage.h"
#include "PolygonCut.h"
#include "RouteFile.h"
#include "RouteLayer.h"
#include "ScaleBar.h"
#include "Terrain.h"
#include "TrafficState.h"
#include "Units.h"
#include "Voids.h"
#include "support/Capture.h"
#include "terrain/ScannedMap.h"
#include "terrain/TileFiles.h"

namespace {

using namespace MovingMap;

Route route(const std::string& text) {
    std::istringstream stream(text);
    return parseRoute(stream, "r.txt");
}

std::vector<Airspace> airspace(const std::string& text) {
    std::istringstream stream(text);
    return parseAirspace(stream, "a.txt");
}

TEST(MovingMapText, IsRefusedWithItsLine) {
    const auto inRoute = [](const std::string& text) { route("# 1\nOK,1,2,flyby\n" + text); };
    const auto inAirspace = [](const std::string& text) { airspace(text); };
    const std::string begun = "airspace,A,D,GND,FL95\n";
    const struct {
        std::function<void(const std::string&)> read;
        std::string text;
        std::string says;
    } rows[] = {
        {inRoute, "A,1,2x,flyby", "r.txt:3: longitude '2x'"},
        {inRoute, "A,1,2", "r.txt:3: expected name"},
        {inRoute, ",1,2,flyby", "r.txt:3: a name has"},
        {inRoute, "A name of more than twenty-four letters,1,2,flyby", "r.txt:3: a name has"},
        {inRoute, "A,86,2,flyby", "r.txt:3: latitude '86'"},
        {inRoute, "A,nan,2,flyby", "r.txt:3: latitude 'nan'"},
        {inRoute, "A,1,2,flyunder", "r.txt:3: 'flyunder' is neither"},
        {inRoute, "\xD0\x96,1,2,flyby", "r.txt:3: '\xD0\x96' has letters other"},
        {inRoute, "Z\xFCrich,1,2,flyby", "r.txt:3: 'Z\xFCrich' has letters other"},
        {inRoute, "A\x1B[2J,1,2,flyby", "r.txt:3: 'A?[2J' has control"},
        {inRoute, "A\xC2\x9B,1,2,flyby", "r.txt:3: 'A?\x9B' has control"},
        {inRoute, "A,1,2,flyby,-1", "r.txt:3: turn radius '-1'"},
        {inRoute, "", "r.txt: a route needs at least two"},
        {readRouteFile, "/dev/zero", "no route file"},
        {inAirspace, "point,1,2", "a.txt:1: expected airspace, name"},
        {inAirspace, "airspace,A,D,GND", "a.txt:1: expected airspace, name"},
        {inAirspace, "airspace,A,H,GND,FL95", "a.txt:1: 'H' is no class A to G"},
        {inAirspace, begun + "point,1", "a.txt:2: expected point"},
        {inAirspace, begun + "circle,1,2,0", "a.txt:2: radius '0'"},
        {inAirspace, begun + "arc,1,2,3", "a.txt:2: 'arc' is none of"},
        {inAirspace, "# 1\n" + begun + "point,1,2\npoint,1,3\n" + begun + "circle,1,2,3",
         "a.txt:2: an airspace needs a circle"},
        {parseBounds, "1,2,3,4,5", "expected south,west,north,east"},
        {parseBounds, "3,2,1,4", "south and west are below"},
        {parseBounds, "1,2,x,4", "latitude 'x'"},
    };
    for (const auto& [read, text, says] : rows) {
        try {
            read(text);
            ADD_FAILURE() << text;
        } catch (const std::runtime_error& error) {
            EXPECT_EQ(std::string(error.what()).find(says), 0U) << error.what();
        }
    }
    for (const std::string bad :
         {"", "tcp:", "tcp://host", "tcp://:1", "tcp://host:0", "tcp://host:65536", "tcp://host:1x",
          "tcp://a b:1", "tcp://a:1:2", "udp://host:1", "udp://:", "udp://:-1", "http://host:1"}) {
        EXPECT_THROW(parseFeedUrl(bad), std::runtime_error) << bad;
    }
}

// A turn of 90 degrees of radius r passes a fly-by point at r (sqrt 2 - 1).
TEST(MovingMapRoute, FliesByAndOverAndKnowsWhereItIs) {
    const RoutePath path =
        flyRoute(route("# a comment\nA,0,0,flyby\n\n B ,0.2,0,flyby,1 # more\nC,0.2,0.2,flyover,1\n"
                       "D,0,0.2,flyby"),
                 1000.0);
    const double apart = 1852.0 * (std::sqrt(2.0) - 1.0);
    EXPECT_TRUE(alongAt(path, {0.2, 0.0}, 0.0, apart + 1.0));
    EXPECT_FALSE(alongAt(path, {0.2, 0.0}, 0.0, apart - 1.0));
    EXPECT_TRUE(alongAt(path, {0.2, 0.2}, 0.0, 1e-6));
    EXPECT_NEAR(alongAt(path, {0.1, 0.001}, 180.0, 500.0).value(), 11131.95, 1.0);
    EXPECT_EQ(alongAt(path, {-0.001, 0.001}, 0.0, 500.0), 0.0);
    const RoutePath back = flyRoute(route("A,0,0,flyby\nB,0.2,0,flyby\nC,0,0,flyby"), 1000.0);
    EXPECT_NEAR(alongAt(back, {0.05, 0.0}, 10.0, 500.0).value(), 5566.0, 1.0);
    EXPECT_NEAR(alongAt(back, {0.05, 0.0}, 170.0, 500.0).value(), back.lengthM() - 5566.0, 1.0);
    for (const auto& [along, lat, next] :
         {std::tuple{-5.0, 0.0, 1U}, {11131.949, 0.1, 1U}, {path.passedAtM[2] + 1.0, 0.2, 3U}}) {
        EXPECT_NEAR(stateAt(path, along).position.lat, lat, 1e-5);
        EXPECT_EQ(stateAt(path, along).nextWaypoint, next);
    }
    const MapView view({0.0, 0.0}, 100.0, 90.0, Point(0.0, 0.0), Point(200.0, 200.0));
    const RouteLine line = projectRoute(path, view, 5000.0);
    EXPECT_NEAR(line.flown.back().x, -50.0, 1e-6) << "east is up";
    EXPECT_NEAR(line.ahead.front().x, -50.0, 1e-6);
}

TEST(MovingMapRoute, KnowsNamesInLatin1AndHasAnEnd) {
    EXPECT_EQ(route("Z\xC3\xBCrich,1,2,flyby\nB,1,3,flyby")[0].name, "Z\xFCrich");
    std::string longest;
    for (int i = 0; i < 1000; ++i) {
        longest += "A,1,2,flyby\n";
    }
    EXPECT_EQ(route(longest).size(), 1000U);
    EXPECT_THROW(route(longest + "A,1,2,flyby"), std::runtime_error);
}

TEST(MovingMapRoute, CrossesTheAntimeridianTheShortWay) {
    const RoutePath path = flyRoute(route("A,60,179.5,flyby\nB,60,-179.5,flyby"), 1000.0);
    EXPECT_NEAR(path.lengthM(), 111319.5 / 2.0, 1.0);
    const PathState state = stateAt(path, path.lengthM() * 0.75);
    EXPECT_NEAR(state.position.lon, -179.75, 1e-9);
    EXPECT_NEAR(state.headingDeg, 90.0, 1e-9);
    EXPECT_NEAR(alongAt(path, {60.0, -179.9}, 90.0, 1.0).value(), 0.6 * path.lengthM(), 1.0);
    EXPECT_FALSE(alongAt(path, {60.0, 0.0}, 90.0, 1000.0));
    const Point middle(100.0, 100.0);
    const MapView near({60.0, 179.75}, 1000.0, 0.0, middle, middle);
    EXPECT_NEAR(near.toScreen({60.0, -179.75}).x, 100.0 + 111.3195 / 4.0, 0.01);
    const RouteLine beyond =
        projectRoute(path, MapView({60.0, 0.0}, 1000.0, 0.0, middle, middle), path.lengthM() / 4.0);
    EXPECT_NEAR(beyond.ahead.back().x - beyond.flown.front().x, 111.3195 / 2.0, 0.01)
        << "in one piece on the other side of the globe, too";
}

// Turns that are too wide for a short leg share it: the path never turns back on itself.
TEST(MovingMapRoute, TurnsOnAShortLegDoNotOverlap) {
    const RoutePath path = flyRoute(
        route("A,0,0,flyby\nB,0.2,0,flyby,3\nC,0.2,0.02,flyby,3\nD,0.4,0.02,flyby\n"), 1000.0);
    double before = stateAt(path, 0.0).headingDeg;
    for (double at = 10.0; at < path.lengthM(); at += 10.0) {
        const double heading = stateAt(path, at).headingDeg;
        EXPECT_LT(std::abs(std::remainder(heading - before, 360.0)), 30.0) << at;
        before = heading;
    }
}

double areaOf(const std::vector<Polyline>& outlines) {
    double sum = 0.0;
    for (const Polyline& outline : outlines) {
        double twice = 0.0;
        for (std::size_t i = 0, j = outline.size() - 1; i < outline.size(); j = i++) {
            twice += outline[j].x * outline[i].y - outline[j].y * outline[i].x;
        }
        sum += std::abs(twice) / 2.0;
    }
    return sum;
}

Polyline square(double low, double high) {
    return rectangle({Point(low, low), Point(high, high)});
}

TEST(MovingMapAirspace, IsCutWithoutLossWhereOutlinesTouch) {
    const Polyline notched = {{0, 0},    {0, 100},   {45, 100}, {50, 50},
                              {55, 100}, {100, 100}, {100, 0}};
    const struct {
        const char* what;
        Polyline one;
        Polyline other;
        double inside;
    } rows[] = {
        {"a plus",
         {{0, 40}, {99, 40}, {99, 60}, {0, 60}},
         {{40, 0}, {40, 99}, {60, 99}, {60, 0}},
         400},
        {"a hole", square(0, 100), square(40, 60), 400},
        {"a shared edge", square(0, 100), {{100, 0}, {200, 0}, {200, 100}, {100, 100}}, 0},
        {"the same", square(0, 100), square(0, 100), 10000},
        {"a notch between corners", square(40, 60), notched, 390},
    };
    for (const auto& [what, one, other, inside] : rows) {
        EXPECT_NEAR(areaOf(partsInside(one, other)), inside, 3.0) << what;
        EXPECT_NEAR(areaOf(partsOutside(one, other)), areaOf({one}) - inside, 3.0) << what;
    }
    const Polyline bow = {{0, 0}, {100, 100}, {100, 0}, {0, 100}};
    EXPECT_EQ(partsInside(bow, square(-50, 150)).size(), 1U) << "what cannot be cut stays whole";
}

// Around a picture of 400 x 400 pixels, 1 kilometre each: none inside, one around it, two across.
TEST(MovingMapAirspace, IsCutAtTheEdgeAndInItsOrder) {
    const std::vector<Airspace> read = airspace(
        "airspace,T,training,GND,1 # class\npoint, -9,-9\npoint,-9,9\npoint,9,9\npoint,9,-9\n\n"
        "airspace,C,d,GND,1\npoint,-0.5,-9\npoint,-0.5,9\npoint,0.5,9\npoint,0.5,-9\n"
        "circle,36,-84,2\npoint,19,1\npoint,19,2\npoint,20,2\n"
        "airspace,P,Prohibited,GND,1\npoint,-9,-0.5\npoint,9,-0.5\npoint,9,0.5\npoint,-9,0.5\n"
        "airspace,OUT,D,GND,1\ncircle,5,5,9\n");
    ASSERT_EQ(read[1].outlines.size(), 3U);
    for (const Position& corner : read[1].outlines[1]) {
        EXPECT_NEAR(Orlek::Geodetic::calcDistance(36.0, -84.0, corner.lat, corner.lon), 3704.0,
                    10.0);
    }
    const MapView view({0.0, 0.0}, 1000.0, 0.0, Point(200.0, 200.0), Point(400.0, 400.0));
    std::string names;
    std::vector<double> fills;
    for (const auto& shape : projectAirspace(read, view, Box{Point(0, 0), Point(400, 400)})) {
        names += shape.airspace->name;
        fills.push_back(areaOf(shape.fills));
        for (const Polyline& outline : shape.outlines) {
            EXPECT_TRUE(Box({Point(-0.1, -0.1), Point(400.1, 400.1)}).contains(boxAround(outline)));
        }
    }
    ASSERT_EQ(names, "PCT");
    const double degree = 111.32;
    EXPECT_NEAR(fills[0], 400.0 * degree, 10.0);
    EXPECT_NEAR(fills[1], (400.0 - degree) * degree, 10.0) << "what the first has left";
    EXPECT_NEAR(fills[2], (400.0 - degree) * (400.0 - degree), 10.0);
}

// Ten waypoints along a crooked line: no name lies on the line, on another name, or outside.
TEST(MovingMapLabels, KeepClearOfLinesAndEachOther) {
    const Box area{Point(0.0, 0.0), Point(1000.0, 600.0)};
    std::vector<Point> line;
    for (int i = 0; i < 10; ++i) {
        line.emplace_back(60.0 + 95.0 * i, i % 2 == 0 ? 290.0 : 310.0);
    }
    LabelPlacer placer(area);
    placer.avoid(line);
    std::vector<Box> labels;
    for (const Point& point : line) {
        const Box label = placer.place(point, Point(90.0, 11.0), 1.0);
        EXPECT_TRUE(area.contains(label));
        for (const Box& other : labels) {
            EXPECT_FALSE(label.overlaps(other)) << labels.size();
        }
        for (std::size_t k = 1; k < line.size(); ++k) {
            EXPECT_FALSE(touches(label, line[k - 1], line[k])) << labels.size() << " line " << k;
        }
        labels.push_back(label);
    }
    const Box box{Point(0.0, 0.0), Point(10.0, 10.0)};
    EXPECT_TRUE(touches(box, Point(-5.0, 5.0), Point(15.0, 5.0)));
    EXPECT_TRUE(touches(box, Point(2.0, 2.0), Point(3.0, 3.0)));
    EXPECT_FALSE(touches(box, Point(-5.0, 8.0), Point(3.0, 16.0)));
    EXPECT_FALSE(touches(box, Point(11.0, -5.0), Point(11.0, 15.0)));
}

TEST(MovingMapFigures, AreRoundedBeforeTheyAreSplit) {
    const std::pair<std::string, std::string> cases[] = {
        {latitudeText(36.9999995), "N37\26000.00'"},
        {longitudeText(-84.24567), "W084\26014.74'"},
        {latitudeLabel(-36.5), "36\26030'S"},
        {longitudeLabel(7.25), "007\26015'E"},
        {direction(0.2), "360\260"},
        {direction(-10.0), "350\260"},
        {distanceText(1852.0 * 99.96, DistanceUnit::nauticalMiles), "100 NM"},
        {lengthText(2500.0, DistanceUnit::kilometres), "2.5 KM"},
        {speedText(110.0, DistanceUnit::kilometres), "204 KM/H"},
        {heightText(-30.48, AltitudeUnit::feet), "-100 FT"},
        {limitText("4500", AltitudeUnit::metres), "1372"},
        {limitText("FL95", AltitudeUnit::metres), "FL95"},
        {duration(59.6), "01:00"},
        {duration(3661.0), "1:01:01"},
        {wholeNumber(roundLength(9.9) + roundLength(20.1)), "25"},
        {wholeNumber(graticuleMinutes(1.2)), "2"},
        {numberedPath("out/map.png", 7, 120), "out/map-007.png"},
        {numberedPath("a.b/map", 3, 3), "a.b/map-3"},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(text, expected);
    }
}

// A square of sea level in land of one height, all of it flat: a hole in mountains, else a lake.
TEST(MovingMapVoids, AreHatchedAndLakesAreNot) {
    for (const bool isHole : {true, false}) {
        ReliefImage image;
        image.width = image.height = 20;
        for (int i = 0; i < 400; ++i) {
            const bool water = i % 20 >= 5 && i % 20 < 12 && i / 20 >= 5 && i / 20 < 12;
            const auto height = heightCode(water ? 0.0 : isHole ? 2000.0 : 40.0);
            image.normals.insert(image.normals.end(), {32767, 32767, 65535, height});
            const Rgba cover = waterCover(water ? 1.0 : 0.0);
            image.cover.insert(image.cover.end(), cover.begin(), cover.end());
        }
        hatchVoids(image, 90.0, 1);
        const std::uint8_t* const middle = &image.cover[(8 * 20 + 8) * 4];
        EXPECT_EQ(isWater(middle), !isHole);
        EXPECT_EQ(middle[3], 255);
        EXPECT_EQ(image.cover[3], 0) << "land";
        EXPECT_EQ(image.complete, !isHole);
    }
}

TEST(MovingMapVoids, LeaveTheGroundUnknown) {
    const OrlekTest::TempDir dir;
    OrlekTest::DtedLabel label = OrlekTest::dtedLabelAt(46, 7);
    label.numLat = label.numLon = "1201";
    label.latInterval = label.lonInterval = "0030";
    dir.write("a.DT1", OrlekTest::dtedFile(label, [](int i, int j) {
                  const double hole = std::hypot(i - 600, j - 600);
                  const double shore = std::hypot(i - 200, j - 200) - 20.0;
                  return hole < 20.0 ? -32767 : std::clamp(static_cast<int>(shore * 20.0), 0, 1500);
              }));
    Orlek::Geodetic::HeightMap terrain;
    OrlekTest::captureStdout([&] { OrlekTest::scan(terrain, dir.path()); });
    EXPECT_FALSE(groundAt(terrain, {46.5, 7.5}).known);
    for (const auto& [place, height] :
         {std::pair(Position{46.7, 7.2}, 1500.0),
          {Position{46.0 + 200.0 / 1200.0, 7.0 + 200.0 / 1200.0}, 0.0}}) {
        const Ground ground = groundAt(terrain, place);
        EXPECT_TRUE(ground.known);
        EXPECT_EQ(ground.heightM, height);
    }
    EXPECT_FALSE(groundAt(terrain, {47.5, 7.5}).known) << "no tile";
}

TEST(MovingMapTraffic, KeepsTheNearestOfTooManyTargets) {
    TrafficState traffic(15.0);
    const auto hear = [&](std::uint32_t number, double lon) {
        traffic.take(TargetMessage{10.0, lon, 0, 0, 0, 0, number, "A"}, 1.0);
    };
    traffic.take(OwnShipMessage{10.0, 179.9, 0, 0, 0, 0}, 1.0);
    for (std::uint32_t number = 0; number < 200; ++number) {
        hear(number, 170.0 + number * 0.01);
    }
    EXPECT_FALSE(traffic.tooManyS());
    hear(1000, -179.9);
    hear(1001, 0.0);
    EXPECT_EQ(traffic.targets().size(), 200U);
    EXPECT_TRUE(traffic.targets().contains(1000));
    EXPECT_FALSE(traffic.targets().contains(0) || traffic.targets().contains(1001));
    EXPECT_EQ(traffic.tooManyS(), 1.0);
}

}  // namespace
