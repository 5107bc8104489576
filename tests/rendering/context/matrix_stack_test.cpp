// The matrix stack against the definitions of its transformations; no context needed.
#include <Orlek/OpenGL/MatrixStack.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace {

using namespace Orlek::OpenGL;
using Matrix = Orlek::Math::Matrix4<float>;
using Point = std::array<double, 3>;

Point apply(const Matrix& m, const Point& p) {
    Point result{};
    for (std::size_t r = 0; r < 3; ++r) {
        result[r] = m.m[r] * p[0] + m.m[4 + r] * p[1] + m.m[8 + r] * p[2] + m.m[12 + r];
    }
    return result;
}

void expectPoint(const Point& expected, double tolerance = 1e-6) {
    const Point actual = apply(MatrixGet(), {1, 0, 0});
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(actual[i], expected[i], tolerance) << i;
    }
}

// Runs first: nothing in this program has loaded a matrix before.
TEST(MatrixStack, StartsAsZero) {
    const Matrix atLoad = MatrixGet();
    for (const float element : atLoad.m) {
        EXPECT_EQ(element, 0.0F);
    }
}

TEST(MatrixStack, AppliesTheLastTransformationFirst) {
    MatrixLoadIdent();
    MatrixTranslate(10, 0, 0);
    MatrixScale(2, 2, 2);
    expectPoint({12, 0, 0});
    MatrixLoadIdent();
    MatrixScale(2, 2, 2);
    MatrixTranslate(10, 0, 0);
    expectPoint({22, 0, 0});
    MatrixTranslate(0.5, -0.25, 0.125);
    const Matrix m = MatrixGet();
    EXPECT_EQ(m.m[12], 21.0F);
    EXPECT_EQ(m.m[13], -0.5F);
    EXPECT_EQ(m.m[14], 0.25F);
    EXPECT_EQ(m.m[15], 1.0F);
}

TEST(MatrixStack, RotatesCounterClockwise) {
    MatrixLoadIdent();
    MatrixRotate(90, 0, 0, 1);
    expectPoint({0, 1, 0});
    MatrixLoadIdent();
    MatrixRotate(90, 0, 1, 0);
    expectPoint({0, 0, -1});
    MatrixLoadIdent();
    MatrixRotate(30, 0, 0, 1);
    expectPoint({std::sqrt(3.0) / 2, 0.5, 0});
    // A third of a turn about the diagonal moves x to y, y to z, z to x.
    const double d = 1 / std::sqrt(3.0);
    MatrixLoadIdent();
    MatrixRotate(120, d, d, d);
    expectPoint({0, 1, 0});
}

// The axis is used as given: with length 2 the diagonal terms grow by its square.
TEST(MatrixStack, DoesNotNormaliseTheAxis) {
    MatrixLoadIdent();
    MatrixRotate(90, 2, 0, 0);
    EXPECT_FLOAT_EQ(MatrixGet().m[0], 4.0F);
    EXPECT_FLOAT_EQ(MatrixGet().m[6], 2.0F);
}

TEST(MatrixStack, MultipliesColumnMajor) {
    Matrix a{};
    Matrix b{};
    for (std::size_t i = 0; i < 16; ++i) {
        a.m[i] = static_cast<float>(i + 1);
        b.m[i] = static_cast<float>(17 - static_cast<int>(i));
    }
    MatrixSet(a);
    MatrixMult(b);
    const Matrix p = MatrixGet();
    EXPECT_EQ(p.m[0], 1 * 17 + 5 * 16 + 9 * 15 + 13 * 14);
    EXPECT_EQ(p.m[7], 4 * 13 + 8 * 12 + 12 * 11 + 16 * 10);
    EXPECT_EQ(p.m[14], 3 * 5 + 7 * 4 + 11 * 3 + 15 * 2);
}

TEST(MatrixStack, HoldsThirtyTwoLevels) {
    MatrixLoadIdent();
    MatrixPop();  // nothing below
    expectPoint({1, 0, 0});
    for (int push = 1; push <= 31; ++push) {
        MatrixPush();
        MatrixTranslate(1, 0, 0);
    }
    expectPoint({32, 0, 0});
    MatrixPush();  // ignored: the stack is full
    MatrixTranslate(100, 0, 0);
    MatrixPop();
    for (double level = 31; level >= 1; --level) {
        expectPoint({level, 0, 0});
        MatrixPop();
    }
    expectPoint({1, 0, 0});
}

}  // namespace
