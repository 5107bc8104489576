// How lines are drawn: the properties that the line classes have in common.
#pragma once

#include <Orlek/Math/Vector4.h>

namespace Orlek::Detail {

/// Colour, width, antialiasing and stipple of a line class.
struct LineStyle {
    Math::Vector4<float> color{1.0F, 1.0F, 1.0F, 1.0F};  ///< Red, green, blue, alpha: 0 to 1.
    float lineWidth = 1.0F;                              ///< Pixels.
    int stipple = 0;        ///< The 16-bit pattern in both halves; 0: solid.
    bool antiAlias = true;  ///< Smooth edges.

    /// Doubles a 16-bit pattern, so that 32 bits repeat it.
    void setPattern(unsigned short pattern) {
        const unsigned bits = pattern;
        stipple = static_cast<int>((bits << 16) | bits);
    }
};

}  // namespace Orlek::Detail
