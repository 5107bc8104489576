// Turns, checked by their geometry: equal distance from a centre found in another way, tangents,
// and steps of one degree.
#include <Orlek/Geodetic/Grid.h>
#include <Orlek/Geodetic/Navigation.h>
#include <Orlek/Geodetic/Turns.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "math/Reference.h"

namespace {

using namespace Orlek::Geodetic;
using OrlekTest::eps;
using OrlekTest::Numbers;
using OrlekTest::Point;
using Path = std::vector<Point>;

double degreesOf(double radians) {
    return static_cast<double>(OrlekTest::degrees(radians));
}

double radiansOf(double degrees) {
    return static_cast<double>(OrlekTest::radians(degrees));
}

double headingDeg(Point from, Point to) {
    return degreesOf(std::atan2(to.x - from.x, to.y - from.y));
}

Point ahead(Point from, double courseDeg, double distance) {
    return {from.x + distance * std::sin(radiansOf(courseDeg)),
            from.y + distance * std::cos(radiansOf(courseDeg))};
}

double angleBetween(double fromDeg, double toDeg) {
    return std::remainder(toDeg - fromDeg, 360.0);
}

void expectWaypointOnly(const Path& path, Point waypoint) {
    ASSERT_EQ(path.size(), 1U);
    EXPECT_TRUE(path[0].x == waypoint.x && path[0].y == waypoint.y);
}

// All at the radius, each a degree after the one before in the direction of the turn.
void expectArc(const Path& path, std::size_t from, Point centre, double radius, double side) {
    for (std::size_t i = from; i < path.size(); ++i) {
        EXPECT_NEAR((path[i] - centre).Length(), radius, 1e-8);
        if (i > from) {
            EXPECT_NEAR(angleBetween(headingDeg(centre, path[i - 1]), headingDeg(centre, path[i])),
                        side, 1e-9);
        }
    }
}

TEST(FlyBy, WorkedExamples) {
    bool reduced = true;
    const Path path = calcFlyByPoints({0, -10000}, {0, 0}, {10000, 0}, 1000, 2, reduced);
    EXPECT_FALSE(reduced);
    ASSERT_EQ(path.size(), 89U);
    for (int i = 0; i < 89; ++i) {
        const Point expected = ahead({1000, -1000}, 271.0 + i, 1000.0);
        EXPECT_NEAR(path[static_cast<std::size_t>(i)].x, expected.x, 1e-9);
        EXPECT_NEAR(path[static_cast<std::size_t>(i)].y, expected.y, 1e-9);
    }
    const Path left = calcFlyByPoints({0, -10000}, {0, 0}, {-10000, 0}, 1000, 2, reduced);
    ASSERT_EQ(left.size(), 89U);
    EXPECT_NEAR(left[0].x, -path[0].x, 1e-9);
    EXPECT_NEAR(left[88].y, path[88].y, 1e-9);
    const Path wide = calcFlyByPoints({0, -10000}, {0, 0}, {10000, 0}, 20000, 2, reduced);
    EXPECT_TRUE(reduced);
    ASSERT_EQ(wide.size(), 89U);
    expectArc(wide, 0, {10000, -10000}, 10000, 1.0);
}

TEST(FlyBy, TouchesBothLegs) {
    Numbers number;
    int tested = 0;
    for (int i = 0; i < 1000; ++i) {
        const Point waypoint(number(-50000, 50000), number(-50000, 50000));
        const double course = number(-180, 180);
        const double turn = number(-170, 170);
        const double in = number(5000, 20000);
        const double out = number(5000, 20000);
        double radius = number(200, 4000);
        if (std::abs(turn) < 3.0)
            continue;
        ++tested;
        bool reduced = false;
        const Path path = calcFlyByPoints(ahead(waypoint, course + 180, in), waypoint,
                                          ahead(waypoint, course + turn, out), radius, 2, reduced);
        const double half = std::tan(radiansOf(std::abs(turn) / 2));
        EXPECT_EQ(reduced, radius * half > std::fmin(in, out));
        radius = std::fmin(radius, std::fmin(in, out) / half);
        // The centre lies on the line that halves the angle of the legs.
        const double side = turn > 0 ? 1.0 : -1.0;
        const double interior = radiansOf((180.0 - std::abs(turn)) / 2);
        const Point centre =
            ahead(waypoint, course + turn / 2 + side * 90.0, radius / std::sin(interior));
        expectArc(path, 0, centre, radius, side);
        const double start = course - side * 90.0;
        const double end = course + turn - side * 90.0;
        EXPECT_NEAR(angleBetween(start, headingDeg(centre, path.front())), side, 1e-7);
        const double left = side * angleBetween(headingDeg(centre, path.back()), end);
        EXPECT_GT(left, -1e-7);
        EXPECT_LT(left, 1.0 + 1e-7);
    }
    EXPECT_GT(tested, 900);
}

TEST(FlyBy, KeepsToADirectionAsked) {
    bool reduced = false;
    const Path right = calcFlyByPoints({0, -10000}, {0, 0}, {10000, 0}, 1000, 1, reduced);
    EXPECT_EQ(right.size(), 89U);
    const Path left = calcFlyByPoints({0, -10000}, {0, 0}, {10000, 0}, 1000, 0, reduced);
    expectArc(left, 0, {-1000, -1000}, 1000, -1.0);
    EXPECT_NEAR(headingDeg({-1000, -1000}, left[0]), 89.0, 1e-9);
}

TEST(FlyBy, GivesTheWaypointWhereThereIsNoArc) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::nan("");
    const struct {
        Point previous, next;
        double radius;
    } rows[] = {
        {{0, -10000}, {0, 10000}, 1000},  // straight on
        {{0, -10000}, {0, -5000}, 1000},  // straight back
        {{0, -0.9}, {10000, 0}, 1000},      {{0, -10000}, {0.9, 0}, 1000},
        {{0, -10000}, {0.5, -10000}, 1000}, {{0, -10000}, {10000, 0}, 0.0009},
        {{0, -10000}, {10000, 0}, -5},      {{0, -10000}, {10000, 0}, nan},
        {{nan, -10000}, {10000, 0}, 1000},  {{0, -10000}, {10000, nan}, 1000},
        {{0, -infinity}, {10000, 0}, 1000},
    };
    for (const auto& row : rows) {
        bool reduced = true;
        expectWaypointOnly(calcFlyByPoints(row.previous, {0, 0}, row.next, row.radius, 2, reduced),
                           {0, 0});
        EXPECT_FALSE(reduced);
    }
}

