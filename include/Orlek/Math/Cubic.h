#pragma once

/// @file
/// Cubic interpolation between equally spaced samples.
///
/// The spline of E. Catmull and R. Rom, "A class of local interpolating splines", Computer Aided
/// Geometric Design, 1974, with tension 1/2: it passes through the samples and has a continuous
/// slope. The functions are inline because elevation queries call them for each of many points.

#include <Orlek/Math/Vector2.h>

/// @cond internal
namespace Orlek::Math::Detail {

// T is double, or several of them side by side; U is T, or a double for all of them.
template <typename T, typename U>
inline T cubicValue(T p0, T p1, T p2, T p3, U t) {
    const U t2 = t * t;
    const U t3 = t2 * t;
    return (1.5 * p1 - 0.5 * p0 - 1.5 * p2 + 0.5 * p3) * t3 +
           (p0 - 2.5 * p1 + 2.0 * p2 - 0.5 * p3) * t2 + (0.5 * p2 - 0.5 * p0) * t + p1;
}

template <typename T, typename U>
inline T cubicDerivate(T p0, T p1, T p2, T p3, U t) {
    const U t2 = t * t;
    return 3.0 * (1.5 * p1 - 0.5 * p0 - 1.5 * p2 + 0.5 * p3) * t2 +
           2.0 * (p0 - 2.5 * p1 + 2.0 * p2 - 0.5 * p3) * t + (0.5 * p2 - 0.5 * p0);
}

}  // namespace Orlek::Math::Detail
/// @endcond

namespace Orlek::Math {

/// Interpolates between the second and the third of four samples.
/// @param p array of 4 samples at the places -1, 0, 1 and 2.
/// @param t the place, 0 at p[1] and 1 at p[2]; beyond them the cubic goes on.
/// @return the value at @p t.
/// May be called from any thread.
inline double getCubicValue(const double* p, double t) {
    return Detail::cubicValue(p[0], p[1], p[2], p[3], t);
}

/// Gives the slope of getCubicValue().
/// @param p array of 4 samples at the places -1, 0, 1 and 2.
/// @param t the place, 0 at p[1] and 1 at p[2]; beyond them the cubic goes on.
/// @return the derivative by @p t.
/// May be called from any thread.
inline double getCubicDerivate(const double* p, double t) {
    return Detail::cubicDerivate(p[0], p[1], p[2], p[3], t);
}

/// Interpolates in the middle cell of a grid of 4 by 4 samples.
/// @param p 4 rows of 4 samples; the row runs along x, the place in a row along y, both at the
///        places -1, 0, 1 and 2.
/// @param x, y the place, from (0, 0) at p[1][1] to (1, 1) at p[2][2]; beyond them the cubics go
///        on.
/// @return the value there.
/// May be called from any thread.
inline double getBiCubicValue(const double (*p)[4], double x, double y) {
    const double alongX[4] = {getCubicValue(p[0], y), getCubicValue(p[1], y),
                              getCubicValue(p[2], y), getCubicValue(p[3], y)};
    return getCubicValue(alongX, x);
}

/// Gives the slopes of getBiCubicValue().
/// @param p 4 rows of 4 samples; the row runs along x, the place in a row along y, both at the
///        places -1, 0, 1 and 2.
/// @param x, y the place, from (0, 0) at p[1][1] to (1, 1) at p[2][2]; beyond them the cubics go
///        on.
/// @return the derivatives by x and by y.
/// May be called from any thread.
inline Vector2<double> getBiCubicDerivate(const double (*p)[4], double x, double y) {
    double alongX[4];
    double alongY[4];
    for (int i = 0; i < 4; ++i) {
        const double column[4] = {p[0][i], p[1][i], p[2][i], p[3][i]};
        alongX[i] = getCubicValue(p[i], y);
        alongY[i] = getCubicValue(column, x);
    }
    return {getCubicDerivate(alongX, x), getCubicDerivate(alongY, y)};
}

}  // namespace Orlek::Math
