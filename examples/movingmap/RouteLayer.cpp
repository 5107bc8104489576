// Flown and remaining parts share the point where the aircraft is, so that no gap opens.
#include "RouteLayer.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace MovingMap {

namespace {

constexpr double shortestStep = 3.0;  // Pixels.

void append(Polyline& line, Point point, bool always) {
    if (line.empty() || always || (point - line.back()).Length() >= shortestStep) {
        line.push_back(point);
    }
}

// A star with four points.
Polyline star(Point centre, double size) {
    Polyline points;
    for (int i = 0; i < 8; ++i) {
        const double radius = i % 2 == 0 ? size : size * 0.42;
        const double angle = i * std::numbers::pi / 4.0;
        points.emplace_back(centre.x + radius * std::sin(angle),
                            centre.y + radius * std::cos(angle));
    }
    return points;
}

// The strip that fills a star: its outline in zigzag order.
Polyline starStrip(const Polyline& outline) {
    Polyline strip;
    for (const std::size_t i : {0U, 1U, 7U, 3U, 5U, 4U}) {
        strip.push_back(outline[i]);
    }
    return strip;
}

void drawSymbol(Canvas& canvas, Point at, bool flyOver, const Colour& colour) {
    const Polyline outline = star(at, 9.0 * canvas.unit);
    canvas.fill.strip(starStrip(outline), colour);
    canvas.fill.strip({outline[1], outline[2], outline[3]}, colour);
    canvas.fill.strip({outline[5], outline[6], outline[7]}, colour);
    canvas.stroke.loop(outline);
    canvas.stroke.draw({.colour = black, .width = 1.3 * canvas.unit});
    if (flyOver) {
        canvas.stroke.circle(at, 12.0 * canvas.unit);
        canvas.stroke.draw(
            {.colour = colour, .width = 1.8 * canvas.unit, .rim = halo, .rimWidth = canvas.unit});
    }
}

void drawLine(Canvas& canvas, const Polyline& line, const Colour& colour) {
    canvas.stroke.polyline(line);
    canvas.stroke.draw(
        {.colour = colour, .width = 3.4 * canvas.unit, .rim = halo, .rimWidth = 1.2 * canvas.unit});
}

}  // namespace

RouteLine projectRoute(const RoutePath& path, const MapView& view, double alongM) {
    std::vector<Position> places = path.positions();
    const auto ahead =
        std::find_if(path.points.begin(), path.points.end(),
                     [&](const PathPoint& point) { return point.distanceM >= alongM; });
    const auto split = static_cast<std::size_t>(ahead - path.points.begin());
    places.insert(places.begin() + (ahead - path.points.begin()), stateAt(path, alongM).position);
    const std::vector<Point> points = view.toScreen(places);
    RouteLine line;
    for (std::size_t i = 0; i <= split; ++i) {
        append(line.flown, points[i], i == split);
    }
    for (std::size_t i = split; i < points.size(); ++i) {
        append(line.ahead, points[i], i + 1 == points.size());
    }
    return line;
}

void drawRoute(Canvas& canvas, const MapView& view, const Route& route, const RouteLine& line,
               std::size_t nextWaypoint) {
    const Palette& colours = canvas.style.colours;
    drawLine(canvas, line.flown, colours.flown);
    drawLine(canvas, line.ahead, colours.route);
    for (std::size_t i = 0; i < route.size(); ++i) {
        drawSymbol(canvas, view.toScreen(route[i].position), route[i].flyOver,
                   i == nextWaypoint ? colours.route : white);
    }
}

}  // namespace MovingMap
