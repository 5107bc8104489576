// A closed track: two straight legs joined by two half circles.
#pragma once

#include "Position.h"

namespace Traffic {

using MovingMap::Position;

/// A racetrack flown at a steady speed, with level stretches, climbs and descents.
struct Racetrack {
    Position centre;
    double axisDeg = 0.0;  ///< Direction of the first leg, degrees clockwise from north.
    double legM = 0.0;     ///< Length of each straight leg; 0: a circle.
    double radiusM = 1.0;  ///< Of the turns, above 0.
    bool leftTurns = false;
    double speedKt = 0.0;
    double lowFt = 0.0;
    double highFt = 0.0;      ///< At least @ref lowFt; the same: always level.
    double climbFpm = 500.0;  ///< Climb and descent, above 0.
};

/// Where an aircraft on a racetrack is and how it moves.
struct Motion {
    Position position;
    double trackDeg = 0.0;  ///< 0 up to 360.
    double altitudeFt = 0.0;
    double verticalFpm = 0.0;
};

/// The state some time after the start of the first leg, which may lie any time back.
Motion motionAt(const Racetrack& racetrack, double seconds);

}  // namespace Traffic
