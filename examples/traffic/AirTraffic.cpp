// Each target's track lies beside a place of the route, so that there is traffic along any route.
#include "AirTraffic.h"

#include <array>
#include <cmath>

#include "LocalGrid.h"

namespace Traffic {

namespace {

using namespace MovingMap;

struct Plan {
    const char* callsign;
    double share;      // Of the route: beside which place of it the track lies.
    double eastMiles;  // Of the track's centre from there.
    double northMiles;
    double axisDeg;
    double legMiles;
    bool leftTurns;
    double speedKt;
    double aboveLowFt;  // Against the own ship.
    double aboveHighFt;
};

// Circuits over the airport and the towns, flights along and across the valley, a few high above.
constexpr std::array<Plan, 12> plans = {{
    {"HAWK21", 0.02, 0.6, 0.4, 230, 1.6, true, 85, -3300, -2600},
    {"HAWK22", 0.05, -1.1, 0.9, 230, 2.2, true, 95, -2800, -2800},
    {"MEDIC4", 0.20, 1.8, 1.0, 155, 3.0, false, 120, -2400, -1200},
    {"CARGO7", 0.32, -0.5, 2.4, 60, 9.0, false, 175, 900, 2600},
    {"RANGER3", 0.42, 1.4, -1.2, 15, 1.2, true, 80, -1600, -1600},
    {"SURVEY9", 0.50, -2.4, 0.6, 90, 4.0, true, 105, 500, 500},
    {"GLIDE12", 0.56, 0.9, 1.9, 0, 0.0, false, 55, -900, 300},
    {"ECHO58", 0.62, -1.5, -1.8, 320, 6.0, true, 140, -400, 700},
    {"TANKER1", 0.70, 2.2, 2.6, 45, 14.0, false, 290, 6500, 6500},
    {"JET401", 0.50, 0.0, 0.0, 200, 30.0, true, 410, 9500, 14500},
    {"VALLEY6", 0.84, -0.9, 1.3, 75, 2.4, false, 100, -2200, -1500},
    {"PATROL2", 0.95, 0.8, -0.8, 120, 3.4, true, 115, -700, -700},
}};

Racetrack racetrackOf(const Plan& plan, const Position& beside, double altitudeFt) {
    Racetrack racetrack;
    racetrack.centre = fromGrid(
        beside, GridPoint(plan.eastMiles * metresPerMile, plan.northMiles * metresPerMile));
    racetrack.axisDeg = plan.axisDeg;
    racetrack.legM = plan.legMiles * metresPerMile;
    racetrack.radiusM = standardRateRadiusM(plan.speedKt);
    racetrack.leftTurns = plan.leftTurns;
    racetrack.speedKt = plan.speedKt;
    racetrack.lowFt = altitudeFt + plan.aboveLowFt;
    racetrack.highFt = altitudeFt + plan.aboveHighFt;
    racetrack.climbFpm = plan.speedKt > 200.0 ? 1800.0 : 600.0;
    return racetrack;
}

}  // namespace

AirTraffic::AirTraffic(const Route& route, double speedKt, double altitudeFt)
    : mPath(flyRoute(route, standardRateRadiusM(speedKt))),
      mSpeedKt(speedKt),
      mAltitudeFt(altitudeFt) {
    for (const Plan& plan : plans) {
        const Position beside = stateAt(mPath, plan.share * mPath.lengthM()).position;
        const double startS = 71.0 * static_cast<double>(mTargets.size());
        mTargets.push_back({plan.callsign, racetrackOf(plan, beside, altitudeFt), startS});
    }
}

OwnShipMessage AirTraffic::ownShipAt(double seconds) const {
    const double flownM = mSpeedKt * metresPerMile / 3600.0 * seconds;
    const PathState state = stateAt(mPath, std::fmod(flownM, mPath.lengthM()));
    OwnShipMessage own;
    own.lat = state.position.lat;
    own.lon = state.position.lon;
    own.altitudeFt = static_cast<float>(mAltitudeFt);
    own.headingDeg = static_cast<float>(std::fmod(state.headingDeg + 360.0, 360.0));
    own.speedKt = static_cast<float>(mSpeedKt);
    return own;
}

std::vector<FeedMessage> AirTraffic::messagesAt(double seconds) const {
    std::vector<FeedMessage> messages{ownShipAt(seconds)};
    for (const Target& target : mTargets) {
        const Motion motion = motionAt(target.racetrack, target.startS + seconds);
        TargetMessage message;
        message.lat = motion.position.lat;
        message.lon = motion.position.lon;
        message.altitudeFt = static_cast<float>(motion.altitudeFt);
        message.trackDeg = static_cast<float>(motion.trackDeg);
        message.speedKt = static_cast<float>(target.racetrack.speedKt);
        message.verticalFpm = static_cast<float>(motion.verticalFpm);
        message.number = static_cast<std::uint32_t>(messages.size());
        message.setName(target.callsign);
        messages.emplace_back(message);
    }
    return messages;
}

}  // namespace Traffic
