// How wide the characters of a font are drawn.
#pragma once

#include <array>
#include <functional>
#include <string>

namespace MovingMap {

struct FontMetrics {
    std::array<double, 256> advances{};  ///< Pixels, by character code.
    double capHeight = 0.0;              ///< Of capitals and digits above the baseline, pixels.
};

/// Measures a font on drawn text; the framebuffer is cleared. Needs the GL context.
/// @param pixelSize of the font
/// @param draw draws a white text with the left end of its baseline at (0, y) in pixels
FontMetrics measureFont(int pixelSize,
                        const std::function<void(double y, const std::string& text)>& draw);

}  // namespace MovingMap
