// Turns, checked by their geometry: equal distance from a centre found in another way, tangents,
// and steps of one degree.
#include <Orlek/Geodetic/Grid.h>
#include <Orlek/Geodetic/Turns.h>

#include <vector>

#include "math/Reference.h"

namespace {

using namespace Orlek::Geodetic;
using namespace OrlekTest;
using Path = std::vector<Point>;

constexpr int left = 0;
constexpr int right = 1;
constexpr int shorter = 2;

double headingDeg(Point from, Point to) {
    return rounded(degrees(std::atan2(to.x - from.x, to.y - from.y)));
}

Point ahead(Point from, double courseDeg, double distance) {
    const auto course = rounded(radians(courseDeg));
    return {from.x + distance * std::sin(course), from.y + distance * std::cos(course)};
}

struct Arc {
    Point centre;
    double radius;
    double startDeg;  // heading from the centre to where the turn starts
    double side;      // 1 to the right, -1 to the left
};

// All at the radius, each a degree after the one before, the first one after the start.
void expectArc(const Path& path, std::size_t from, const Arc& arc) {
    double before = arc.startDeg;
    for (std::size_t i = from; i < path.size(); ++i) {
        EXPECT_NEAR((path[i] - arc.centre).Length(), arc.radius, 1e-8);
        const double heading = headingDeg(arc.centre, path[i]);
        EXPECT_NEAR(std::remainder(heading - before, 360.0), arc.side, 1e-7) << i;
        before = heading;
    }
}

// From the south to a waypoint in the origin. The number of points tells where the arc ends.
TEST(Turns, WorkedExamples) {
    const double near = 0.999 * std::hypot(500.0, 0.5);
    const struct {
        bool over, reduced;
        Point next;
        double radius;
        int direction;
        std::size_t points;
        Arc arc;
    } rows[] = {
        {false, false, {10000, 0}, 1000, right, 89, {{1000, -1000}, 1000, -90, 1}},
        {false, false, {10000, 0}, 1000, left, 26, {{-1000, -1000}, 1000, 90, -1}},
        {true, false, {5000, 5000}, 1000, shorter, 49, {{1000, 0}, 1000, -90, 1}},
        {true, false, {0, -10000}, 1000, shorter, 193, {{1000, 0}, 1000, -90, 1}},  // back
        // The circle through the waypoint, the point one metre ahead and the next one.
        {true, true, {1000, 0}, 800, shorter, 178, {{near, 0}, near, -90, 1}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.points);
        bool reduced = !row.reduced;
        const auto turn = row.over ? calcFlyOverPoints : calcFlyByPoints;
        const Path path = turn({0, -10000}, {0, 0}, row.next, row.radius, row.direction, reduced);
        EXPECT_EQ(reduced, row.reduced);
        EXPECT_EQ(path.size(), row.points);
        expectArc(path, row.over ? 1 : 0, row.arc);
    }
}

TEST(Turns, TouchBothLegsOrEndHeadingForTheNextPoint) {
    Numbers number;
    int tested = 0;
    for (int i = 0; i < 2000; ++i) {
        const bool over = i % 2 == 1;
        const Point waypoint = number.point(50000);
        const double course = number(-180, 180);
        const double turn = number(-175, 175);
        const double in = number(8000, 20000);
        const double out = number(8000, 20000);
        const double wanted = number(200, 3000);
        const double side = turn > 0 ? 1.0 : -1.0;
        const Point next = ahead(waypoint, course + turn, out);
        Arc arc{ahead(waypoint, course + side * 90, wanted), wanted, course - side * 90, side};
        if (std::abs(turn) < 3.1 || (over && (next - arc.centre).Length() < 1.1 * wanted))
            continue;
        ++tested;
        // Seen from the centre, the tangent point lies acos(radius / distance) before the point.
        double end = headingDeg(arc.centre, next) -
                     side * rounded(degrees(std::acos(wanted / (next - arc.centre).Length())));
        if (!over) {
            // The centre lies on the line that halves the angle of the legs.
            const auto half = rounded(radians(std::abs(turn) / 2));
            arc.radius = std::fmin(wanted, std::fmin(in, out) / std::tan(half));
            arc.centre =
                ahead(waypoint, course + turn / 2 + side * 90, arc.radius / std::cos(half));
            end = course + turn - side * 90;
        }
        bool reduced = over;
        const Path path = (over ? calcFlyOverPoints : calcFlyByPoints)(
            ahead(waypoint, course + 180, in), waypoint, next, wanted, shorter, reduced);
        EXPECT_EQ(reduced, arc.radius < wanted);
        EXPECT_TRUE(!over || (path[0].x == waypoint.x && path[0].y == waypoint.y));
        expectArc(path, over ? 1 : 0, arc);
        // One ends within the degree beyond the end, the other within the degree before it.
        const double beyond =
            side * std::remainder(headingDeg(arc.centre, path.back()) - end, 360.0);
        EXPECT_NEAR(beyond, over ? 0.5 : -0.5, 0.5 + 1e-7);
    }
    EXPECT_GT(tested, 1700);
}

TEST(Turns, GiveTheWaypointWhereThereIsNoArc) {
    using Turn = decltype(&calcFlyByPoints);
    const Turn by = calcFlyByPoints;
    const Turn over = calcFlyOverPoints;
    const struct {
        std::vector<Turn> turns;
        Point previous, next;
        double radius;
    } rows[] = {
        {{by, over}, {0, -10000}, {0, 10000}, 1000},  // straight on
        {{by}, {0, -10000}, {0, -5000}, 1000},        // straight back
        {{over}, {0, -10000}, {500, 10000}, 1000},    // below 3 degrees
        {{by, over}, {0, -0.9}, {10000, 0}, 1000},    // distances below a metre
        {{by, over}, {0, -10000}, {0.9, 0}, 1000},    //
        {{by}, {0, -10000}, {0.5, -10000}, 1000},     //
        {{by, over}, {0, -10000}, {10000, 0}, 0.0009},
        {{by, over}, {0, -10000}, {10000, 0}, notANumber},
        {{by, over}, {notANumber, -10000}, {10000, 0}, 1000},
        {{by, over}, {0, -10000}, {10000, notANumber}, 1000},
        {{by}, {0, -infinity}, {10000, 0}, 1000},
        {{over}, {0, -10000}, {10000, infinity}, 1000},
        {{over}, {0, -10000}, {1, 0.05}, 5},  // the next point inside the reduced circle
    };
    for (const auto& row : rows) {
        for (const Turn turn : row.turns) {
            bool reduced = false;
            const Path path = turn(row.previous, {0, 0}, row.next, row.radius, right, reduced);
            ASSERT_EQ(path.size(), 1U) << row.next.x << " " << row.radius;
            EXPECT_TRUE(isAt(path[0], {0, 0}, 0.0));
        }
    }
}

TEST(Turns, OutboundPointLiesBesideTheCentreOnTheNewCourse) {
    Numbers number;
    for (int i = 0; i < 1000; ++i) {
        const Position start{number(-70, 70), number(-180, 180)};
        const double course = number(0, 360);
        const double turn = number(-179, 179);
        const int direction = i % 3;
        Position to;
        EXPECT_TRUE(calcOutboundPoint(start.lat, start.lon, course, 1500, course + turn, direction,
                                      to.lat, to.lon));
        const double side = direction == right || (direction != left && turn > 0) ? 1.0 : -1.0;
        const Point centre = ahead({0, 0}, course + side * 90, 1500);
        Point end;
        latLong2Grid(start.lat, start.lon, to.lat, to.lon, end.x, end.y);
        EXPECT_TRUE(isAt(end,
                         std::abs(turn) < 1.0  // ten metres straight ahead
                             ? ahead({0, 0}, course, 10)
                             : ahead(centre, course + turn - side * 90, 1500),
                         1e-8))
            << turn;
    }
}

TEST(Turns, RadiusAndAreaOfTriangles) {
    EXPECT_FALSE(std::isfinite(calcRadius({0, 0}, {1, 0}, {3, 0})));
    Numbers number;
    for (int i = 0; i < 500; ++i) {
        const double radius = number(1, 50);
        const double a = number(0, 100);
        const Point one = ahead({7, -3}, a, radius);
        const Point two = ahead({7, -3}, a + number(40, 120), radius);
        const Point three = ahead({7, -3}, a + number(160, 300), radius);
        EXPECT_NEAR(calcRadius(one, two, three), radius, 1e-12 * radius);
        const Point b = two - one;
        const Point c = three - one;
        EXPECT_NEAR(calcTriangleArea(one, two, three), std::abs(b.x * c.y - b.y * c.x) / 2,
                    1e-12 * radius * radius);
    }
}

}  // namespace
