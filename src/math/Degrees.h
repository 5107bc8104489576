// Degrees and radians, and the wrap of compass angles.
#pragma once

#include <Orlek/Math/Scalar.h>
#include <Orlek/Math/Vector2.h>

namespace Orlek::Detail {

inline constexpr double radiansPerDegree = 0.017453292519943295;
inline constexpr double degreesPerRadian = 57.29577951308232;

/// Wraps an angle in degrees into [0, 360]; both ends can be reached.
inline double wrap360(double degrees) {
    return Math::circLimit<double>(degrees, 0.0, 360.0);
}

}  // namespace Orlek::Detail
