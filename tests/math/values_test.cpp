// Vectors and the matrix, numbers that are wrapped, clamped and filtered, cubic interpolation.
#include <Orlek/Math/Cubic.h>
#include <Orlek/Math/Filter.h>
#include <Orlek/Math/Matrix4.h>
#include <Orlek/Math/Scalar.h>
#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>

#include <type_traits>

#include "math/Reference.h"

namespace {

using namespace Orlek::Math;
using namespace OrlekTest;

constexpr double halfTurn = 3.14159265358979323846;

// Arrays of them go to OpenGL as arrays of their components.
template <typename T, std::size_t floats>
constexpr bool isPacked = std::is_standard_layout_v<T>&& std::is_trivially_copyable_v<T> &&
                          sizeof(T) == 4 * floats;
static_assert(isPacked<PointF, 2> && isPacked<Point, 4> && isPacked<Vector4<float>, 4>);
static_assert(isPacked<Vector3<float>, 3> && isPacked<Vector3<double>, 6>);
static_assert(isPacked<Matrix4<float>, 16> && std::is_aggregate_v<Matrix4<float>>);
static_assert(std::is_convertible_v<Point, PointF> && !std::is_convertible_v<PointF, Point>);

TEST(Vector2, HeadingRunsClockwiseFromNorth) {
    EXPECT_EQ(Point(1.0, 0.0).Heading(), halfTurn / 2);
    EXPECT_EQ(Point(-1.0, 0.0).Heading(), 3 * halfTurn / 2);
    EXPECT_EQ(Point(1.0, 0.0).LeftRight({0.0, -1.0}), 1);
    EXPECT_EQ(Point(1.0, 0.0).LeftRight({0.0, 1.0}), 0);
    EXPECT_EQ(Point(1.0, 0.0).LeftRight({-2.0, 0.0}), 1) << "parallel";
    EXPECT_NEAR(Point(1.0, 0.0).angle({-1.0, -1.0}), 3 * halfTurn / 4, 4 * eps);
}

TEST(Vector2, NormalizesRotatesAndScales) {
    Point v(3.0, 4.0);
    v.Normalize();  // the reciprocal of the length is rounded to single precision
    EXPECT_TRUE(isAt(v, {3.0 * double{0.2F}, 4.0 * double{0.2F}}, 0.0));
    v = {0.0, 2.0};
    v.Rotate(halfTurn / 6);
    EXPECT_TRUE(isAt(v, {-1.0, std::sqrt(3.0)}, 4 * eps));
    PointF f(0.0F, 2.0F);
    f.Rotate(halfTurn / 6);
    f.Scale(1e30 / 3.0, 1e-300);
    EXPECT_FLOAT_EQ(f.x, -1e30F / 3.0F);
    EXPECT_EQ(f.y, 0.0F);
}

TEST(Vector2, LinearToHasAnAbsoluteTolerance) {
    EXPECT_TRUE(Point(-2.0, -4.0009).linearTo({1.0, 2.0}));
    EXPECT_FALSE(Point(2.0, 4.0011).linearTo({1.0, 2.0}));
    EXPECT_TRUE(Point(0.0009, 5.0).linearTo({0.0, -2.0}));
    EXPECT_FALSE(Point(0.0011, 5.0).linearTo({0.0, -2.0}));
    EXPECT_TRUE(Point(7.0, -3.0).linearTo({0.0, 0.0}));
}

TEST(Vector3, CrossFollowsTheRightHand) {
    const Vector3<float> f = Vector3<float>(1, 2, 3).Cross({4, 5, 6});
    EXPECT_TRUE(f.x == -3 && f.y == 6 && f.z == -3);
    const Vector3<double> d = Vector3<double>(1, 2, 3).Cross({4, 5, 6});
    EXPECT_TRUE(d.x == -3 && d.y == 6 && d.z == -3);
    EXPECT_EQ(Vector3<float>(2, 3, 6).Normalized().x, 2.0F * (1.0F / 7.0F));
    Vector3<double> turned(0.0, 2.0, 9.0);
    turned.RotateZ(halfTurn / 6);
    EXPECT_TRUE(isAt({turned.x, turned.y}, {-1.0, std::sqrt(3.0)}, 4 * eps));
    EXPECT_EQ(turned.z, 9.0);
}

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

struct Spline {
    long double value;
    long double slope;
};

// By its definition: between p1 and p2 with the slopes (p2 - p0) / 2 and (p3 - p1) / 2.
Spline hermite(const double (&p)[4], long double t) {
    const long double m1 = (static_cast<long double>(p[2]) - p[0]) / 2;
    const long double m2 = (static_cast<long double>(p[3]) - p[1]) / 2;
    const long double rise = static_cast<long double>(p[2]) - p[1];
    const long double u = 1 - t;
    return {p[1] + t * t * (3 - 2 * t) * rise + t * u * u * m1 - t * t * u * m2,
            6 * t * u * rise + u * (1 - 3 * t) * m1 + t * (3 * t - 2) * m2};
}

// Samples g(x) h(y) interpolate to the product of the two splines, which tells the axes apart.
TEST(Cubic, EqualsTheHermiteFormInOneAndTwoDimensions) {
    Numbers number;
    for (int i = 0; i < 2000; ++i) {
        const double g[4] = {number(-9, 9), number(-9, 9), number(-9, 9), number(-9, 9)};
        const double h[4] = {number(-9, 9), number(-9, 9), number(-9, 9), number(-9, 9)};
        double p[4][4];
        for (int k = 0; k < 16; ++k)
            p[k / 4][k % 4] = g[k / 4] * h[k % 4];
        const double x = number(-1, 2);
        const double y = number(-1, 2);
        const Spline alongX = hermite(g, x);
        const Spline alongY = hermite(h, y);
        // Coefficients up to 5 x 9 times at most 8, summed in some ten roundings.
        constexpr double tolerance = 10 * eps * 5 * 9 * 8;
        EXPECT_NEAR(getCubicValue(g, x), rounded(alongX.value), tolerance);
        EXPECT_NEAR(getCubicDerivate(g, x), rounded(alongX.slope), 3 * tolerance);
        constexpr double squared = 3 * tolerance * 5 * 9 * 8;
        EXPECT_NEAR(getBiCubicValue(p, x, y), rounded(alongX.value * alongY.value), squared);
        const Point slope(rounded(alongX.slope * alongY.value),
                          rounded(alongX.value * alongY.slope));
        EXPECT_TRUE(isAt(getBiCubicDerivate(p, x, y), slope, 3 * squared));
    }
}

}  // namespace
