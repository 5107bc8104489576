// The horizontal situation: compass rose, course pointer with deviation, bearing to the station.
#pragma once

#include "Canvas.h"
#include "Flight.h"

namespace Instruments {

/// @param radius of the rose's outer circle.
void drawHsi(Canvas& canvas, const FlightState& state, Point centre, float radius);

}  // namespace Instruments
