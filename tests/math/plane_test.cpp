// Crossings, parallels and distances in the plane; crossings and tangents of circles, checked by
// where the points lie.
#include <Orlek/Math/Circle.h>
#include <Orlek/Math/Line.h>
#include <Orlek/Math/Plane.h>

#include "math/Reference.h"

namespace {

using namespace Orlek::Math;
using namespace OrlekTest;
using Disc = Circle<double>;

TEST(Plane, SegmentsAndTheLinesThroughThemCross) {
    const struct {
        Line one, other;
        Point cross;
        double t, s;
        bool meet;
    } rows[] = {
        {{{0, 0}, {1, 0}}, {{3, -1}, {3, 1}}, {3, 0}, 3.0, 0.5, false},
        {{{1, -1}, {1, 1}}, {{0, 0}, {2, 0}}, {1, 0}, 0.5, 0.5, true},  // first one upright
        {{{0, 0}, {0, 4}}, {{-1, 4}, {1, 4}}, {0, 4}, 1.0, 0.5, true},  // at an end
        {{{0, 0}, {4, 4}}, {{0, 4}, {1, 3}}, {2, 2}, 0.5, 2.0, false},
        {{{0, 0}, {1, 2}}, {{3, 3}, {4, 5}}, {-7, -7}, -7, -7, false},  // parallels: nothing
        {{{0, 0}, {0, 2}}, {{3, 3}, {3, -5}}, {-7, -7}, -7, -7, false},
        {{{1, 1}, {1, 1}}, {{0, 0}, {1, 2}}, {-7, -7}, -7, -7, false},  // a point
    };
    for (const auto& row : rows) {
        Point cross(-7, -7);
        Point ts(-7, -7);
        EXPECT_EQ(crossLines(row.one.p1(), row.one.p2(), row.other.p1(), row.other.p2(), cross,
                             ts.x, ts.y),
                  row.meet);
        EXPECT_TRUE(isAt(cross, row.cross, 0.0));
        EXPECT_TRUE(isAt(ts, {row.t, row.s}, 0.0));
        EXPECT_EQ(row.one.cross(row.other), row.meet) << row.other.p1().x;
        bool ok = false;
        const Point point = row.one.crossLine(row.other, ok);
        EXPECT_EQ(ok, row.t != -7);
        EXPECT_TRUE(isAt(point, ok ? row.cross : Point(0, 0), 0.0));
    }
}

// Lines that are nearly parallel: by the cross product of their directions.
TEST(Line, HasTolerancesOfItsOwn) {
    bool ok = true;
    const Line line({0, 0}, {1, 0});
    EXPECT_FALSE(line.cross({{0, 0}, {1, 0.9e-12}}));
    EXPECT_TRUE(line.cross({{0, 0}, {1, 1.1e-12}}));
    line.crossLine({{0, 1}, {1, 1 + 0.9e-6}}, ok);
    EXPECT_FALSE(ok);
    line.crossLine({{0, 1}, {1, 1 + 1.1e-6}}, ok);
    EXPECT_TRUE(ok);
}

// What follows from the float ends exactly is found to double precision; only the direction
// 0.1 to 16777216 and the point itself are rounded to single.
TEST(Plane, FloatLinesRoundTheirDirectionsAndTheCrossingOnly) {
    PointF cross;
    double t = 0.0;
    double s = 0.0;
    EXPECT_TRUE(crossLines(PointF(0, 0), PointF(3, 0), PointF(1, -1), PointF(1, 2), cross, t, s));
    EXPECT_TRUE(t == 1.0 / 3.0 && s == 1.0 / 3.0);
    crossLines(PointF(0.1F, 0), PointF(16777216, 0), PointF(8388608, -1), PointF(8388608, 1), cross,
               t, s);
    EXPECT_EQ(t, (8388608.0 - double{0.1F}) / 16777216.0);
}

TEST(Plane, AngleInDegrees) {
    EXPECT_NEAR(angle({1.0F, 1.0F}, {0.0F, -4.0F}), 135.0, 1e-5);
    EXPECT_TRUE(std::isnan(angle({0.0F, 0.0F}, {1.0F, 0.0F})));
}

TEST(Plane, ParallelLinesLieToTheSide) {
    for (const int side : {0, 1, -1}) {
        const double sign = side == 0 ? 1.0 : -1.0;
        PointF q1;
        PointF q2;
        getParallelLine({1.0F, 1.0F}, {4.0F, 5.0F}, 10.0, side, q1, q2);
        EXPECT_TRUE(isAt({q1.x, q1.y}, {1 - sign * 8, 1 + sign * 6}, 1e-6)) << side;
        EXPECT_TRUE(isAt({q2.x, q2.y}, {4 - sign * 8, 5 + sign * 6}, 1e-6)) << side;
    }
    PointF corner;
    getInnerCross({0.0F, 0.0F}, {10.0F, 0.0F}, {10.0F, 10.0F}, 2.0, 0, corner);
    EXPECT_TRUE(corner.x == 8.0F && corner.y == 2.0F);
}

TEST(Line, MeasuresTheDistanceToAPoint) {
    const struct {
        Point point;
        double distance, t;
        bool within;
    } rows[] = {{{5, 3}, 3, 0.5, true},
                {{-4, 3}, 5, -0.4, false},
                {{13, -4}, 5, 1.3, false},
                {{0, 3}, 3, 0, false},
                {{10, -2}, 2, 1, false}};
    for (const auto& row : rows) {
        bool within = !row.within;
        double t = -7.0;
        EXPECT_EQ(Line({0, 0}, {10, 0}).distanceToPoint(row.point, within, t), row.distance);
        EXPECT_EQ(within, row.within) << row.point.x;
        EXPECT_EQ(t, row.t) << row.point.x;
    }
}

double distance(const Disc& circle, Point point) {
    return std::hypot(point.x - circle.x, point.y - circle.y);
}

TEST(Circle, CrossingsLieOnBothCirclesTheGreaterXFirst) {
    Numbers number;
    int crossed = 0;
    for (int i = 0; i < 2000; ++i) {
        const Disc one(number(-10, 10), number(-10, 10), number(1, 10));
        const Disc other(number(-10, 10), number(-10, 10), number(1, 10));
        const double apart = std::hypot(one.x - other.x, one.y - other.y);
        const bool expected =
            apart < one.radius + other.radius && apart > std::abs(one.radius - other.radius);
        Point first;
        Point second;
        ASSERT_EQ(one.cross(other, first, second), expected);
        if (!expected)
            continue;
        ++crossed;
        EXPECT_GT(first.x, second.x);
        for (const Point& point : {first, second}) {
            EXPECT_NEAR(distance(one, point), one.radius, 1e-8);
            EXPECT_NEAR(distance(other, point), other.radius, 1e-8);
        }
    }
    EXPECT_GT(crossed, 500);
}

// Of level centres the upper crossing comes first; of centres that are level but for rounding the
// points stay where they are, the one with the greater x first.
TEST(Circle, CrossingsOfLevelAndNearlyLevelCircles) {
    for (const double rise : {0.0, -1e-15, 1e-9, -1e-5, 0.99e-4, -0.99e-4, 1.01e-4, -1.01e-4}) {
        const double upper = rise > 0.0 ? -std::sqrt(0.75) : std::sqrt(0.75);
        const Disc other(1, rise, 1);
        Point first;
        Point second;
        ASSERT_TRUE(Disc(0, 0, 1).cross(other, first, second)) << rise;
        EXPECT_TRUE(isAt(first, {0.5, upper}, 1e-3)) << rise;
        EXPECT_TRUE(isAt(second, {0.5, -upper}, 1e-3)) << rise;
        EXPECT_GE(first.x, second.x);
        EXPECT_NEAR(first.Length(), 1.0, 1e-7);
        EXPECT_NEAR(distance(other, second), 1.0, 1e-7);
    }
}

TEST(Circle, WritesNothingWithoutACrossing) {
    // Touching from the side and from above, the same, around, within, beside.
    for (const Disc& other : {Disc(2, 0, 1), Disc(0, 2, 1), Disc(0, 0, 1), Disc(0, 0, 2),
                              Disc(0, 0.2, 0.1), Disc(5, 5, 1), Disc(0, 0, notANumber)}) {
        Point first(7, 8);
        Point second(9, 10);
        EXPECT_FALSE(Disc(0, 0, 1).cross(other, first, second)) << other.x << " " << other.y;
        EXPECT_TRUE(first.x == 7 && first.y == 8 && second.x == 9 && second.y == 10);
    }
}

TEST(Circle, TangentsTouchAtARightAngle) {
    Numbers number;
    for (int i = 0; i < 500; ++i) {
        const Disc circle(number(-5, 5), number(-5, 5), number(1, 3));
        const Point outside(circle.x + number(-20, 20), circle.y + number(4, 20));
        Point first;
        Point second;
        ASSERT_TRUE(circle.tangent(outside, first, second));
        EXPECT_FALSE(circle.tangent({circle.x + 0.9, circle.y}, first, second)) << "inside";
        for (const Point& point : {first, second}) {
            EXPECT_NEAR(distance(circle, point), circle.radius, 1e-11);
            const Point way = outside - point;
            EXPECT_NEAR((point.x - circle.x) * way.x + (point.y - circle.y) * way.y, 0.0, 1e-10);
        }
    }
}

}  // namespace
