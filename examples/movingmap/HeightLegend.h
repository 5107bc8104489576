// What the colours of the terrain mean.
#pragma once

#include "Canvas.h"
#include "LabelPlacer.h"

namespace MovingMap {

/// The place of the legend when its upper right corner is at @p corner.
Box heightLegendBox(const Canvas& canvas, Point corner);

/// Draws the colours of heights.
void drawHeightLegend(Canvas& canvas, const Box& box);

}  // namespace MovingMap
