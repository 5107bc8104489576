// The route on the map.
#pragma once

#include "Canvas.h"
#include "RoutePath.h"
#include "Scene.h"

namespace MovingMap {

/// The path in the picture's coordinates, split where the aircraft is.
struct RouteLine {
    Polyline flown;
    Polyline ahead;
};

/// Projects the path. Points closer together than a few pixels are left out: a line of dots
/// cannot be smoothed.
/// @param alongM the distance already flown, in metres
RouteLine projectRoute(const RoutePath& path, const MapView& view, double alongM);

/// Draws the path as flown and the waypoints' symbols: a star, with a circle around it where the
/// route flies over the point. The next waypoint has the route's colour.
void drawRoute(Canvas& canvas, const MapView& view, const Route& route, const RouteLine& line,
               std::size_t nextWaypoint);

}  // namespace MovingMap
