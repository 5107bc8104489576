// Filled rectangles and strips of one colour.
#pragma once

#include <Orlek/OpenGL.h>

#include <vector>

#include "Colours.h"
#include "MapView.h"

namespace MovingMap {

/// Draws filled shapes: a terrain strip that shows nothing but its map texture, one white texel,
/// tinted. Needs the GL context.
class Fill {
public:
    Fill();

    /// A rectangle between two corners.
    void rect(Point low, Point high, const Colour& colour);

    /// A triangle strip.
    void strip(const std::vector<Point>& points, const Colour& colour);

private:
    Orlek::OpenGL::TextureTerrain mStrip;
};

}  // namespace MovingMap
