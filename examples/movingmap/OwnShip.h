// The aircraft.
#pragma once

#include "Canvas.h"
#include "Scene.h"

namespace MovingMap {

/// Draws the aircraft's symbol at its place and heading: in its colour, or grey and crossed out
/// when its position is old. Nothing when the position is unknown.
void drawOwnShip(Canvas& canvas, const MapView& view, const Scene& scene);

}  // namespace MovingMap
