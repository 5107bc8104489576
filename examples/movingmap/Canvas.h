// The tools that every layer of the map draws with.
#pragma once

#include <string>

#include "Fill.h"
#include "Stroke.h"
#include "TextLayer.h"

namespace MovingMap {

/// Strokes, fills and texts for a picture of one size. Needs the GL context.
struct Canvas {
    Canvas(const std::string& fontFile, double scale)
        : small(fontFile, pixels(13, scale)),
          normal(fontFile, pixels(15, scale)),
          large(fontFile, pixels(19, scale)),
          unit(scale) {}

    Stroke stroke;
    Fill fill;
    TextLayer small;
    TextLayer normal;
    TextLayer large;
    double unit;  ///< Pixels of the picture for a pixel of an ordinary screen.

private:
    static int pixels(int size, double scale) { return static_cast<int>(size * scale + 0.5); }
};

}  // namespace MovingMap
