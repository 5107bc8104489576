// A moving scale with a window that shows the exact value on rolling digits.
#pragma once

#include <optional>

#include "Canvas.h"

namespace Instruments {

/// How a tape looks and what its digits do.
struct TapeStyle {
    Box box;
    bool right;          ///< The scale stands at the right side of the picture, the pointer left.
    float unitsPerStep;  ///< Height of a minor step.
    double minor;        ///< The value between two ticks.
    double major;        ///< The value between two numbers.
    double roll;         ///< The last digits turn in steps of this value,
    int rollDigits;      ///< and there are so many of them.
    int digits;          ///< All digits in the window.
};

/// @param selected marked with a bug at the inner edge. @param trend the value in some seconds.
void drawTape(Canvas& canvas, const TapeStyle& style, double value, double selected,
              std::optional<double> trend);

}  // namespace Instruments
