// Attitude: sky and ground, pitch ladder, bank scale, and the aircraft's symbol.
#pragma once

#include "Canvas.h"
#include "Flight.h"

namespace Instruments {

/// @param box where sky and ground are seen; the symbol stands at @p centre.
void drawAttitude(Canvas& canvas, const FlightState& state, const Box& box, Point centre);

}  // namespace Instruments
