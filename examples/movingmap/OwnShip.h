// The aircraft.
#pragma once

#include "Canvas.h"
#include "Scene.h"

namespace MovingMap {

/// Draws the aircraft's symbol at its place and heading.
void drawOwnShip(Canvas& canvas, const MapView& view, const Scene& scene);

}  // namespace MovingMap
