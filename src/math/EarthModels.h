// The earth models of the geodetic functions.
#pragma once

#include <cmath>

#include "math/Degrees.h"

namespace Orlek::Detail {

/// Metres per degree of latitude on the flat grid: 6378137 m times pi / 180.
inline constexpr double metresPerDegree = 111319.49079327358;
/// Radius of the earth-centred sphere in metres.
inline constexpr double earthRadius = 6378137.0;
/// Great circles are measured in nautical miles, one for each minute of arc.
inline constexpr double minutesPerDegree = 60.0;
inline constexpr double metresPerMinute = 1852.0;

inline double cosDegrees(double degrees) {
    return std::cos(degrees * radiansPerDegree);
}

inline double sinDegrees(double degrees) {
    return std::sin(degrees * radiansPerDegree);
}

}  // namespace Orlek::Detail
