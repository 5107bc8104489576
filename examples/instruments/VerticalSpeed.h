// Vertical speed: a pointer over a scale that is finer near zero.
#pragma once

#include "Canvas.h"

namespace Instruments {

void drawVerticalSpeed(Canvas& canvas, const Box& box, double climbFpm);

}  // namespace Instruments
