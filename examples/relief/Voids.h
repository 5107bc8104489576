// Holes in elevation data.
#pragma once

#include "ReliefImage.h"

namespace MovingMap {

/// Hatches holes. Samples without data read as sea level, so that a hole in the mountains looks
/// like a lake at the foot of cliffs all around it; no real water is surrounded so.
/// @param metresPerTexel what a texel of the image stands for
/// @param step pixels of the picture for each texel
void hatchVoids(ReliefImage& image, double metresPerTexel, int step);

}  // namespace MovingMap
