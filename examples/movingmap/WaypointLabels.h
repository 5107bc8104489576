// The names of the waypoints.
#pragma once

#include "Canvas.h"
#include "LabelPlacer.h"
#include "RouteLayer.h"
#include "Scene.h"

namespace MovingMap {

/// Adds the names of the waypoints inside @p area to the canvas, away from the route, from each
/// other and from what @p placer has blocked; it then knows names, symbols and route.
void addWaypointLabels(Canvas& canvas, const MapView& view, const Route& route,
                       const RouteLine& line, std::size_t nextWaypoint, LabelPlacer& placer,
                       const Box& area);

}  // namespace MovingMap
