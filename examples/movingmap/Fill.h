// Filled rectangles, strips and outlines of one colour.
#pragma once

#include <Orlek/OpenGL.h>

#include <array>
#include <vector>

#include "Colours.h"
#include "MapView.h"

namespace MovingMap {

/// 32 rows of 32 pixels of the screen, the bottom row first, the leftmost pixel in the lowest bit.
using ScreenStipple = std::array<unsigned char, 128>;

ScreenStipple dottedStipple();
ScreenStipple risingStipple();   ///< Diagonals from the lower left.
ScreenStipple fallingStipple();  ///< Diagonals from the upper left.

/// Draws filled shapes. Strips: a terrain strip that shows nothing but its map texture, one white
/// texel, tinted. Needs the GL context.
class Fill {
public:
    Fill();
    ~Fill();

    Fill(const Fill&) = delete;
    Fill& operator=(const Fill&) = delete;

    /// A rectangle between two corners.
    void rect(Point low, Point high, const Colour& colour);

    /// A triangle strip.
    void strip(const std::vector<Point>& points, const Colour& colour);

    /// What a closed outline encloses; it may be concave. With a pattern only the pixels whose bit
    /// is set.
    void polygon(const std::vector<Point>& outline, const Colour& colour,
                 const ScreenStipple* pattern = nullptr);

private:
    Orlek::OpenGL::TextureTerrain mStrip;
    Orlek::OpenGL::Polygon mPolygon;
};

}  // namespace MovingMap
