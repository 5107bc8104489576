// The state of the feed, in words.
#pragma once

#include "Canvas.h"
#include "LabelPlacer.h"
#include "Scene.h"

namespace MovingMap {

/// The place of the plate below another one, as wide as that or wider.
Box feedBox(const Canvas& canvas, const Box& above, const Live& live);

/// Draws where the data come from and how old they are.
void drawFeed(Canvas& canvas, const Box& box, const Live& live);

}  // namespace MovingMap
