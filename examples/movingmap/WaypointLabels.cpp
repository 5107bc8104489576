// All symbols are blocked before the first label is placed, so that no label covers a waypoint.
#include "WaypointLabels.h"

namespace MovingMap {

namespace {

Box around(Point point, double reach) {
    return Box{point, point}.grown(reach);
}

}  // namespace

void blockRoute(const Canvas& canvas, const MapView& view, const Route& route,
                const RouteLine& line, LabelPlacer& placer) {
    placer.avoid(line.flown);
    placer.avoid(line.ahead);
    for (const Waypoint& waypoint : route) {
        placer.block(around(view.toScreen(waypoint.position), 9.0 * canvas.unit));
    }
}

void addWaypointLabels(Canvas& canvas, const MapView& view, const Route& route,
                       std::size_t nextWaypoint, LabelPlacer& placer, const Box& area) {
    LabelText& text = canvas.label;
    const Colour ahead = paler(canvas.style.colours.route, 0.58F);
    for (std::size_t i = 0; i < route.size(); ++i) {
        const Point at = view.toScreen(route[i].position);
        if (!area.contains(around(at, 0.0))) {
            continue;
        }
        const Box box =
            placer.place(at, Point(text.width(route[i].name), text.capHeight()), canvas.unit);
        text.add(route[i].name, box.low, Align::left, i == nextWaypoint ? ahead : white);
    }
}

}  // namespace MovingMap
