// What one picture shows.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "FeedMessage.h"
#include "MapView.h"
#include "Terrain.h"

namespace MovingMap {

/// The waypoint ahead as seen from the aircraft.
struct NextWaypoint {
    std::size_t index = 0;
    std::string name;
    double bearingDeg = 0.0;
    double distanceM = 0.0;
    std::optional<double> timeS;  ///< Nothing when the aircraft stands.
};

/// A target of a feed.
struct LiveTarget {
    TargetMessage last;
    double ageS = 0.0;            ///< Since it was heard of.
    std::vector<Position> trail;  ///< The oldest first.
};

/// What a feed has told.
struct Live {
    std::string source;
    bool connected = false;
    std::optional<double> ageS;     ///< Of the latest message; nothing before the first.
    std::optional<double> ownAgeS;  ///< Of the own ship's position.
    double oldS = 0.0;              ///< Data of a greater age are old.
    double goneS = 0.0;             ///< Targets of a greater age are not shown.
    unsigned long ignored = 0;      ///< Messages that were not valid, if there were any of late.
    bool tooMany = false;           ///< There are farther targets that are not kept.
    std::vector<LiveTarget> targets;
};

/// How far the own ship's data can be believed.
enum class OwnShipState { current, old, unknown };

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
    OwnShipState ownState = OwnShipState::current;
    std::optional<Live> live;  ///< With a feed.
};

}  // namespace MovingMap
