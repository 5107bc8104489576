// The scale of the map.
#pragma once

#include "Canvas.h"
#include "LabelPlacer.h"

namespace MovingMap {

/// The place of the scale bar when its lower left corner is at @p at.
Box scaleBarBox(const Canvas& canvas, const MapView& view, Point at);

/// Draws a bar of a round length in the distances' unit.
void drawScaleBar(Canvas& canvas, const MapView& view, const Box& box);

/// The largest of 1, 2, 5, 10, 20, 50 ... (and tenths of them) that is not above @p most.
double roundLength(double most);

}  // namespace MovingMap
