// Crossings, parallels and distances in the plane.
#include <Orlek/Math/Line.h>
#include <Orlek/Math/Plane.h>

#include "math/Reference.h"

namespace {

using namespace Orlek::Math;
using namespace OrlekTest;

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

}  // namespace
