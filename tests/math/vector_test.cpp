// The vector types and the matrix: their layout and operations.
#include <Orlek/Math/Matrix4.h>
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

}  // namespace
