// The path that an aircraft flies along a route, turns included.
#pragma once

#include <optional>
#include <vector>

#include "RouteFile.h"

namespace MovingMap {

/// A point of the path and how far along it lies.
struct PathPoint {
    Position position;
    double distanceM = 0.0;
};

/// The flown path: straight legs, and turns around the waypoints in steps of one degree.
struct RoutePath {
    std::vector<PathPoint> points;  ///< From the first waypoint to the last.
    /// For each waypoint, how far along the path it is passed: where a fly-over point lies, and
    /// abeam a fly-by point, in the middle of its turn.
    std::vector<double> passedAtM;

    std::vector<Position> positions() const;
    double lengthM() const { return points.back().distanceM; }
};

/// Works out the turns at every waypoint but the first and the last. A turn that has no room on
/// its legs gets the largest radius that fits.
/// @param route at least two waypoints
/// @param defaultRadiusM the radius of turns at waypoints that give none, in metres
RoutePath flyRoute(const Route& route, double defaultRadiusM);

/// The radius in metres of a turn of three degrees a second, two minutes for a full circle.
double standardRateRadiusM(double speedKt);

/// Where an aircraft is on a path.
struct PathState {
    Position position;
    double headingDeg = 0.0;
    std::size_t nextWaypoint = 0;  ///< Index in the route; the last one when all are passed.
};

/// How far along a path the place next to an aircraft is; of legs that are about equally near, on
/// one that it flies along rather than back. Nothing when all are farther away than @p withinM
/// metres.
std::optional<double> alongAt(const RoutePath& path, const Position& position, double headingDeg,
                              double withinM);

/// The state at a distance from the start; distances beyond the ends give the ends.
PathState stateAt(const RoutePath& path, double distanceM);

}  // namespace MovingMap
