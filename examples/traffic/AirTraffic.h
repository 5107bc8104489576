// Own ship and targets at any moment.
#pragma once

#include <string>
#include <vector>

#include "FeedMessage.h"
#include "Racetrack.h"
#include "RoutePath.h"

namespace Traffic {

/// A dozen made-up aircraft around an own ship that flies a route again and again. The state
/// follows from the time alone.
class AirTraffic {
public:
    /// @param speedKt of the own ship, knots over ground, above 0
    /// @param altitudeFt of the own ship, feet
    AirTraffic(const MovingMap::Route& route, double speedKt, double altitudeFt);

    /// The messages of a moment: the own ship, then the targets.
    /// @param seconds since the own ship was at the start of the route, 0 or more
    std::vector<MovingMap::FeedMessage> messagesAt(double seconds) const;

private:
    struct Target {
        std::string callsign;
        Racetrack racetrack;
        double startS;  ///< How far it is on its track when the own ship starts.
    };

    MovingMap::OwnShipMessage ownShipAt(double seconds) const;

    MovingMap::RoutePath mPath;
    double mSpeedKt;
    double mAltitudeFt;
    std::vector<Target> mTargets;
};

}  // namespace Traffic
