// Outlines as a sweep in floating point can follow them.
#pragma once

#include <Orlek/Math/Vector3.h>

#include <array>
#include <span>
#include <vector>

#include "rendering/geometry/EdgeBoxes.h"

namespace Orlek::Detail {

/// A corner of an outline, or a place where it meets itself.
struct OutlineCorner {
    GridPoint at;                 ///< in the plane, its axes scaled apart; below 2^27 in size
    std::array<double, 3> place;  ///< x, y and z
};

/// Puts a closed outline on a grid in the plane in which it is widest. Along each axis the grid has
/// 2^25 to 2^26 steps to the greatest coordinate, 2^16 to 2^17 for an outline with more than a
/// thousand crossings some of which are hardly apart. One with fewer crossings has a corner
/// wherever it meets itself, so that its edges have no more than ends in common. A corner in the
/// place of the one before it is left out.
/// @param outline finite
std::vector<OutlineCorner> sweepOutline(std::span<const Math::Vector3<float>> outline);

}  // namespace Orlek::Detail
