// Cubic interpolation, held against the Hermite form of the same spline in extended precision.
#include <Orlek/Math/Cubic.h>

#include "math/Reference.h"

namespace {

using namespace Orlek::Math;
using namespace OrlekTest;

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
