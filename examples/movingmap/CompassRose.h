// The compass rose and the range rings around the aircraft.
#pragma once

#include <vector>

#include "Canvas.h"
#include "LabelPlacer.h"
#include "Scene.h"

namespace MovingMap {

/// Draws rings at half and full range, the outer one with a scale of degrees and a pointer at the
/// heading.
/// @return the places of its figures
std::vector<Box> drawCompassRose(Canvas& canvas, const MapView& view, const Scene& scene);

}  // namespace MovingMap
