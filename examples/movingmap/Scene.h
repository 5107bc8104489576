// What one picture shows.
#pragma once

#include <string>

#include "MapView.h"
#include "Terrain.h"

namespace MovingMap {

/// The waypoint ahead as seen from the aircraft.
struct NextWaypoint {
    std::size_t index = 0;
    std::string name;
    double bearingDeg = 0.0;
    double distanceM = 0.0;
    double timeS = 0.0;
};

/// The aircraft and its surroundings at one moment.
struct Scene {
    Position own;
    double headingDeg = 0.0;
    double altitudeFt = 0.0;
    double speedKt = 0.0;
    double alongM = -1.0;  ///< Flown distance of the route's path, below 0: not on the path.
    Ground ground;
    NextWaypoint next;
    double rangeM = 0.0;  ///< Radius of the outer range ring.
    bool headingUp = false;
};

}  // namespace MovingMap
