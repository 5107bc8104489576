// Wrapping, clamping, linear interpolation and the lag filter.
#include <Orlek/Math/Filter.h>
#include <Orlek/Math/Scalar.h>

#include "math/Reference.h"

namespace {

using namespace Orlek::Math;
using namespace OrlekTest;

TEST(Scalar, CircLimitReachesBothEnds) {
    const struct {
        double value, min, max, result;
    } rows[] = {
        {-360, 0, 360, 360},  // whole ranges below land on max
        {-720, 0, 360, 360},  //
        {720, 0, 360, 0},     // whole ranges above land on min
        {0, 0, 360, 0},       // the ends stay
        {360, 0, 360, 360},   //
        {-450, 0, 360, 270},
        {190, -180, 180, -170},
        {-1e-20, 0, 360, 360},         // rounds to the upper end
        {infinity, 0, 360, infinity},  // what cannot be wrapped stays
        {-1e300, 0, 360, -1e300},      //
    };
    for (const auto& row : rows)
        EXPECT_EQ(circLimit<double>(row.value, row.min, row.max), row.result) << row.value;
    EXPECT_TRUE(std::isnan(circLimit<double>(notANumber, 0, 360)));
}

TEST(Scalar, InterpolationStaysBetweenItsEnds) {
    EXPECT_EQ(interpolate<float>(5, 0, 10, 100, 200), 150.0F);
    EXPECT_EQ(interpolate<float>(11, 0, 10, 100, 200), 200.0F);
    EXPECT_EQ(interpolate<float>(-1, 0, 10, 100, 200), 100.0F);
    EXPECT_EQ(interpolate<float>(2, 10, 0, 100, 200), 180.0F) << "falling x";
}

TEST(Filter, FollowsItsInputAndBoundsTheStep) {
    double state = 0.0;
    EXPECT_EQ(Filter::pt1(10.0, 1.0, 1.0, &state), 5.0);
    EXPECT_EQ(Filter::pt1(10.0, 1.0, 3.0, &state), 7.5) << "a step of 3 counts as 1";
    EXPECT_EQ(Filter::pt1(10.0, 0.0, 0.5, &state), 10.0) << "no lag";
    EXPECT_EQ(Filter::pt1(0.0, 3.0, 0.0, &state), 10.0) << "no time passed";
}

}  // namespace
