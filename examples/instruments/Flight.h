// A synthetic flight of five minutes: climb, turns, a course intercepted and tracked, descent.
#pragma once

#include <numbers>
#include <vector>

namespace Instruments {

constexpr double radian = std::numbers::pi / 180.0;  ///< Of one degree.

/// What the instruments show at one moment.
struct FlightState {
    double eastM = 0.0;  ///< From the station.
    double northM = 0.0;
    double headingDeg = 0.0;
    double pitchDeg = 0.0;
    double bankDeg = 0.0;  ///< Positive: right wing down.
    double slip = 0.0;     ///< -1 to 1, positive: the ball is right.
    double speedKt = 0.0;
    double accelerationKt = 0.0;  ///< Knots per second.
    double altitudeFt = 0.0;
    double climbFpm = 0.0;  ///< Feet per minute.
    double selectedHeadingDeg = 0.0;
    double selectedSpeedKt = 0.0;
    double selectedAltitudeFt = 0.0;
};

/// The radio station that the flight tracks, and what a receiver tells of it.
struct Guidance {
    double courseDeg;
    double bearingDeg;  ///< To the station.
    double distanceNm;
    double dots;  ///< Deviation: positive when the course lies to the right; 2 is full scale.
    bool to;
};

Guidance guidanceAt(const FlightState& state);

/// The whole flight, computed once.
class Flight {
public:
    static constexpr double lengthS = 300.0;

    Flight();

    /// @param seconds any time; the flight repeats.
    FlightState at(double seconds) const;

private:
    std::vector<FlightState> mStates;
};

}  // namespace Instruments
