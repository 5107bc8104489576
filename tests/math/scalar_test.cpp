// Wrapping, clamping, linear interpolation and the lag filter.
#include <Orlek/Math/Filter.h>
#include <Orlek/Math/Scalar.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using namespace Orlek::Math;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(Scalar, CircLimitReachesBothEnds) {
    const struct {
        double value;
        double min;
        double max;
        double result;
    } rows[] = {
        {-360.0, 0.0, 360.0, 360.0},  // whole ranges below land on max
        {-720.0, 0.0, 360.0, 360.0},  //
        {720.0, 0.0, 360.0, 0.0},     // whole ranges above land on min
        {1080.0, 0.0, 360.0, 0.0},    //
        {0.0, 0.0, 360.0, 0.0},       // the ends stay
        {360.0, 0.0, 360.0, 360.0},   //
        {-90.0, 0.0, 360.0, 270.0},   //
        {-450.0, 0.0, 360.0, 270.0},  //
        {810.0, 0.0, 360.0, 90.0},    //
        {190.0, -180.0, 180.0, -170.0}, {-1e-20, 0.0, 360.0, 360.0},  // rounds to the upper end
    };
    for (const auto& row : rows)
        EXPECT_EQ(circLimit<double>(row.value, row.min, row.max), row.result) << row.value;
}

TEST(Scalar, CircLimitBearsWhatCannotBeWrapped) {
    EXPECT_TRUE(std::isnan(circLimit<double>(nan, 0.0, 360.0)));
    EXPECT_EQ(circLimit<double>(infinity, 0.0, 360.0), infinity);
    EXPECT_EQ(circLimit<double>(-infinity, 0.0, 360.0), -infinity);
    EXPECT_EQ(circLimit<double>(1e300, 0.0, 360.0), 1e300);
    EXPECT_EQ(circLimit<double>(-1e300, 0.0, 360.0), -1e300);
}

TEST(Scalar, ClampAndInterpolate) {
    EXPECT_EQ(clampTo<float>(-1.0F, 0.0F, 2.0F), 0.0F);
    EXPECT_EQ(clampTo<float>(1.5F, 0.0F, 2.0F), 1.5F);
    EXPECT_EQ(clampTo<float>(3.0F, 0.0F, 2.0F), 2.0F);
    EXPECT_EQ(interpolate<float>(5.0F, 0.0F, 10.0F, 100.0F, 200.0F), 150.0F);
    EXPECT_EQ(interpolate<float>(11.0F, 0.0F, 10.0F, 100.0F, 200.0F), 200.0F);
    EXPECT_EQ(interpolate<float>(-1.0F, 0.0F, 10.0F, 100.0F, 200.0F), 100.0F);
    EXPECT_EQ(interpolate<float>(2.0F, 10.0F, 0.0F, 100.0F, 200.0F), 180.0F) << "falling x";
}

TEST(Filter, FollowsItsInputAndBoundsTheStep) {
    double state = 0.0;
    EXPECT_EQ(Filter::pt1(10.0, 1.0, 1.0, &state), 5.0);
    EXPECT_EQ(state, 5.0);
    EXPECT_EQ(Filter::pt1(10.0, 1.0, 3.0, &state), 7.5) << "a step of 3 counts as 1";
    EXPECT_EQ(Filter::pt1(10.0, 0.0, 0.5, &state), 10.0) << "no lag";
    state = 8.0;
    EXPECT_EQ(Filter::pt1(0.0, 3.0, 0.0, &state), 8.0) << "no time passed";
}

}  // namespace
