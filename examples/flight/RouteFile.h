// Routes as text.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "Position.h"

namespace MovingMap {

/// A point of a route and how it is flown.
struct Waypoint {
    std::string name;
    Position position;
    bool flyOver = false;      ///< Turn after passing the point, instead of cutting the corner.
    double turnRadiusM = 0.0;  ///< 0: the radius that the aircraft's speed gives.
};

using Route = std::vector<Waypoint>;

/// Reads a route. Each line is a waypoint, its fields separated by commas:
///
///     name, latitude, longitude, flyby or flyover [, turn radius in nautical miles]
///
/// Latitude and longitude are decimal degrees, north and east positive. Text from "#" on is a
/// comment, empty lines are skipped. @p source names the text in messages.
///
/// Throws std::runtime_error "source:line: reason" for a line that is none of these, and when
/// there are fewer than two waypoints.
Route parseRoute(std::istream& text, const std::string& source);

/// Reads a route from a file. Throws also when the file cannot be read.
Route readRouteFile(const std::string& path);

/// The route over the terrain that the project's build prepares.
Route defaultRoute();

}  // namespace MovingMap
