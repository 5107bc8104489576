// Bearings, distances and crossings, held against vector algebra in extended precision, which is
// well conditioned where the spherical formulas are and where they are not; grids and back.
#include <Orlek/Geodetic/Grid.h>
#include <Orlek/Geodetic/Navigation.h>

#include "math/Reference.h"

namespace {

using namespace Orlek::Geodetic;
using namespace OrlekTest;

TEST(Navigation, DistanceAndBearingToTheLastDigit) {
    Numbers number;
    int tested = 0;
    for (int i = 0; i < 20000; ++i) {
        const bool near = i % 2 == 0;
        const Position from{number(-90, 90), number(-180, 180)};
        const Position to{near ? std::fmin(90, from.lat + number(0, 2)) : number(-90, 90),
                          near ? from.lon + number(-2, 2) : number(-180, 180)};
        const Place one(from);
        const Place two(to);
        const long double sine = sineBetween(one.up, two.up);
        if (sine < 1e-4L)
            continue;
        ++tested;
        // Roundings of the arguments, up to 3 pi in radians, move the answer as they move the
        // positions; the sines, cosines and products add 4 eps, divided by the sine.
        constexpr long double metresPerDegreeOfArc = 60.0L * 1852.0L;
        const long double arc = degrees(std::atan2(sine, dot(one.up, two.up)));
        EXPECT_NEAR(calcDistance(from.lat, from.lon, to.lat, to.lon),
                    rounded(arc * metresPerDegreeOfArc),
                    rounded(degrees(eps * (10.0 + 4.0 / sine)) * metresPerDegreeOfArc))
            << from.lat << " " << from.lon << " to " << to.lat << " " << to.lon;
        const double bearing = calcBearing(from.lat, from.lon, to.lat, to.lon);
        EXPECT_TRUE(bearing >= 0.0 && bearing <= 360.0) << bearing;
        const long double expected =
            degrees(std::atan2(dot(two.up, one.east), dot(two.up, one.north)));
        // Here the moved positions count by the inverse of the distance.
        EXPECT_NEAR(rounded(std::remainder(bearing - expected, 360.0L)), 0.0,
                    rounded(degrees(14.0 * eps / sine + 2.0 * eps * 6.3)))
            << from.lat << " " << from.lon << " to " << to.lat << " " << to.lon;
    }
    EXPECT_GT(tested, 19000);
}

TEST(Navigation, EqualPlacesAndNonsense) {
    EXPECT_EQ(calcBearing(0, 0, 0, 0), 0.0);
    EXPECT_EQ(calcBearing(0, 0, notANumber, 0), 0.0);
    EXPECT_EQ(calcBearing(0, 0, 0, infinity), 0.0);
    EXPECT_EQ(calcDistance(48.1, 11.5, 48.1, 11.5), 0.0);
    EXPECT_TRUE(std::isnan(calcDistance(0, 0, notANumber, 1)));
}

TEST(Navigation, PointFromBearingAndDistance) {
    Numbers number;
    for (int i = 0; i < 2000; ++i) {
        const Position from{number(-80, 80), number(-180, 180)};
        const double bearing = number(0, 360);
        const double distance = number(0, 500000);
        Position end;
        calcPointFromBrgDistance(from.lat, from.lon, bearing, distance, end.lat, end.lon);
        const long double arc = static_cast<long double>(distance) / metresPerDegree;
        const long double cosLat = std::cos(radians(from.lat));
        const long double north = arc * std::cos(radians(bearing));
        const long double east = arc * std::sin(radians(bearing)) / cosLat;
        // The bearing in radians is off by up to 2 pi eps, the cosine of the latitude by
        // tan(80 deg) 80 deg eps of itself.
        const double tolerance = 20.0 * eps * rounded(arc / cosLat);
        EXPECT_NEAR(end.lat, rounded(from.lat + north), tolerance + eps * 90.0);
        EXPECT_NEAR(end.lon, rounded(from.lon + east), tolerance + eps * 360.0);
    }
}

// Ahead of a start or behind it, and along the axes, where rounding would lose the crossing. It
// lies on the first course to single precision, and on the second as far as its direction, which is
// that of one metre between floats of the start's size.
TEST(Navigation, IntersectionLiesOnBothCourses) {
    Numbers number;
    for (int i = 0; i < 2000; ++i) {
        const Position one{number(-60, 60), 0.0};
        const Position two{one.lat + number(-0.5, 0.5), number(-0.5, 0.5)};
        const double course1 = i % 2 == 0 ? number(0, 360) : i / 2 % 5 * 90.0;
        const double course2 = course1 + (i % 4 == 0 ? 90.0 : number(60, 120));
        Position end;
        calcIntersection(one.lat, one.lon, course1, two.lat, two.lon, course2, end.lat, end.lon);
        Point start;
        Point crossing;
        latLong2Grid(one.lat, one.lon, two.lat, two.lon, start.x, start.y);
        latLong2Grid(one.lat, one.lon, end.lat, end.lon, crossing.x, crossing.y);
        const auto across = [](Point way, double course) {
            return rounded(way.x * std::cos(radians(course)) - way.y * std::sin(radians(course)));
        };
        const double size = std::fmax(std::abs(start.x), std::abs(start.y));
        EXPECT_NEAR(across(crossing, course1), 0.0, 0x1p-22 * crossing.Length()) << course1;
        EXPECT_NEAR(across(crossing - start, course2), 0.0,
                    0x1p-22 * (crossing.Length() + size * (crossing - start).Length()));
    }
    Position unchanged;
    for (const double course : {0.0, 50.0, 90.0, 123.456, 230.0}) {
        calcIntersection(50, 8, course, 51, 9, 50, unchanged.lat, unchanged.lon);
        const bool parallel = course == 50.0 || course == 230.0;
        EXPECT_EQ(unchanged.lat == -7.0 && unchanged.lon == -7.0, parallel) << course;
        unchanged = {};
    }
    for (int tenths = 0; tenths < 1800; ++tenths) {
        const double course = tenths / 10.0;
        calcIntersection(50, 8, course, 51, 9, course + 180.0, unchanged.lat, unchanged.lon);
        EXPECT_EQ(unchanged.lat, -7.0) << course;
    }
}

// Ahead from inside the circle, the nearer crossing from outside, the start where it is missed.
TEST(Navigation, DmeCrossingLiesOnCircleAndCourse) {
    Numbers number;
    int crossed = 0;
    for (int i = 0; i < 3000; ++i) {
        const Point start = number.point(30000);
        const double course = number(0, 360);
        const double range = number(1000, 30000);
        const Point along(rounded(std::sin(radians(course))), rounded(std::cos(radians(course))));
        const double closest = start.x * along.y - start.y * along.x;
        if (std::abs(std::abs(closest) - range) < 1.0)
            continue;  // nearly a tangent
        const bool crosses = std::abs(closest) < range;
        Position from;
        Position to;
        grid2LatLong(47, -122, start.x, start.y, from.lat, from.lon);
        ASSERT_EQ(
            calcDmeDistIntersection(from.lat, from.lon, course, 47, -122, range, to.lat, to.lon),
            crosses);
        crossed += crosses ? 1 : 0;
        const double half = crosses ? std::sqrt(range * range - closest * closest) : 0.0;
        const double middle = -(start.x * along.x + start.y * along.y);
        const bool later =
            start.Length() < range || std::abs(middle + half) < std::abs(middle - half);
        const double t = !crosses ? 0.0 : later ? middle + half : middle - half;
        Point end;
        latLong2Grid(47, -122, to.lat, to.lon, end.x, end.y);
        EXPECT_TRUE(isAt(end, {start.x + t * along.x, start.y + t * along.y}, 1e-6));
    }
    EXPECT_GT(crossed, 1000);
}

TEST(Navigation, HeadingDifferences) {
    const struct {
        double from, to, shorter, right, left;
    } rows[] = {
        {350, 10, 20, 20, -340}, {10, 350, -20, 340, -20},  {0, 180, 180, 180, -180},
        {0, 360, 0, 360, -0.0},  {180, 0, -180, 180, -180}, {-10, 370, 20, 20, -340},
        {90, 90, 0, 0, 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(getHeadingDifference(row.from, row.to), row.shorter) << row.from;
        EXPECT_EQ(getHeadingDifference(row.from, row.to, true), row.right) << row.from;
        EXPECT_EQ(getHeadingDifference(row.from, row.to, false), row.left) << row.from;
    }
}

constexpr long double radius = 6378137.0L;

TEST(Grid, FlatGrid) {
    Numbers number;
    for (int i = 0; i < 2000; ++i) {
        const Position ref{number(-80, 80), number(-180, 180)};
        const Position position{ref.lat + number(-1, 1), ref.lon + number(-1, 1)};
        Point flat;
        latLong2Grid(ref.lat, ref.lon, position.lat, position.lon, flat.x, flat.y);
        const long double east =
            radius * std::cos(radians(ref.lat)) * radians(position.lon - ref.lon);
        // Four roundings, the cosine being off by tan(80 deg) 80 deg eps at most.
        EXPECT_NEAR(flat.x, rounded(east), 12 * eps * std::abs(flat.x));
        EXPECT_NEAR(flat.y, rounded(radius * radians(position.lat - ref.lat)),
                    3 * eps * std::abs(flat.y));
        Position back;
        grid2LatLong(ref.lat, ref.lon, flat.x, flat.y, back.lat, back.lon);
        EXPECT_TRUE(isAt({back.lon, back.lat}, {position.lon, position.lat}, 200 * eps));
    }
}

TEST(Grid, EarthCentredFrame) {
    Numbers number;
    for (int i = 0; i < 2000; ++i) {
        const Position position{number(-90, 90), number(-180, 180)};
        double x = 0.0;
        double y = 0.0;
        double z = 0.0;
        latLong2Cartesian(position.lat, position.lon, x, y, z);
        const Axis up = Place(position).up;
        const double tolerance = 6 * eps * rounded(radius);
        EXPECT_TRUE(isAt({x, z}, {rounded(up[1] * radius), rounded(up[0] * radius)}, tolerance));
        EXPECT_NEAR(y, rounded(up[2] * radius), tolerance / 2);
        Position back;
        cartesian2LatLong(3.0 * x, 3.0 * y, 3.0 * z, back.lat, back.lon);
        EXPECT_NEAR(back.lat, position.lat, 500 * eps);
        EXPECT_NEAR(0.0, (back.lon - position.lon) * std::cos(position.lat / 57.3), 500 * eps);
    }
}

}  // namespace
