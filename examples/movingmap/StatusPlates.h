// The heading in figures, and how the map is turned.
#pragma once

#include "Canvas.h"
#include "LabelPlacer.h"
#include "Scene.h"

namespace MovingMap {

/// The place of the heading, centred at the top of the picture.
Box headingBox(const Canvas& canvas, Point size);

/// Draws the heading.
void drawHeading(Canvas& canvas, const Box& box, const Scene& scene);

/// The place of the mode, in the upper left corner of the picture.
Box modeBox(const Canvas& canvas, Point size);

/// Draws which way is up and the range.
void drawMode(Canvas& canvas, const Box& box, const Scene& scene);

}  // namespace MovingMap
