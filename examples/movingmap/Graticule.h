// Lines of equal latitude and longitude.
#pragma once

#include <vector>

#include "Canvas.h"
#include "LabelPlacer.h"

namespace MovingMap {

/// Draws the graticule of a view at a spacing that suits its scale, with labels along the left and
/// the upper edge of @p area, except where @p blocked boxes are.
/// @return the places of the labels
std::vector<Box> drawGraticule(Canvas& canvas, const MapView& view, const Box& area,
                               const std::vector<Box>& blocked);

/// The spacing in arc minutes whose lines are at least @p leastMinutes apart.
double graticuleMinutes(double leastMinutes);

}  // namespace MovingMap
