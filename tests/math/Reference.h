// What the tests of this folder share: independent references in extended precision, and the
// distance between doubles.
#pragma once

#include <Orlek/Math/Vector2.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>

namespace OrlekTest {

using Point = Orlek::Math::Vector2<double>;
using PointF = Orlek::Math::Vector2<float>;

inline constexpr double eps = std::numeric_limits<double>::epsilon();
inline constexpr long double pi = 3.14159265358979323846264338327950288L;

inline long double radians(long double degrees) {
    return degrees * (pi / 180.0L);
}

inline long double degrees(long double radians) {
    return radians * (180.0L / pi);
}

/// Numbers evenly spread over [low, high], the same in every run and on every machine.
class Numbers {
public:
    double operator()(double low, double high) {
        const double unit = static_cast<double>(mEngine() >> 11U) * 0x1p-53;
        return low + unit * (high - low);
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

struct Place {
    Axis up;
    Axis east;
    Axis north;

    Place(double latDeg, double lonDeg) {
        const long double sinLat = std::sin(radians(latDeg));
        const long double cosLat = std::cos(radians(latDeg));
        const long double sinLon = std::sin(radians(lonDeg));
        const long double cosLon = std::cos(radians(lonDeg));
        up = {cosLat * cosLon, cosLat * sinLon, sinLat};
        east = {-sinLon, cosLon, 0.0L};
        north = {-sinLat * cosLon, -sinLat * sinLon, cosLat};
    }
};

}  // namespace OrlekTest
