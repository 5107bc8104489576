// The vector types and the matrix: their layout and operations.
#include <Orlek/Math/Matrix4.h>
#include <Orlek/Math/Vector2.h>
#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <numbers>
#include <type_traits>

#include "math/Reference.h"

namespace {

using namespace Orlek::Math;
using OrlekTest::eps;
using std::numbers::pi;

template <typename T, std::size_t floats>
constexpr bool isPacked = std::is_standard_layout_v<T>&& std::is_trivially_copyable_v<T> &&
                          sizeof(T) == 4 * floats;

static_assert(isPacked<Vector2<float>, 2> && isPacked<Vector2<double>, 4>);
static_assert(isPacked<Vector3<float>, 3> && isPacked<Vector3<double>, 6>);
static_assert(isPacked<Vector4<float>, 4> && isPacked<Matrix4<float>, 16>);
static_assert(std::is_trivially_default_constructible_v<Vector2<float>>);
static_assert(std::is_trivially_default_constructible_v<Vector2<double>>);
static_assert(std::is_trivially_default_constructible_v<Vector4<float>>);
static_assert(std::is_aggregate_v<Matrix4<float>>);
static_assert(std::is_convertible_v<Vector2<double>, Vector2<float>>);
static_assert(!std::is_convertible_v<Vector2<float>, Vector2<double>>);

TEST(Vector, ArraysAreArraysOfTheirComponents) {
    const Vector3<float> points[2] = {{1.0F, 2.0F, 3.0F}, {}};
    const float expected[6] = {1.0F, 2.0F, 3.0F, 0.0F, 0.0F, 0.0F};
    EXPECT_EQ(std::memcmp(points, expected, sizeof expected), 0);
}

TEST(Vector2, HeadingRunsClockwiseFromNorth) {
    EXPECT_EQ(Vector2<double>(0.0, 1.0).Heading(), 0.0);
    EXPECT_EQ(Vector2<double>(1.0, 0.0).Heading(), pi / 2);
    EXPECT_EQ(Vector2<double>(0.0, -1.0).Heading(), pi);
    EXPECT_EQ(Vector2<double>(-1.0, 0.0).Heading(), 3 * pi / 2);
    EXPECT_EQ(Vector2<double>(0.0, 0.0).Heading(), 0.0);
}

TEST(Vector2, LeftRightTellsTheSide) {
    Vector2<double> east(1.0, 0.0);
    EXPECT_EQ(east.LeftRight({0.0, -1.0}), 1);
    EXPECT_EQ(east.LeftRight({0.0, 1.0}), 0);
    EXPECT_EQ(east.LeftRight({2.0, 0.0}), 1);
    EXPECT_EQ(east.LeftRight({-2.0, 0.0}), 1);
}

TEST(Vector2, SumsLengthsAndAngles) {
    Vector2<double> v(3.0, 4.0);
    EXPECT_EQ(v.Length(), 5.0);
    EXPECT_EQ(v.LengthSquared(), 25.0);
    v += Vector2<double>(1.0, 1.0);
    const Vector2<double> difference = v + Vector2<double>(0.5, 0.25) - Vector2<double>(1.0, 2.0);
    EXPECT_EQ(difference.x, 3.5);
    EXPECT_EQ(difference.y, 3.25);
    EXPECT_NEAR(Vector2<double>(1.0, 0.0).angle({-1.0, -1.0}), 3 * pi / 4, 4 * eps);
    EXPECT_NEAR(Vector2<double>(1.0, 0.0).angle({0.0, 5.0}), pi / 2, 2 * eps);
    EXPECT_TRUE(std::isnan(Vector2<double>(1.0, 0.0).angle({0.0, 0.0})));
    EXPECT_EQ(Vector2<float>(3.0F, 4.0F).Length(), 5.0F);
    EXPECT_EQ((Vector2<float>(3.0F, 4.0F) + Vector2<float>(1.0F, 2.0F)).y, 6.0F);
}

// The reciprocal of the length is rounded to single precision, half a unit of 2^-24 at most.
TEST(Vector2, NormalizeIsExactToSinglePrecision) {
    OrlekTest::Numbers number;
    for (int i = 0; i < 1000; ++i) {
        Vector2<double> v(number(-1e6, 1e6), number(-1e6, 1e6));
        const Vector2<double> before = v;
        v.Normalize();
        EXPECT_NEAR(v.Length(), 1.0, 0x1p-24 + 4 * eps);
        EXPECT_NEAR(v.x * before.y, v.y * before.x, 4 * eps * before.Length());
    }
    Vector2<double> v(3.0, 4.0);
    v.Normalize();
    EXPECT_EQ(v.x, 3.0 * double{0.2F});
    EXPECT_EQ(v.y, 4.0 * double{0.2F});
    Vector2<double> zero(0.0, 0.0);
    zero.Normalize();
    EXPECT_TRUE(std::isnan(zero.x) && std::isnan(zero.y));
}

TEST(Vector2, RotateAndScale) {
    Vector2<double> v(1.0, 0.0);
    v.Rotate(pi / 2);
    EXPECT_NEAR(v.x, 0.0, eps);
    EXPECT_EQ(v.y, 1.0);
    v.Rotate(-pi / 3);
    EXPECT_NEAR(v.x, std::sqrt(3.0) / 2, 4 * eps);
    EXPECT_NEAR(v.y, 0.5, 4 * eps);
    Vector2<float> f(0.0F, 2.0F);
    f.Rotate(pi / 6);
    EXPECT_FLOAT_EQ(f.x, -1.0F);
    EXPECT_FLOAT_EQ(f.y, std::sqrt(3.0F));
    f = {3.0F, -1.0F};
    f.Scale(1.0 / 3.0, 1e-300);
    EXPECT_EQ(f.x, 1.0F);
    EXPECT_EQ(f.y, -0.0F);
}

TEST(Vector2, LinearToHasAnAbsoluteTolerance) {
    const struct {
        Vector2<double> one;
        Vector2<double> other;
        bool linear;
    } rows[] = {
        {{2.0, 4.0}, {1.0, 2.0}, true},     {{2.0, 4.01}, {1.0, 2.0}, false},
        {{-2.0, -4.0}, {1.0, 2.0}, true},   {{7.0, -3.0}, {0.0, 0.0}, true},
        {{0.0009, 5.0}, {0.0, -2.0}, true}, {{0.0011, 5.0}, {0.0, -2.0}, false},
        {{5.0, 0.0009}, {-2.0, 0.0}, true}, {{5.0, 0.0011}, {-2.0, 0.0}, false},
        {{0.0, 5.0}, {1.0, 0.0}, false},    {{5.0, 0.0}, {0.0, 1.0}, false},
    };
    for (auto row : rows)
        EXPECT_EQ(row.one.linearTo(row.other), row.linear) << row.one.x << " " << row.one.y;
}

TEST(Vector3, CrossFollowsTheRightHand) {
    const Vector3<float> f = Vector3<float>(1.0F, 2.0F, 3.0F).Cross({4.0F, 5.0F, 6.0F});
    EXPECT_EQ(f.x, -3.0F);
    EXPECT_EQ(f.y, 6.0F);
    EXPECT_EQ(f.z, -3.0F);
    const Vector3<double> d = Vector3<double>(1.0, 2.0, 3.0).Cross({4.0, 5.0, 6.0});
    EXPECT_EQ(d.x, -3.0);
    EXPECT_EQ(d.y, 6.0);
    EXPECT_EQ(d.z, -3.0);
}

TEST(Vector3, SumsScalingAndUnitLength) {
    const Vector3<float> v = (Vector3<float>(1.0F, 2.0F, 3.0F) * 4.0F -
                              Vector3<float>(1.0F, 1.0F, 1.0F) + Vector3<float>(1.0F, 0.0F, 0.0F)) /
                             2.0F;
    EXPECT_EQ(v.x, 2.0F);
    EXPECT_EQ(v.y, 3.5F);
    EXPECT_EQ(v.z, 5.5F);
    Vector3<float> w(2.0F, 3.0F, 6.0F);
    EXPECT_EQ(w.Length(), 7.0F);
    EXPECT_EQ(w.Normalized().z, 6.0F * (1.0F / 7.0F));
    EXPECT_EQ(w.x, 2.0F);
    w.Normalize();
    EXPECT_EQ(w.x, 2.0F * (1.0F / 7.0F));
    EXPECT_TRUE(std::isnan(Vector3<float>().Normalized().x));
    Vector3<double> turned(1.0, 0.0, 9.0);
    turned.RotateZ(pi / 2);
    EXPECT_NEAR(turned.x, 0.0, eps);
    EXPECT_EQ(turned.y, 1.0);
    EXPECT_EQ(turned.z, 9.0);
    EXPECT_EQ((Vector3<double>(1.0, 2.0, 3.0) - Vector3<double>(3.0, 2.0, 1.0)).x, -2.0);
}

}  // namespace
