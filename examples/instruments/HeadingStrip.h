// The heading on a strip below the attitude.
#pragma once

#include "Canvas.h"

namespace Instruments {

void drawHeadingStrip(Canvas& canvas, const Box& box, double headingDeg, double selectedDeg);

/// A heading as three digits, 001 to 360.
std::string headingText(double headingDeg);

/// The mark of a rose or strip: N, E, S, W, or tens of degrees.
std::string roseText(int headingDeg);

}  // namespace Instruments
