// Lines with a dark rim, so that they stand out from any terrain.
#pragma once

#include <Orlek/OpenGL.h>

#include <vector>

#include "Colours.h"
#include "MapView.h"

namespace MovingMap {

using Polyline = std::vector<Point>;

/// How a line looks. The rim is drawn under the line; width 0 leaves it out.
struct Pen {
    Colour colour = white;
    double width = 1.5;  ///< Pixels.
    Colour rim = shadow;
    double rimWidth = 0.0;  ///< Pixels on each side.
    unsigned short stipple = 0;
};

/// Draws lines. Collect with the first four, then draw; all of a call share a pen.
class Stroke {
public:
    void segment(Point from, Point to);
    void polyline(const Polyline& points);
    void loop(const Polyline& points);
    void circle(Point centre, double radius);

    /// Draws what was collected and forgets it. Needs the GL context.
    void draw(const Pen& pen);

private:
    void render(const Colour& colour, double width, unsigned short stipple);

    Orlek::OpenGL::Lines mLines;
    Orlek::OpenGL::LineStrips mStrips;
    Orlek::OpenGL::LineLoops mLoops;
};

/// The corners of a regular polygon that passes for a circle of this radius in pixels.
Polyline circlePoints(Point centre, double radius);

}  // namespace MovingMap
