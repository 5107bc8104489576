// The tools that every layer of the map draws with.
#pragma once

#include <string>

#include "Fill.h"
#include "Stroke.h"
#include "Style.h"
#include "TextLayer.h"

namespace MovingMap {

constexpr double platePad = 10.0;  ///< From the edge of a plate to its text, for a unit of 1.

/// Strokes, fills and texts for a picture of one size. Needs the GL context.
struct Canvas {
    Canvas(const std::string& fontFile, double scale, const Style& wanted)
        : small(fontFile, pixels(13, scale)),
          normal(fontFile, pixels(15, scale)),
          large(fontFile, pixels(19, scale)),
          smallLabel(fontFile, pixels(13, scale)),
          label(fontFile, pixels(15, scale)),
          largeLabel(fontFile, pixels(19, scale)),
          unit(scale),
          style(wanted) {}

    Stroke stroke;
    Fill fill;
    PlateText small;
    PlateText normal;
    PlateText large;
    LabelText smallLabel;
    LabelText label;
    LabelText largeLabel;
    double unit;  ///< Pixels of the picture for a pixel of an ordinary screen.
    Style style;

    /// Draws the texts of the map.
    void drawLabels() {
        smallLabel.draw();
        label.draw();
        largeLabel.draw();
    }

    /// Draws the texts on the plates.
    void drawPlateTexts() {
        small.draw();
        normal.draw();
        large.draw();
    }

private:
    static int pixels(int size, double scale) { return static_cast<int>(size * scale + 0.5); }
};

}  // namespace MovingMap
