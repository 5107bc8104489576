// A number on drums, as in a mechanical counter.
#pragma once

#include "Canvas.h"

namespace Instruments {

struct DrumStyle {
    double step;     ///< The last drum shows multiples of this.
    int lastDigits;  ///< Digits on the last drum.
    int digits;      ///< Digits in all.
};

/// From 0 on, below which it stays at 0; right-aligned in the box; each drum turns on while the one
/// right of it passes its last step.
void drawRollingDigits(Canvas& canvas, const Box& box, double value, const DrumStyle& style);

}  // namespace Instruments
