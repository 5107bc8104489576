// The colours of what lies over the relief.
#pragma once

#include <array>
#include <cstdint>

namespace MovingMap {

using Rgba = std::array<std::uint8_t, 4>;

/// How much of a place at a height is water, 0 to 1.
double waterShare(double heightM);

/// Water that covers this share of a texel, 0 to 1; none is transparent.
Rgba waterCover(double share);

/// Missing terrain: diagonal lines, fixed to the pixels of the picture.
Rgba hatchCover(int x, int y);

/// Whether a cover is water, at least for its larger part.
bool isWater(const std::uint8_t* cover);

}  // namespace MovingMap
