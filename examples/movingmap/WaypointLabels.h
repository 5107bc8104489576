// The names of the waypoints.
#pragma once

#include "Canvas.h"
#include "LabelPlacer.h"
#include "RouteLayer.h"
#include "Scene.h"

namespace MovingMap {

/// Tells @p placer where the route runs and its symbols are.
void blockRoute(const Canvas& canvas, const MapView& view, const Route& route,
                const RouteLine& line, LabelPlacer& placer);

/// Adds the names of the waypoints inside @p area to the canvas, away from what @p placer knows,
/// and tells it where they are.
void addWaypointLabels(Canvas& canvas, const MapView& view, const Route& route,
                       std::size_t nextWaypoint, LabelPlacer& placer, const Box& area);

}  // namespace MovingMap
