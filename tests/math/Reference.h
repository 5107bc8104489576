// What the tests of this folder share: independent references in extended precision, positions,
// and comparisons that say where a point lies.
#pragma once

#include <Orlek/Math/Vector2.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>

namespace OrlekTest {

using Point = Orlek::Math::Vector2<double>;
using PointF = Orlek::Math::Vector2<float>;

inline constexpr double eps = std::numeric_limits<double>::epsilon();
inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
inline constexpr double infinity = std::numeric_limits<double>::infinity();
inline constexpr long double pi = 3.14159265358979323846264338327950288L;
inline constexpr double metresPerDegree = 111319.49079327358;

constexpr double rounded(long double value) {
    return static_cast<double>(value);
}

constexpr long double radians(long double degrees) {
    return degrees * (pi / 180.0L);
}

constexpr long double degrees(long double radians) {
    return radians * (180.0L / pi);
}

inline testing::AssertionResult isAt(Point actual, Point expected, double tolerance) {
    const Point off = actual - expected;
    if (std::abs(off.x) <= tolerance && std::abs(off.y) <= tolerance)
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << actual.x << ", " << actual.y << " instead of " << expected.x << ", " << expected.y;
}

/// Numbers evenly spread over [low, high], the same in every run and on every machine.
class Numbers {
public:
    double operator()(double low, double high) {
        const double unit = static_cast<double>(mEngine() >> 11U) * 0x1p-53;
        return low + unit * (high - low);
    }

    Point point(double reach) {
        const double x = (*this)(-reach, reach);
        return {x, (*this)(-reach, reach)};
    }

private:
    std::mt19937_64 mEngine{20240229};
};

/// Vectors of three long doubles: towards a position, its east and its north.
using Axis = std::array<long double, 3>;

inline long double dot(const Axis& a, const Axis& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

inline long double sineBetween(const Axis& a, const Axis& b) {
    return std::hypot(a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2],
                      a[0] * b[1] - a[1] * b[0]);
}

/// A position in degrees; at first one that no test expects.
struct Position {
    double lat = -7.0;
    double lon = -7.0;
};

struct Place {
    Axis up;
    Axis east;
    Axis north;

    explicit Place(Position position) {
        const long double lat = radians(position.lat);
        const long double lon = radians(position.lon);
        up = {std::cos(lat) * std::cos(lon), std::cos(lat) * std::sin(lon), std::sin(lat)};
        east = {-std::sin(lon), std::cos(lon), 0.0L};
        north = {-std::sin(lat) * std::cos(lon), -std::sin(lat) * std::sin(lon), std::cos(lat)};
    }
};

}  // namespace OrlekTest
