// Waypoints from fields.
#include "RouteFile.h"

#include <sstream>
#include <stdexcept>
#include <string_view>

#include "DefaultRoute.h"
#include "TextLines.h"

namespace MovingMap {

namespace {

constexpr std::size_t longestName = 24;
constexpr std::size_t mostWaypoints = 1000;
constexpr double largestRadiusMiles = 50.0;

bool isFlyOver(std::string_view text) {
    if (text != "flyby" && text != "flyover") {
        throw std::runtime_error("'" + std::string(text) + "' is neither flyby nor flyover");
    }
    return text == "flyover";
}

Waypoint parseWaypoint(const Fields& fields) {
    if (fields.size() < 4 || fields.size() > 5) {
        throw std::runtime_error(
            "expected name, latitude, longitude, flyby or flyover [, turn radius]");
    }
    Waypoint waypoint;
    waypoint.name = textField(fields[0], "a name", longestName);
    waypoint.position = positionFields(fields[1], fields[2]);
    waypoint.flyOver = isFlyOver(fields[3]);
    if (fields.size() == 5) {
        waypoint.turnRadiusM =
            numberField(fields[4], "turn radius", 0.0, largestRadiusMiles) * metresPerMile;
    }
    return waypoint;
}

}  // namespace

Route parseRoute(std::istream& text, const std::string& source) {
    Route route;
    forEachLine(text, source, [&](const Fields& fields, int) {
        if (route.size() == mostWaypoints) {
            throw std::runtime_error("a route has at most 1000 waypoints");
        }
        route.push_back(parseWaypoint(fields));
    });
    if (route.size() < 2) {
        throw std::runtime_error(source + ": a route needs at least two waypoints");
    }
    return route;
}

Route readRouteFile(const std::string& path) {
    std::istringstream text(readSmallFile(path, "route"));
    return parseRoute(text, path);
}

Route defaultRoute() {
    std::istringstream text{std::string(defaultRouteText)};
    return parseRoute(text, "default route");
}

}  // namespace MovingMap
