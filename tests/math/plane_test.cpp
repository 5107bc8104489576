// Angles, crossings and parallels in the plane.
#include <Orlek/Math/Plane.h>
#include <gtest/gtest.h>

#include <cmath>

#include "math/Reference.h"

namespace {

using namespace Orlek::Math;
using OrlekTest::eps;
using OrlekTest::Point;
using OrlekTest::PointF;

TEST(Plane, AngleInDegrees) {
    EXPECT_NEAR(angle({1.0F, 0.0F}, {0.0F, 3.0F}), 90.0, 1e-13);
    EXPECT_NEAR(angle({1.0F, 0.0F}, {-2.0F, 0.0F}), 180.0, 1e-13);
    EXPECT_NEAR(angle({1.0F, 1.0F}, {0.0F, -4.0F}), 135.0, 1e-5);
    EXPECT_TRUE(std::isnan(angle({0.0F, 0.0F}, {1.0F, 0.0F})));
}

template <typename P>
class CrossLines : public testing::Test {};
using PointTypes = testing::Types<PointF, Point>;
TYPED_TEST_SUITE(CrossLines, PointTypes);

TYPED_TEST(CrossLines, SegmentsAndTheLinesThroughThem) {
    using P = TypeParam;
    const struct {
        P p1, p2, p3, p4, cross;
        double t, s;
        bool meet;
    } rows[] = {
        {{0, 0}, {2, 0}, {1, -1}, {1, 1}, {1, 0}, 0.5, 0.5, true},
        {{0, 0}, {1, 0}, {3, -1}, {3, 1}, {3, 0}, 3.0, 0.5, false},
        {{1, -1}, {1, 1}, {0, 0}, {2, 0}, {1, 0}, 0.5, 0.5, true},  // first one upright
        {{0, 0}, {0, 4}, {-1, 4}, {1, 4}, {0, 4}, 1.0, 0.5, true},  // at an end
        {{0, 0}, {4, 4}, {0, 4}, {2, 2}, {2, 2}, 0.5, 1.0, true},
        {{0, 0}, {4, 4}, {0, 4}, {1, 3}, {2, 2}, 0.5, 2.0, false},
    };
    for (const auto& row : rows) {
        P cross(-7, -7);
        double t = -7.0;
        double s = -7.0;
        EXPECT_EQ(crossLines(row.p1, row.p2, row.p3, row.p4, cross, t, s), row.meet);
        EXPECT_EQ(cross.x, row.cross.x);
        EXPECT_EQ(cross.y, row.cross.y);
        EXPECT_EQ(t, row.t);
        EXPECT_EQ(s, row.s);
    }
}

TYPED_TEST(CrossLines, ParallelsWriteNothing) {
    using P = TypeParam;
    const P ends[][4] = {{{0, 0}, {1, 2}, {3, 3}, {4, 5}},
                         {{0, 0}, {0, 2}, {3, 3}, {3, -5}},
                         {{0, 0}, {1, 2}, {0, 0}, {1, 2}},
                         {{1, 1}, {1, 1}, {0, 0}, {1, 2}}};
    for (const auto& end : ends) {
        P cross(-7, -7);
        double t = -7.0;
        double s = -7.0;
        EXPECT_FALSE(crossLines(end[0], end[1], end[2], end[3], cross, t, s));
        EXPECT_TRUE(cross.x == -7 && cross.y == -7 && t == -7.0 && s == -7.0);
    }
}

// What follows from the float ends exactly is found to double precision; only the direction
// 0.1 to 16777216 and the point itself are rounded to single.
TEST(Plane, FloatLinesRoundTheirDirectionsAndTheCrossingOnly) {
    PointF cross;
    double t = 0.0;
    double s = 0.0;
    EXPECT_TRUE(crossLines(PointF(0.0F, 0.0F), PointF(3.0F, 0.0F), PointF(1.0F, -1.0F),
                           PointF(1.0F, 2.0F), cross, t, s));
    EXPECT_EQ(t, 1.0 / 3.0);
    EXPECT_EQ(s, 1.0 / 3.0);
    crossLines(PointF(0.1F, 0.0F), PointF(16777216.0F, 0.0F), PointF(8388608.0F, -1.0F),
               PointF(8388608.0F, 1.0F), cross, t, s);
    EXPECT_EQ(t, (8388608.0 - double{0.1F}) / 16777216.0);
}

TEST(Plane, ParallelLinesLieToTheSide) {
    PointF q1;
    PointF q2;
    getParallelLine({0.0F, 0.0F}, {10.0F, 0.0F}, 2.0, 0, q1, q2);
    EXPECT_TRUE(q1.x == 0.0F && q1.y == 2.0F && q2.x == 10.0F && q2.y == 2.0F);
    for (const int side : {1, 2, -1}) {
        getParallelLine({0.0F, 0.0F}, {10.0F, 0.0F}, 2.0, side, q1, q2);
        EXPECT_TRUE(q1.x == 0.0F && q1.y == -2.0F && q2.x == 10.0F && q2.y == -2.0F);
    }
    getParallelLine({1.0F, 1.0F}, {4.0F, 5.0F}, 10.0, 0, q1, q2);
    EXPECT_FLOAT_EQ(q1.x, -7.0F);
    EXPECT_FLOAT_EQ(q1.y, 7.0F);
    EXPECT_FLOAT_EQ(q2.x, -4.0F);
    EXPECT_FLOAT_EQ(q2.y, 11.0F);
}

TEST(Plane, InnerCrossIsTheShiftedCorner) {
    PointF corner(-7.0F, -7.0F);
    getInnerCross({0.0F, 0.0F}, {10.0F, 0.0F}, {10.0F, 10.0F}, 2.0, 0, corner);
    EXPECT_TRUE(corner.x == 8.0F && corner.y == 2.0F);
    getInnerCross({0.0F, 0.0F}, {10.0F, 0.0F}, {10.0F, 10.0F}, 2.0, 1, corner);
    EXPECT_TRUE(corner.x == 12.0F && corner.y == -2.0F);
    getInnerCross({0.0F, 0.0F}, {10.0F, 0.0F}, {20.0F, 0.0F}, 2.0, 1, corner);
    EXPECT_TRUE(corner.x == 12.0F && corner.y == -2.0F) << "in one line: unchanged";
}

}  // namespace
