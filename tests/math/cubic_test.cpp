// Cubic interpolation, held against the Hermite form of the same spline in extended precision.
#include <Orlek/Math/Cubic.h>
#include <gtest/gtest.h>

#include <cmath>

#include "math/Reference.h"

namespace {

using namespace Orlek::Math;
using OrlekTest::eps;

// The spline by its definition: between p1 and p2 with the slopes (p2 - p0) / 2 and (p3 - p1) / 2.
long double hermite(const double* p, long double t) {
    const long double m1 = (static_cast<long double>(p[2]) - p[0]) / 2;
    const long double m2 = (static_cast<long double>(p[3]) - p[1]) / 2;
    const long double u = 1 - t;
    return (1 + 2 * t) * u * u * p[1] + t * u * u * m1 + t * t * (3 - 2 * t) * p[2] -
           t * t * u * m2;
}

long double hermiteSlope(const double* p, long double t) {
    const long double m1 = (static_cast<long double>(p[2]) - p[0]) / 2;
    const long double m2 = (static_cast<long double>(p[3]) - p[1]) / 2;
    return 6 * t * (1 - t) * (static_cast<long double>(p[2]) - p[1]) + (1 - t) * (1 - 3 * t) * m1 +
           t * (3 * t - 2) * m2;
}

TEST(Cubic, EqualsTheHermiteForm) {
    OrlekTest::Numbers number;
    for (int i = 0; i < 2000; ++i) {
        const double p[4] = {number(-9000, 9000), number(-9000, 9000), number(-9000, 9000),
                             number(-9000, 9000)};
        const double t = number(-1.0, 2.0);
        // Coefficients up to 5 x 9000 times at most 8, summed in some ten roundings.
        constexpr double tolerance = 10 * eps * 5 * 9000 * 8;
        EXPECT_NEAR(getCubicValue(p, t), static_cast<double>(hermite(p, t)), tolerance);
        EXPECT_NEAR(getCubicDerivate(p, t), static_cast<double>(hermiteSlope(p, t)), 3 * tolerance);
    }
}

TEST(Cubic, PassesThroughTheSamplesAndKeepsStraightLines) {
    const double samples[4] = {3.0, -7.5, 120.25, 64.0};
    EXPECT_EQ(getCubicValue(samples, 0.0), -7.5);
    EXPECT_EQ(getCubicValue(samples, 1.0), 120.25);
    EXPECT_EQ(getCubicDerivate(samples, 0.0), (120.25 - 3.0) / 2);
    EXPECT_EQ(getCubicDerivate(samples, 1.0), (64.0 + 7.5) / 2);
    const double line[4] = {0.0, 1.0, 2.0, 3.0};
    for (const double t : {-1.0, 0.25, 0.5, 2.0}) {
        EXPECT_EQ(getCubicValue(line, t), t + 1.0);
        EXPECT_EQ(getCubicDerivate(line, t), 1.0);
    }
}

// Samples g(x) h(y) interpolate to the product of the two splines, which tells the axes apart.
TEST(Cubic, TwoDimensionsRunRowsAlongXAndColumnsAlongY) {
    const double g[4] = {2.0, -3.0, 5.0, 1.0};
    const double h[4] = {-1.0, 4.0, 0.5, 7.0};
    double p[4][4];
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            p[i][j] = g[i] * h[j];
    OrlekTest::Numbers number;
    for (int i = 0; i < 500; ++i) {
        const double x = number(-0.5, 1.5);
        const double y = number(-0.5, 1.5);
        constexpr double tolerance = 1e-12;  // values below 500 in some thirty roundings
        EXPECT_NEAR(getBiCubicValue(p, x, y), static_cast<double>(hermite(g, x) * hermite(h, y)),
                    tolerance);
        const Vector2<double> slope = getBiCubicDerivate(p, x, y);
        EXPECT_NEAR(slope.x, static_cast<double>(hermiteSlope(g, x) * hermite(h, y)), tolerance);
        EXPECT_NEAR(slope.y, static_cast<double>(hermite(g, x) * hermiteSlope(h, y)), tolerance);
    }
}

}  // namespace
