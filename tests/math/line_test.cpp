// The line segment.
#include <Orlek/Math/Line.h>
#include <gtest/gtest.h>

#include <cmath>

namespace {

using Orlek::Math::Line;
using Point = Orlek::Math::Vector2<double>;

TEST(Line, MeetsOtherSegmentsEndsIncluded) {
    const Line line({0, 0}, {2, 0});
    const struct {
        Line other;
        bool meets;
    } rows[] = {
        {{{1, -1}, {1, 1}}, true},           {{{0, 0}, {0, 5}}, true},  {{{2, -1}, {2, 0}}, true},
        {{{3, -1}, {3, 1}}, false},          {{{1, 1}, {1, 2}}, false}, {{{0, 1}, {2, 1}}, false},
        {{{1, 0}, {3, 0}}, false},  // on one line: parallel
        {{{0, 0}, {2, 0.9e-12 / 2}}, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(line.cross(row.other), row.meets) << row.other.p1().x;
        EXPECT_EQ(row.other.cross(line), row.meets) << row.other.p1().x;
    }
}

TEST(Line, CrossesInfiniteLines) {
    Line line;
    line.setP1({0, 0});
    line.setP2({1, 0});
    bool ok = false;
    Point point = line.crossLine({{3, -1}, {3, 1}}, ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(point.x, 3.0);
    EXPECT_EQ(point.y, 0.0);
    point = Line({1, 1}, {1, 5}).crossLine({{0, 0}, {4, 1}}, ok);
    EXPECT_TRUE(ok);
    EXPECT_EQ(point.x, 1.0);
    EXPECT_EQ(point.y, 0.25);
    line.crossLine({{0, 1}, {1, 1 + 0.9e-6}}, ok);
    EXPECT_FALSE(ok);
    line.crossLine({{0, 1}, {1, 1 + 1.1e-6}}, ok);
    EXPECT_TRUE(ok);
}

TEST(Line, MeasuresTheDistanceToAPoint) {
    const struct {
        Point point;
        double distance;
        bool within;
        double t;
    } rows[] = {
        {{5, 3}, 3, true, 0.5}, {{-4, 3}, 5, false, -0.4}, {{13, -4}, 5, false, 1.3},
        {{0, 3}, 3, false, 0},  {{10, -2}, 2, false, 1},   {{2.5, 0}, 0, true, 0.25},
    };
    const Line line({0, 0}, {10, 0});
    for (const auto& row : rows) {
        bool within = !row.within;
        double t = -1.0;
        EXPECT_EQ(line.distanceToPoint(row.point, within, t), row.distance) << row.point.x;
        EXPECT_EQ(within, row.within) << row.point.x;
        EXPECT_EQ(t, row.t) << row.point.x;
    }
    bool within = true;
    double t = 0.0;
    EXPECT_TRUE(std::isnan(Line({1, 1}, {1, 1}).distanceToPoint({2, 2}, within, t)));
    EXPECT_TRUE(std::isnan(t));
    EXPECT_FALSE(within);
}

}  // namespace
