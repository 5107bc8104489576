// The moving map's logic that needs no GL: route files, flown paths, the view, labels, figures.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "AirspaceFile.h"
#include "AirspaceLayer.h"
#include "Cover.h"
#include "Format.h"
#include "Graticule.h"
#include "Headless.h"
#include "HeightColours.h"
#include "LabelPlacer.h"
#include "MapImage.h"
#include "MapView.h"
#include "RouteFile.h"
#include "RouteLayer.h"
#include "RoutePath.h"
#include "ScaleBar.h"
#include "Units.h"
#include "Voids.h"

namespace {

using namespace MovingMap;

Route parse(const std::string& text) {
    std::istringstream stream(text);
    return parseRoute(stream, "r.txt");
}

TEST(RouteFile, readsWaypointsAndSkipsTheRest) {
    const Route route =
        parse("# a comment\n\n  A B ,1.5,-2.25,flyby # more\r\nC,3,4,flyover,0.5\n");
    ASSERT_EQ(route.size(), 2U);
    EXPECT_EQ(route[0].name, "A B");
    EXPECT_EQ(std::pair(route[0].position.lat, route[0].position.lon), std::pair(1.5, -2.25));
    EXPECT_EQ(std::pair(route[0].flyOver, route[0].turnRadiusM), std::pair(false, 0.0));
    EXPECT_EQ(std::pair(route[1].flyOver, route[1].turnRadiusM), std::pair(true, 926.0));
}

TEST(RouteFile, namesTheLineOfAnError) {
    const std::pair<std::string, const char*> cases[] = {
        {"A,1,2x,flyby", "longitude '2x'"},
        {"A,1,2", "expected name"},
        {",1,2,flyby", "a name has"},
        {"A name of more than twenty-four letters,1,2,flyby", "a name has"},
        {"A,north,2,flyby", "latitude 'north'"},
        {"A,91,2,flyby", "latitude '91'"},
        {"A,nan,2,flyby", "latitude 'nan'"},
        {"A,1,180.5,flyby", "longitude '180.5'"},
        {"A,1,2,flyunder", "'flyunder' is neither"},
        {"A,1,2,flyby,-1", "turn radius '-1'"},
    };
    for (const auto& [line, says] : cases) {
        try {
            parse("# first\nOK,1,2,flyby\n" + line + "\n");
            ADD_FAILURE() << line;
        } catch (const std::runtime_error& error) {
            const std::string message = error.what();
            EXPECT_EQ(message.rfind("r.txt:3: ", 0), 0U) << message;
            EXPECT_NE(message.find(says), std::string::npos) << message;
        }
    }
    EXPECT_THROW(parse("A,1,2,flyby\n"), std::runtime_error);
    EXPECT_THROW(readRouteFile("/nowhere/r.txt"), std::runtime_error);
    EXPECT_THROW(readRouteFile("/dev/zero"), std::runtime_error);
}

TEST(RouteFile, routesOfTheProjectAreGood) {
    EXPECT_EQ(defaultRoute().size(), 6U);
    EXPECT_EQ(readRouteFile(ORLEK_SOURCE_DIR "/examples/flight/routes/riviera.txt").size(), 6U);
}

std::vector<Airspace> airspace(const std::string& text) {
    std::istringstream stream(text);
    return parseAirspace(stream, "a.txt");
}

TEST(AirspaceFile, readsOutlinesOfPointsAndCircles) {
    const std::vector<Airspace> read = airspace(
        "airspace, ONE, d, GND, 3700 # class\npoint, 1, 2\npoint,1,3\npoint,2,2.5\n"
        "circle, 36, -84, 2\npoint,1,2\npoint,1,3\npoint,2,2\n\n"
        "airspace,TWO,Restricted,FL65,FL95\ncircle,1,2,0.5\n");
    ASSERT_EQ(read.size(), 2U);
    EXPECT_EQ(read[0].type + read[0].floor + read[0].ceiling, "DGND3700");
    EXPECT_EQ(read[0].kind, AirspaceKind::controlled);
    EXPECT_EQ(read[1].kind, AirspaceKind::prohibited);
    ASSERT_EQ(read[0].outlines.size(), 3U);
    EXPECT_EQ(read[0].outlines[0].size(), 3U);
    EXPECT_EQ(read[0].outlines[2].size(), 3U);
    for (const Position& corner : read[0].outlines[1]) {
        EXPECT_NEAR(Orlek::Geodetic::calcDistance(36.0, -84.0, corner.lat, corner.lon),
                    2.0 * metresPerMile, 10.0)
            << "a flat grid beside a sphere";
    }
    EXPECT_EQ(defaultAirspace().size(), 3U);
}

TEST(AirspaceFile, namesTheLineOfAnError) {
    const struct {
        std::string text;
        const char* says;
    } cases[] = {
        {"point,1,2", "a.txt:1: expected airspace, name"},
        {"airspace,A,D,GND", "a.txt:1: expected airspace, name"},
        {"airspace,A,H,GND,FL95", "'H' is no class A to G"},
        {"airspace,,D,GND,FL95", "a name has"},
        {"airspace,A,D,GND,", "a ceiling has"},
        {"airspace,A,D,GND,FL95\npoint,1", "a.txt:2: expected point"},
        {"airspace,A,D,GND,FL95\npoint,1,x", "a.txt:2: longitude 'x'"},
        {"airspace,A,D,GND,FL95\ncircle,1,2,0", "a.txt:2: radius '0'"},
        {"airspace,A,D,GND,FL95\narc,1,2,3", "a.txt:2: 'arc' is none of"},
        {"# one\nairspace,A,D,GND,FL95\npoint,1,2\npoint,1,3\n"
         "airspace,B,D,GND,FL95\ncircle,1,2,3",
         "a.txt:2: A needs a circle"},
        {"airspace,A,D,GND,FL95", "a.txt:1: A needs a circle"},
    };
    for (const auto& [text, says] : cases) {
        try {
            airspace(text);
            ADD_FAILURE() << text;
        } catch (const std::runtime_error& error) {
            EXPECT_NE(std::string(error.what()).find(says), std::string::npos) << error.what();
        }
    }
    EXPECT_TRUE(airspace("# nothing\n").empty());
    EXPECT_THROW(readAirspaceFile("/dev/zero"), std::runtime_error);
}

TEST(AirspaceLayer, leavesOutWhatIsNotInThePicture) {
    const std::vector<Airspace> read = airspace(
        "airspace,IN,D,GND,FL95\npoint,-1,-1\npoint,1,-1\npoint,0,0\npoint,1,1\npoint,-1,1\n"
        "circle,20,20,1\nairspace,OUT,D,GND,FL95\ncircle,20,20,1\n");
    const MapView view({0.0, 0.0}, 1000.0, 0.0, Point(200.0, 200.0), Point(400.0, 400.0));
    const auto shapes = projectAirspace(read, view, Box{Point(0.0, 0.0), Point(400.0, 400.0)});
    ASSERT_EQ(shapes.size(), 1U);
    ASSERT_EQ(shapes[0].outlines.size(), 1U);
    const Polyline& outline = shapes[0].outlines[0];
    EXPECT_TRUE(isInside(outline, Point(200.0, 150.0)));
    EXPECT_FALSE(isInside(outline, Point(200.0, 250.0))) << "the notch";
    EXPECT_TRUE(isInside(outline, Point(280.0, 250.0)));
    EXPECT_FALSE(isInside(outline, Point(320.0, 200.0)));
}

TEST(MapImage, parsesBounds) {
    const Bounds bounds = parseBounds("1, -2.5 ,3,4");
    EXPECT_EQ(bounds.south + bounds.north, 4.0);
    EXPECT_EQ(bounds.west, -2.5);
    EXPECT_EQ(bounds.east, 4.0);
    for (const char* text : {"", "1,2,3", "1,2,3,4,5", "3,2,1,4", "1,2,3,2", "1,2,x,4"}) {
        EXPECT_THROW(parseBounds(text), std::runtime_error) << text;
    }
}

// Two by two pixels: red, green above; blue, transparent below.
OrlekSupport::Image fourPixels() {
    OrlekSupport::Image image(2, 2);
    image.rgba = {255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 9, 9, 9, 0};
    return image;
}

TEST(MapImage, isSampledBetweenItsPixels) {
    const MapImage map(fourPixels(), {0.0, 0.0, 2.0, 2.0});
    using Rgba4 = std::array<double, 4>;
    EXPECT_EQ(map.at({1.5, 0.5}), (Rgba4{255, 0, 0, 255}));
    EXPECT_EQ(map.at({1.9, 1.9}), (Rgba4{0, 255, 0, 255}));
    EXPECT_EQ(map.at({1.5, 1.0}), (Rgba4{127.5, 127.5, 0, 255}));
    EXPECT_EQ(map.at({1.0, 0.5}), (Rgba4{127.5, 0, 127.5, 255}));
    EXPECT_EQ(map.at({2.1, 1.0}), Rgba4{});
    EXPECT_EQ(map.at({1.0, -0.1}), Rgba4{});
}

TEST(MapImage, repeatsTheHeightColoursWhereItIsTransparent) {
    const MapImage map(fourPixels(), {-1.0, -1.0, 1.0, 1.0});
    const MapView view({0.0, 0.0}, 60.0 * metresPerMile, 0.0, Point(2.0, 2.0), Point(4.0, 4.0));
    ReliefImage relief;
    relief.width = relief.height = 4;
    relief.normals.assign(64, heightCode(300.0));
    relief.cover.assign(64, 0);
    const auto water = waterCover(1.0);
    std::copy(water.begin(), water.end(), relief.cover.begin() + 4 * 9);
    layMap(map, 0.5, view, 1, relief);
    const auto texel = [&](const std::vector<std::uint8_t>& bytes, std::size_t i) {
        return std::array<int, 3>{bytes[4 * i], bytes[4 * i + 1], bytes[4 * i + 2]};
    };
    const Rgb height = heightColour(300.0);
    for (const std::size_t outside : {0U, 3U, 6U}) {  // The last lies on the transparent pixel.
        EXPECT_NEAR(texel(relief.map, outside)[0], 255.0 * height.red, 2.0) << outside;
    }
    EXPECT_NEAR(texel(relief.map, 5)[2], 255, 2);
    EXPECT_NEAR(texel(relief.map, 5)[0], 0, 2);
    EXPECT_NEAR(texel(relief.map, 9)[0], 255, 2);
    EXPECT_NEAR(texel(relief.cover, 9)[0], (water[0] + 255) / 2, 2) << "half of it";
}

constexpr double metresPerDegree = 111319.49079327358;

double separationM(const Position& a, const Position& b) {
    return std::hypot((b.lat - a.lat) * metresPerDegree,
                      (b.lon - a.lon) * metresPerDegree * std::cos(a.lat * 0.017453292519943295));
}

double closestM(const RoutePath& path, const Position& position) {
    double closest = 1e9;
    for (const PathPoint& point : path.points) {
        closest = std::min(closest, separationM(point.position, position));
    }
    return closest;
}

// A turn of 90 degrees of radius r passes a fly-by point at r (sqrt 2 - 1).
TEST(RoutePath, fliesByAndOver) {
    const Route route = parse("A,0,0,flyby\nB,0.2,0,flyby,1\nC,0.2,0.2,flyover,1\nD,0,0.2,flyby\n");
    const RoutePath path = flyRoute(route, 1000.0);
    EXPECT_EQ(separationM(path.points.front().position, route[0].position), 0.0);
    EXPECT_EQ(separationM(path.points.back().position, route[3].position), 0.0);
    EXPECT_NEAR(closestM(path, route[1].position), 1852.0 * (std::sqrt(2.0) - 1.0), 1.0);
    EXPECT_NEAR(closestM(path, route[2].position), 0.0, 1e-6);
    for (std::size_t i = 1; i < path.points.size(); ++i) {
        EXPECT_GT(path.points[i].distanceM, path.points[i - 1].distanceM) << i;
    }
}

// Turns that are too wide for a short leg share it: the path never turns back on itself.
TEST(RoutePath, turnsOnAShortLegDoNotOverlap) {
    const RoutePath path = flyRoute(
        parse("A,0,0,flyby\nB,0.2,0,flyby,3\nC,0.2,0.02,flyby,3\nD,0.4,0.02,flyby\n"), 1000.0);
    double before = stateAt(path, 0.0).headingDeg;
    for (double at = 10.0; at < path.lengthM(); at += 10.0) {
        const double heading = stateAt(path, at).headingDeg;
        EXPECT_LT(std::abs(std::remainder(heading - before, 360.0)), 30.0) << at;
        before = heading;
    }
}

TEST(RoutePath, tellsPositionHeadingAndNextWaypoint) {
    const Route route = parse("A,0,0,flyby\nB,0.1,0,flyover,0.1\nC,0.1,0.1,flyby\n");
    const RoutePath path = flyRoute(route, 1000.0);
    const PathState start = stateAt(path, -5.0);
    EXPECT_EQ(start.position.lat, 0.0);
    EXPECT_EQ(start.nextWaypoint, 1U);
    EXPECT_NEAR(start.headingDeg, 0.0, 1e-9);
    EXPECT_NEAR(stateAt(path, 0.05 * metresPerDegree).position.lat, 0.05, 1e-9);
    EXPECT_EQ(stateAt(path, path.passedAtM[1] + 1.0).nextWaypoint, 2U);
    const PathState end = stateAt(path, 1e9);
    EXPECT_EQ(end.position.lon, 0.1);
    EXPECT_EQ(end.nextWaypoint, 2U);
}

TEST(MapView, putsTheUpDirectionUp) {
    const Position centre{43.7, 7.2};
    const MapView view(centre, 50.0, 90.0, Point(400.0, 300.0), Point(800.0, 600.0));
    const Point east = view.toScreen({43.7, 7.3});
    EXPECT_NEAR(east.x, 400.0, 1e-9);
    EXPECT_GT(east.y, 300.0);
    const Point north = view.toScreen({43.8, 7.2});
    EXPECT_NEAR(north.x, 400.0 - 0.1 * metresPerDegree / 50.0, 1e-6);
    const Position back = view.toPosition(view.toScreen({43.6123, 7.0456}));
    EXPECT_NEAR(back.lat, 43.6123, 1e-12);
    EXPECT_NEAR(back.lon, 7.0456, 1e-12);
}

TEST(RouteLine, isSplitAtTheAircraft) {
    const RoutePath path = flyRoute(parse("A,0,0,flyby\nB,0,0.1,flyby\n"), 1000.0);
    const MapView view({0.0, 0.0}, 100.0, 0.0, Point(0.0, 0.0), Point(200.0, 200.0));
    const RouteLine line = projectRoute(path, view, 5000.0);
    ASSERT_EQ(line.flown.size(), 2U);
    ASSERT_EQ(line.ahead.size(), 2U);
    EXPECT_NEAR(line.flown.back().x, 50.0, 1e-9);
    EXPECT_NEAR(line.ahead.front().x, 50.0, 1e-9);
    EXPECT_LT(projectRoute(path, view, -1.0).flown.size(), 2U);
}

TEST(LabelPlacer, touchesIsExact) {
    const Box box{Point(0.0, 0.0), Point(10.0, 10.0)};
    EXPECT_TRUE(touches(box, Point(-5.0, 5.0), Point(15.0, 5.0)));
    EXPECT_TRUE(touches(box, Point(2.0, 2.0), Point(3.0, 3.0)));
    EXPECT_FALSE(touches(box, Point(-5.0, 8.0), Point(3.0, 16.0)));
    EXPECT_FALSE(touches(box, Point(11.0, -5.0), Point(11.0, 15.0)));
}

// Ten waypoints along a crooked line: no name lies on the line, on another name, or outside.
TEST(LabelPlacer, keepsLabelsFreeOfLinesAndEachOther) {
    const Box area{Point(0.0, 0.0), Point(1000.0, 600.0)};
    std::vector<Point> line;
    for (int i = 0; i < 10; ++i) {
        line.emplace_back(60.0 + 95.0 * i, i % 2 == 0 ? 250.0 : 350.0);
    }
    LabelPlacer placer(area);
    placer.avoid(line);
    std::vector<Box> labels;
    for (const Point& point : line) {
        labels.push_back(placer.place(point, Point(90.0, 11.0), 1.0));
    }
    for (std::size_t i = 0; i < labels.size(); ++i) {
        EXPECT_TRUE(area.contains(labels[i])) << i;
        for (std::size_t k = 1; k < line.size(); ++k) {
            EXPECT_FALSE(touches(labels[i], line[k - 1], line[k])) << i << " line " << k;
        }
        for (std::size_t k = 0; k < i; ++k) {
            EXPECT_FALSE(labels[i].overlaps(labels[k])) << i << " and " << k;
        }
    }
}

TEST(Format, roundsBeforeItSplits) {
    const std::pair<std::string, std::string> cases[] = {
        {latitudeText(36.9999995), "N37\26000.00'"},
        {longitudeText(-84.24567), "W084\26014.74'"},
        {latitudeLabel(-36.5), "36\26030'S"},
        {longitudeLabel(7.25), "007\26015'E"},
        {direction(359.7), "360\260"},
        {direction(0.2), "360\260"},
        {direction(-10.0), "350\260"},
        {distanceText(1852.0 * 99.96, DistanceUnit::nauticalMiles), "100 NM"},
        {distanceText(1852.0 * 3.44, DistanceUnit::nauticalMiles), "3.4 NM"},
        {lengthText(2500.0, DistanceUnit::kilometres), "2.5 KM"},
        {speedText(110.0, DistanceUnit::kilometres), "204 KM/H"},
        {heightText(-30.48, AltitudeUnit::feet), "-100 FT"},
        {heightText(1676.4, AltitudeUnit::metres), "1676 M"},
        {limitText("4500", AltitudeUnit::metres), "1372"},
        {limitText("4500", AltitudeUnit::feet) + limitText("FL95", AltitudeUnit::metres),
         "4500FL95"},
        {duration(59.6), "01:00"},
        {duration(3661.0), "1:01:01"},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(text, expected);
    }
}

TEST(Scale, takesRoundLengths) {
    EXPECT_EQ(roundLength(9.9), 5.0);
    EXPECT_EQ(roundLength(0.19), 0.1);
    EXPECT_EQ(graticuleMinutes(1.2), 2.0);
    EXPECT_EQ(graticuleMinutes(1e6), 600.0);
}

// A square of sea level in land of one height, all of it flat.
ReliefImage landWithWater(double landM) {
    ReliefImage image;
    image.width = image.height = 20;
    for (int i = 0; i < 400; ++i) {
        const bool water = i % 20 >= 5 && i % 20 < 12 && i / 20 >= 5 && i / 20 < 12;
        image.normals.insert(image.normals.end(),
                             {32767, 32767, 65535, heightCode(water ? 0.0 : landM)});
        const Rgba cover = waterCover(water ? 1.0 : 0.0);
        image.cover.insert(image.cover.end(), cover.begin(), cover.end());
    }
    return image;
}

TEST(Voids, areHatchedAndLakesAreNot) {
    const std::size_t middle = (8 * 20 + 8) * 4;
    ReliefImage hole = landWithWater(2000.0);
    const auto land = hole.cover[0];
    hatchVoids(hole, 90.0, 1);
    EXPECT_FALSE(isWater(&hole.cover[middle]));
    EXPECT_EQ(hole.cover[middle + 3], 255);
    EXPECT_EQ(hole.cover[0], land);
    EXPECT_FALSE(hole.complete);
    ReliefImage lake = landWithWater(40.0);
    hatchVoids(lake, 90.0, 1);
    EXPECT_TRUE(isWater(&lake.cover[middle]));
    EXPECT_TRUE(lake.complete);
}

TEST(Headless, numbersItsPictures) {
    EXPECT_EQ(numberedPath("out/map.png", 7, 120), "out/map-007.png");
    EXPECT_EQ(numberedPath("a.b/map", 3, 3), "a.b/map-3");
}

}  // namespace
