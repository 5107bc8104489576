// The library keeps vertices per object; here they are collected anew for every frame.
#include "Stroke.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace MovingMap {

namespace {

using Orlek::Math::Vector2;

std::vector<Vector2<float>> toFloat(const Polyline& points) {
    return {points.begin(), points.end()};
}

}  // namespace

void Stroke::segment(Point from, Point to) {
    mLines.addVertex(static_cast<Vector2<float>>(from));
    mLines.addVertex(static_cast<Vector2<float>>(to));
}

void Stroke::polyline(const Polyline& points) {
    mStrips.addLineStrip(toFloat(points));
}

void Stroke::loop(const Polyline& points) {
    mLoops.addLineLoop(toFloat(points));
}

void Stroke::circle(Point centre, double radius) {
    loop(circlePoints(centre, radius));
}

void Stroke::render(const Colour& colour, double width, unsigned short stipple) {
    const auto set = [&](auto& lines) {
        lines.setColor(colour);
        lines.setLineWidth(static_cast<float>(width));
        lines.setStipple(stipple);
    };
    set(mLines);
    mLines.render();
    set(mStrips);
    mStrips.render(-1);
    set(mLoops);
    mLoops.render(1.0);
}

void Stroke::draw(const Pen& pen) {
    if (pen.rimWidth > 0.0) {
        render(pen.rim, pen.width + 2.0 * pen.rimWidth, 0);
    }
    render(pen.colour, pen.width, pen.stipple);
    mLines.clearVertex();
    mStrips.clearVertex();
    mLoops.clearVertex();
}

Polyline circlePoints(Point centre, double radius) {
    const int corners = std::clamp(static_cast<int>(radius), 24, 360);
    Polyline points;
    for (int i = 0; i < corners; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / corners;
        points.emplace_back(centre.x + radius * std::sin(angle),
                            centre.y + radius * std::cos(angle));
    }
    return points;
}

}  // namespace MovingMap
