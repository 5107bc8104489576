// The matrix stack against the definitions of its transformations; no context needed.
#include <Orlek/OpenGL/MatrixStack.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace {

using namespace Orlek::OpenGL;

const auto atLoad = MatrixGet();

/// Where the present matrix puts the point (1, 0, 0).
void expectPoint(const std::array<double, 3>& expected) {
    const auto m = MatrixGet();
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(m.m[i] + m.m[12 + i], expected[i], 1e-6) << i;
    }
}

TEST(MatrixStack, StartsAsZeroAndAppliesTheLastTransformationFirst) {
    for (const float element : atLoad.m) {
        EXPECT_EQ(element, 0.0F);
    }
    MatrixLoadIdent();
    MatrixTranslate(10, 20, 30);
    MatrixScale(2, 3, 4);
    expectPoint({12, 20, 30});
    MatrixTranslate(0.5, -0.25, 0.125);
    expectPoint({13, 19.25, 30.5});
    EXPECT_EQ(MatrixGet().m[15], 1.0F);
}

TEST(MatrixStack, RotatesCounterClockwise) {
    const double d = 1 / std::sqrt(3.0);
    const struct {
        double angleDeg, x, y, z;
        std::array<double, 3> point;
    } rows[] = {
        {90, 0, 1, 0, {0, 0, -1}},
        {30, 0, 0, 1, {std::sqrt(3.0) / 2, 0.5, 0}},
        {120, d, d, d, {0, 1, 0}},  // about the diagonal: x to y, y to z, z to x
        {90, 2, 0, 0, {4, 0, 0}},   // the axis is not normalised
    };
    for (const auto& row : rows) {
        MatrixLoadIdent();
        MatrixRotate(row.angleDeg, row.x, row.y, row.z);
        expectPoint(row.point);
    }
}

TEST(MatrixStack, HoldsThirtyTwoLevels) {
    MatrixLoadIdent();
    MatrixPop();  // nothing below
    for (int push = 1; push <= 31; ++push) {
        MatrixPush();
        MatrixTranslate(1, 0, 0);
    }
    MatrixPush();  // ignored: the stack is full
    MatrixTranslate(100, 0, 0);
    for (double level = 31; level >= 1; --level) {
        MatrixPop();
        expectPoint({level, 0, 0});
    }
}

}  // namespace
