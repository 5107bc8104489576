// Bearings, distances and crossings, held against vector algebra in extended precision, which is
// well conditioned where the spherical formulas are and where they are not.
#include <Orlek/Geodetic/Grid.h>
#include <Orlek/Geodetic/Navigation.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "math/Reference.h"

namespace {

using namespace Orlek::Geodetic;
using OrlekTest::degrees;
using OrlekTest::dot;
using OrlekTest::eps;
using OrlekTest::Numbers;
using OrlekTest::Place;
using OrlekTest::Point;
using OrlekTest::radians;
using OrlekTest::sineBetween;

constexpr double metresPerDegree = 111319.49079327358;

// Roundings of the arguments, up to 3 pi in radians, move the answer as they move the positions;
// the sines, cosines and products add 4 eps, which is divided by the sine of the distance.
double angleTolerance(long double sine) {
    return eps * (10.0 + 4.0 / static_cast<double>(sine));
}

TEST(Navigation, DistanceAndBearingToTheLastDigit) {
    Numbers number;
    int tested = 0;
    for (int i = 0; i < 20000; ++i) {
        const double lat1 = number(-90, 90);
        const double lon1 = number(-180, 180);
        const bool near = i % 2 == 0;
        const double lat2 = near ? std::fmin(90, lat1 + number(0, 2)) : number(-90, 90);
        const double lon2 = near ? lon1 + number(-2, 2) : number(-180, 180);
        const Place one(lat1, lon1);
        const Place two(lat2, lon2);
        const long double sine = sineBetween(one.up, two.up);
        if (sine < 1e-4L)
            continue;
        ++tested;
        const long double arc = std::atan2(sine, dot(one.up, two.up));
        const double metresPerRadian = 60.0 * 1852.0 * 180.0 / static_cast<double>(OrlekTest::pi);
        EXPECT_NEAR(calcDistance(lat1, lon1, lat2, lon2),
                    static_cast<double>(degrees(arc) * 60.0L * 1852.0L),
                    metresPerRadian * angleTolerance(sine))
            << lat1 << " " << lon1 << " to " << lat2 << " " << lon2;

        const double bearing = calcBearing(lat1, lon1, lat2, lon2);
        const long double expected =
            degrees(std::atan2(dot(two.up, one.east), dot(two.up, one.north)));
        const auto off = static_cast<double>(std::remainder(bearing - expected, 360.0L));
        EXPECT_GE(bearing, 0.0);
        EXPECT_LE(bearing, 360.0);
        // Here the moved positions count by the inverse of the distance.
        const double tolerance = 14.0 * eps / static_cast<double>(sine) + 2.0 * eps * 6.3;
        EXPECT_NEAR(off, 0.0, static_cast<double>(degrees(tolerance)))
            << lat1 << " " << lon1 << " to " << lat2 << " " << lon2;
    }
    EXPECT_GT(tested, 19000);
}

TEST(Navigation, BearingAlongTheAxes) {
    EXPECT_EQ(calcBearing(0, 0, 0, 1), 90.0);
    EXPECT_EQ(calcBearing(0, 0, 1, 0), 0.0);
    EXPECT_EQ(calcBearing(0, 0, 0, -1), 270.0);
    EXPECT_EQ(calcBearing(0, 0, -1, 0), 180.0);
    EXPECT_EQ(calcBearing(0, 179, 0, -179), 90.0);
    EXPECT_EQ(calcBearing(0, 0, 0, 0), 0.0);
    EXPECT_EQ(calcBearing(0, 0, std::nan(""), 0), 0.0);
    EXPECT_EQ(calcBearing(0, 0, 0, std::numeric_limits<double>::infinity()), 0.0);
}

TEST(Navigation, DistanceOfEqualPlacesIsZero) {
    EXPECT_EQ(calcDistance(48.1, 11.5, 48.1, 11.5), 0.0);
    EXPECT_EQ(calcDistance(0.0, 0.0, 0.9e-15, -0.9e-15), 0.0);
    EXPECT_NEAR(calcDistance(0, 0, 0, 1), 111120.0, 1e-6);
    EXPECT_NEAR(calcDistance(0, 0, 90, 45), 90.0 * 60.0 * 1852.0, 1e-8);
    EXPECT_TRUE(std::isnan(calcDistance(0, 0, std::nan(""), 1)));
}

TEST(Navigation, PointFromBearingAndDistance) {
    double lat = 0.0;
    double lon = 0.0;
    calcPointFromBrgDistance(0, 0, 90, metresPerDegree, lat, lon);
    EXPECT_NEAR(lat, 0.0, eps);
    EXPECT_EQ(lon, 1.0);
    Numbers number;
    for (int i = 0; i < 2000; ++i) {
        const double fromLat = number(-80, 80);
        const double fromLon = number(-180, 180);
        const double bearing = number(0, 360);
        const double distance = number(0, 500000);
        calcPointFromBrgDistance(fromLat, fromLon, bearing, distance, lat, lon);
        const long double arc = static_cast<long double>(distance) / metresPerDegree;
        const long double cosLat = std::cos(radians(fromLat));
        const long double north = arc * std::cos(radians(bearing));
        const long double east = arc * std::sin(radians(bearing)) / cosLat;
        // The bearing in radians is off by up to 2 pi eps, the cosine of the latitude by
        // tan(80 deg) 80 deg eps of itself.
        const double tolerance = 20.0 * eps * static_cast<double>(arc / cosLat);
        EXPECT_NEAR(lat, static_cast<double>(fromLat + north), tolerance + eps * 90.0);
        EXPECT_NEAR(lon, static_cast<double>(fromLon + east), tolerance + eps * 360.0);
    }
}

TEST(Navigation, IntersectionAlsoBehindAStart) {
    const struct {
        double course1, lat2, lon2, course2, lat, lon;
    } rows[] = {
        {45, 0, 1, 0, 1, 1},  {225, 0, 1, 180, 1, 1},  {0, 0, 0.5, 270, 0, 0},
        {90, -1, 2, 0, 0, 2}, {180, -1, 2, 90, -1, 0},
    };
    for (const auto& row : rows) {
        double lat = -7.0;
        double lon = -7.0;
        calcIntersection(0, 0, row.course1, row.lat2, row.lon2, row.course2, lat, lon);
        EXPECT_NEAR(lat, row.lat, 2e-7) << row.course1 << " " << row.course2;
        EXPECT_NEAR(lon, row.lon, 2e-7) << row.course1 << " " << row.course2;
    }
    double lat = -7.0;
    double lon = -7.0;
    for (const double course : {0.0, 50.0, 90.0, 123.456}) {
        calcIntersection(50, 8, course, 51, 9, course, lat, lon);
        calcIntersection(50, 8, course, 51, 9, course + 180.0, lat, lon);
        EXPECT_TRUE(lat == -7.0 && lon == -7.0) << "parallel courses " << course;
    }
}

// The crossing lies on the first course to single precision, and on the second as far as its
// direction, which is that of one metre between floats of the start's size.
TEST(Navigation, IntersectionLiesOnBothCourses) {
    Numbers number;
    for (int i = 0; i < 2000; ++i) {
        const double lat1 = number(-60, 60);
        const double lat2 = lat1 + number(-0.5, 0.5);
        const double lon2 = number(-0.5, 0.5);
        const double course1 = number(0, 360);
        const double course2 = course1 + number(60, 120);
        double lat = 0.0;
        double lon = 0.0;
        calcIntersection(lat1, 0.0, course1, lat2, lon2, course2, lat, lon);
        Point start;
        Point crossing;
        latLong2Grid(lat1, 0.0, lat2, lon2, start.x, start.y);
        latLong2Grid(lat1, 0.0, lat, lon, crossing.x, crossing.y);
        const auto across = [&crossing](Point from, double course) {
            const auto heading = static_cast<double>(radians(course));
            return (crossing.x - from.x) * std::cos(heading) -
                   (crossing.y - from.y) * std::sin(heading);
        };
        const double size = std::fmax(std::abs(start.x), std::abs(start.y));
        EXPECT_NEAR(across({0.0, 0.0}, course1), 0.0, 0x1p-22 * crossing.Length());
        EXPECT_NEAR(across(start, course2), 0.0,
                    0x1p-22 * (crossing.Length() + size * (crossing - start).Length()));
    }
}

TEST(Navigation, DmeCrossingChoosesAheadFromInsideAndTheNearerFromOutside) {
    const struct {
        double startNorth, course, distance, endNorth;
    } rows[] = {
        {-10000, 0, 5000, -5000},   // towards the station: the first crossing
        {10000, 0, 5000, 5000},     // away from it: the nearer one behind
        {-2000, 0, 5000, 5000},     // inside: ahead
        {-2000, 180, 5000, -5000},  //
        {0, 0, 5000, 5000},         //
    };
    for (const auto& row : rows) {
        double lat = 0.0;
        double lon = 0.0;
        const double startLat = 50.0 + row.startNorth / metresPerDegree;
        EXPECT_TRUE(
            calcDmeDistIntersection(startLat, 8, row.course, 50, 8, row.distance, lat, lon));
        EXPECT_NEAR((lat - 50.0) * metresPerDegree, row.endNorth, 1e-8) << row.startNorth;
        EXPECT_NEAR(lon, 8.0, 1e-13);
    }
    double lat = 0.0;
    double lon = 0.0;
    EXPECT_FALSE(calcDmeDistIntersection(49.9, 8.25, 90, 50, 8.25, 5000, lat, lon));
    EXPECT_TRUE(lat == 49.9 && lon == 8.25) << "misses the circle: the start";
}

TEST(Navigation, DmeCrossingLiesOnCircleAndCourse) {
    Numbers number;
    int crossed = 0;
    for (int i = 0; i < 3000; ++i) {
        const Point start(number(-30000, 30000), number(-30000, 30000));
        const double course = number(0, 360);
        const double range = number(1000, 30000);
        double startLat = 0.0;
        double startLon = 0.0;
        grid2LatLong(47, -122, start.x, start.y, startLat, startLon);
        double lat = 0.0;
        double lon = 0.0;
        const auto heading = static_cast<double>(radians(course));
        const Point along(std::sin(heading), std::cos(heading));
        const double closest = start.x * along.y - start.y * along.x;
        if (std::abs(std::abs(closest) - range) < 1.0)
            continue;  // nearly a tangent
        ASSERT_EQ(calcDmeDistIntersection(startLat, startLon, course, 47, -122, range, lat, lon),
                  std::abs(closest) < range);
        if (std::abs(closest) > range)
            continue;
        ++crossed;
        Point end;
        latLong2Grid(47, -122, lat, lon, end.x, end.y);
        EXPECT_NEAR(end.Length(), range, 1e-6);
        const double half = std::sqrt(range * range - closest * closest);
        const double middle = -(start.x * along.x + start.y * along.y);
        const bool inside = start.Length() < range;
        const bool later = inside || std::abs(middle + half) < std::abs(middle - half);
        const double expected = later ? middle + half : middle - half;
        EXPECT_NEAR(end.x, start.x + expected * along.x, 1e-6);
        EXPECT_NEAR(end.y, start.y + expected * along.y, 1e-6);
    }
    EXPECT_GT(crossed, 1000);
}

TEST(Navigation, HeadingDifferences) {
    const struct {
        double from, to, shorter, right, left;
    } rows[] = {
        {350, 10, 20, 20, -340},   {10, 350, -20, 340, -20}, {0, 180, 180, 180, -180},
        {180, 0, -180, 180, -180}, {-10, 370, 20, 20, -340}, {90, 90, 0, 0, -0.0},
        {720, 45, 45, 45, -315},   {0, 360, 0, 360, -0.0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(getHeadingDifference(row.from, row.to), row.shorter) << row.from;
        EXPECT_EQ(getHeadingDifference(row.from, row.to, true), row.right) << row.from;
        EXPECT_EQ(getHeadingDifference(row.from, row.to, false), row.left) << row.from;
    }
    EXPECT_TRUE(std::signbit(getHeadingDifference(10, 10, false)));
}

}  // namespace
