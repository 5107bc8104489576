// The plane's x axis points to the right of the first leg, its y axis along it.
#include "Racetrack.h"

#include <cmath>
#include <numbers>

#include "LocalGrid.h"

namespace Traffic {

namespace {

using Point = MovingMap::GridPoint;
using std::numbers::pi;

constexpr double levelS = 60.0;  // How long an altitude is kept.

struct Step {
    Point place;
    double trackDeg;  // From the axis, clockwise in right turns.
};

// The second half of the track is the first one turned by half a circle.
Step halfTrack(const Racetrack& racetrack, double distanceM) {
    const double radius = racetrack.radiusM;
    const double half = racetrack.legM / 2.0;
    if (distanceM < racetrack.legM) {
        return {Point(-radius, distanceM - half), 0.0};
    }
    const double angle = (distanceM - racetrack.legM) / radius;
    return {Point(-radius * std::cos(angle), half + radius * std::sin(angle)), angle * 180.0 / pi};
}

Step trackAt(const Racetrack& racetrack, double distanceM) {
    const double halfLength = racetrack.legM + pi * racetrack.radiusM;
    const double at = std::fmod(distanceM, 2.0 * halfLength);
    if (at < halfLength) {
        return halfTrack(racetrack, at);
    }
    const Step step = halfTrack(racetrack, at - halfLength);
    return {Point(-step.place.x, -step.place.y), step.trackDeg + 180.0};
}

// Level at the bottom, climb, level at the top, descent.
void setAltitude(const Racetrack& racetrack, double seconds, Motion& motion) {
    const double rise = racetrack.highFt - racetrack.lowFt;
    const double climbS = rise / racetrack.climbFpm * 60.0;
    double at = std::fmod(seconds, 2.0 * (levelS + climbS));
    const bool down = at >= levelS + climbS;
    at -= down ? levelS + climbS : 0.0;
    const bool level = at < levelS;
    const double done = level ? 0.0 : (at - levelS) / climbS;
    motion.altitudeFt = racetrack.lowFt + rise * (down ? 1.0 - done : done);
    motion.verticalFpm = level ? 0.0 : down ? -racetrack.climbFpm : racetrack.climbFpm;
}

}  // namespace

Motion motionAt(const Racetrack& racetrack, double seconds) {
    const double metresASecond = racetrack.speedKt * MovingMap::metresPerMile / 3600.0;
    Step step = trackAt(racetrack, metresASecond * seconds);
    if (racetrack.leftTurns) {
        step = {Point(-step.place.x, step.place.y), -step.trackDeg};
    }
    step.place.Rotate(-racetrack.axisDeg * pi / 180.0);
    Motion motion;
    motion.position = MovingMap::fromGrid(racetrack.centre, step.place);
    motion.trackDeg = std::fmod(racetrack.axisDeg + step.trackDeg + 720.0, 360.0);
    setAltitude(racetrack, seconds, motion);
    return motion;
}

}  // namespace Traffic