TEST(FlyOver, WorkedExamples) {
    bool reduced = true;
    const Path path = calcFlyOverPoints({0, -10000}, {0, 0}, {5000, 5000}, 1000, 2, reduced);
    EXPECT_FALSE(reduced);
    ASSERT_EQ(path.size(), 49U);
    EXPECT_TRUE(path[0].x == 0.0 && path[0].y == 0.0);
    for (int i = 1; i < 49; ++i) {
        const Point expected = ahead({1000, 0}, 270.0 + i, 1000.0);
        EXPECT_NEAR(path[static_cast<std::size_t>(i)].x, expected.x, 1e-9);
        EXPECT_NEAR(path[static_cast<std::size_t>(i)].y, expected.y, 1e-9);
    }
    EXPECT_NEAR(path[48].x, 330.87, 0.005);
    EXPECT_NEAR(path[48].y, 743.14, 0.005);
    const Path left = calcFlyOverPoints({0, -10000}, {0, 0}, {-5000, 5000}, 1000, 2, reduced);
    ASSERT_EQ(left.size(), 49U);
    EXPECT_NEAR(left[48].x, -path[48].x, 1e-9);
    EXPECT_NEAR(left[48].y, path[48].y, 1e-9);
}

TEST(FlyOver, EndsHeadingForTheNextPoint) {
    Numbers number;
    int tested = 0;
    for (int i = 0; i < 1000; ++i) {
        const Point waypoint(number(-50000, 50000), number(-50000, 50000));
        const double course = number(-180, 180);
        const double turn = number(-175, 175);
        const double leg = number(8000, 20000);
        const double radius = number(200, 3000);
        const double side = turn > 0 ? 1.0 : -1.0;
        const Point next = ahead(waypoint, course + turn, leg);
        const Point centre = ahead(waypoint, course + side * 90.0, radius);
        if (std::abs(turn) < 3.1 || (next - centre).Length() < 1.1 * radius)
            continue;
        ++tested;
        bool reduced = true;
        const Path path = calcFlyOverPoints(ahead(waypoint, course + 180, 9000), waypoint, next,
                                            radius, 2, reduced);
        EXPECT_FALSE(reduced);
        EXPECT_TRUE(path[0].x == waypoint.x && path[0].y == waypoint.y);
        expectArc(path, 1, centre, radius, side);
        const double start = course - side * 90.0;
        EXPECT_NEAR(angleBetween(start, headingDeg(centre, path[1])), side, 1e-7);
        // Seen from the centre, the tangent point lies acos(radius / distance) before the point.
        const double before = degreesOf(std::acos(radius / (next - centre).Length()));
        const double end = headingDeg(centre, next) - side * before;
        const double beyond = side * angleBetween(end, headingDeg(centre, path.back()));
        EXPECT_GT(beyond, -1e-7);
        EXPECT_LT(beyond, 1.0 + 1e-7);
    }
    EXPECT_GT(tested, 800);
}

TEST(FlyOver, ReducesTheRadiusForANearPoint) {
    bool reduced = false;
    const Path path = calcFlyOverPoints({0, -10000}, {0, 0}, {1000, 0}, 800, 2, reduced);
    EXPECT_TRUE(reduced);
    // The circle through the waypoint, the point one metre ahead and the next one.
    const double radius = 0.999 * std::hypot(500.0, 0.5);
    expectArc(path, 1, {radius, 0}, radius, 1.0);
    EXPECT_GT(path.size(), 100U);
}

TEST(FlyOver, TurnsBackWhereItCameFrom) {
    bool reduced = true;
    const Path path = calcFlyOverPoints({0, -10000}, {0, 0}, {0, -10000}, 1000, 2, reduced);
    EXPECT_FALSE(reduced);
    expectArc(path, 1, {1000, 0}, 1000, 1.0);
    EXPECT_GT(path.size(), 180U);
}

TEST(FlyOver, GivesTheWaypointWhereThereIsNoArc) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::nan("");
    const struct {
        Point previous, next;
        double radius;
    } rows[] = {
        {{0, -10000}, {0, 10000}, 1000},   {{0, -10000}, {500, 10000}, 1000},  // below 3 degrees
        {{0, -0.9}, {10000, 0}, 1000},     {{0, 0}, {10000, 0}, 1000},
        {{0, -10000}, {0, 0.9}, 1000},     {{0, -10000}, {10000, 0}, 0.0009},
        {{0, -10000}, {10000, 0}, nan},    {{nan, -10000}, {10000, 0}, 1000},
        {{0, -10000}, {10000, nan}, 1000}, {{0, -10000}, {10000, infinity}, 1000},
        {{0, -10000}, {1, 0.05}, 5},  // the next point inside the reduced circle
    };
    for (const auto& row : rows) {
        bool reduced = false;
        const auto path = calcFlyOverPoints(row.previous, {0, 0}, row.next, row.radius, 1, reduced);
        expectWaypointOnly(path, {0, 0});
    }
}

TEST(Outbound, EndsBesideTheCentreOnTheNewCourse) {
    Numbers number;
    for (int i = 0; i < 1000; ++i) {
        const double lat = number(-70, 70);
        const double lon = number(-180, 180);
        const double course = number(0, 360);
        const double turn = number(-179, 179);
        const int direction = i % 3;
        if (std::abs(turn) < 1.1)
            continue;
        double endLat = 0.0;
        double endLon = 0.0;
        EXPECT_TRUE(
            calcOutboundPoint(lat, lon, course, 1500, course + turn, direction, endLat, endLon));
        const double side = direction == 1 || (direction == 2 && turn > 0) ? 1.0 : -1.0;
        const Point centre = ahead({0, 0}, course + side * 90.0, 1500);
        const Point expected = ahead(centre, course + turn - side * 90.0, 1500);
        Point end;
        latLong2Grid(lat, lon, endLat, endLon, end.x, end.y);
        EXPECT_NEAR(end.x, expected.x, 1e-8);
        EXPECT_NEAR(end.y, expected.y, 1e-8);
    }
}

TEST(Outbound, GoesStraightAheadForSmallTurns) {
    constexpr double metresPerDegree = 111319.49079327358;
    double lat = 0.0;
    double lon = 0.0;
    EXPECT_TRUE(calcOutboundPoint(0, 0, 0, 1000, 90, 1, lat, lon));
    EXPECT_NEAR(lat * metresPerDegree, 1000.0, 1e-9);
    EXPECT_NEAR(lon * metresPerDegree, 1000.0, 1e-9);
    EXPECT_TRUE(calcOutboundPoint(0, 0, 0, 1000, 0.5, 1, lat, lon));
    EXPECT_NEAR(lat * metresPerDegree, 10.0, 1e-12);
    EXPECT_EQ(lon, 0.0);
    EXPECT_TRUE(calcOutboundPoint(0, 0, 359.6, 1000, 0.5, 0, lat, lon));
    EXPECT_NEAR(std::hypot(lat, lon) * metresPerDegree, 10.0, 1e-9);
}

TEST(Triangle, RadiusAndArea) {
    EXPECT_NEAR(calcRadius({0, 0}, {1, 0}, {0, 1}), std::sqrt(0.5), 4 * eps);
    EXPECT_NEAR(calcTriangleArea({0, 0}, {1, 0}, {0, 1}), 0.5, 4 * eps);
    EXPECT_EQ(calcRadius({0, 0}, {3, 0}, {3, 4}), 2.5);
    EXPECT_EQ(calcTriangleArea({0, 0}, {3, 0}, {3, 4}), 6.0);
    EXPECT_FALSE(std::isfinite(calcRadius({0, 0}, {1, 0}, {3, 0})));
    Numbers number;
    for (int i = 0; i < 500; ++i) {
        const Point centre(number(-10, 10), number(-10, 10));
        const double radius = number(1, 50);
        const double a = number(0, 100);
        const Point one = ahead(centre, a, radius);
        const Point two = ahead(centre, a + number(40, 120), radius);
        const Point three = ahead(centre, a + number(160, 300), radius);
        EXPECT_NEAR(calcRadius(one, two, three), radius, 1e-12 * radius);
        const double cross =
            (two.x - one.x) * (three.y - one.y) - (two.y - one.y) * (three.x - one.x);
        EXPECT_NEAR(calcTriangleArea(one, two, three), std::abs(cross) / 2,
                    1e-12 * radius * radius);
    }
}

}  // namespace
