// Bearing and distance are those to the waypoint itself, the time is that of the path to it.
#include "Flight.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace MovingMap {

namespace {

constexpr double knot = metresPerMile / 3600.0;  // Metres a second.
constexpr double standingKt = 1.0;  // What is slower does not get anywhere, but for noise.

}  // namespace

Flight::Flight(const Options& options, Route route, Orlek::Geodetic::HeightMap& terrain)
    : mOptions(options),
      mRoute(std::move(route)),
      mPath(flyRoute(mRoute, standardRateRadiusM(options.speedKt))),
      mTerrain(terrain) {}

Position Flight::start() const {
    if (mOptions.lat) {
        return {*mOptions.lat, *mOptions.lon};
    }
    return stateAt(mPath, mOptions.alongMiles * metresPerMile).position;
}

Scene Flight::basics() const {
    Scene scene;
    scene.altitudeFt = mOptions.altitudeFt;
    scene.speedKt = mOptions.speedKt;
    scene.rangeM = mOptions.rangeM;
    scene.headingUp = mOptions.headingUp;
    return scene;
}

void Flight::lookAhead(Scene& scene) const {
    const Position& own = scene.own;
    const Position& ahead = mRoute[scene.next.index].position;
    scene.ground = groundAt(mTerrain, own);
    scene.next.name = mRoute[scene.next.index].name;
    scene.next.bearingDeg = Orlek::Geodetic::calcBearing(own.lat, own.lon, ahead.lat, ahead.lon);
    scene.next.distanceM = Orlek::Geodetic::calcDistance(own.lat, own.lon, ahead.lat, ahead.lon);
    const double toFly = scene.alongM < 0.0 ? scene.next.distanceM
                                            : mPath.passedAtM[scene.next.index] - scene.alongM;
    if (scene.speedKt >= standingKt) {
        scene.next.timeS = toFly / (scene.speedKt * knot);
    }
}

// Off the route, the way leads to its first waypoint.
Scene Flight::scene() const {
    if (!mOptions.lat) {
        return sceneAt(mOptions.alongMiles * metresPerMile);
    }
    Scene scene = basics();
    scene.own = start();
    lookAhead(scene);
    scene.headingDeg = mOptions.headingDeg.value_or(scene.next.bearingDeg);
    return scene;
}

// Near the route the aircraft counts as flying it; farther off the way leads to the waypoint at the
// end of the leg that is nearest.
Scene Flight::sceneOf(const OwnShipMessage& own) const {
    constexpr double widthM = 0.5 * metresPerMile;
    constexpr double anywhere = std::numeric_limits<double>::infinity();
    const auto along = [&](double withinM) {
        return alongAt(mPath, own.position(), own.headingDeg, withinM);
    };
    Scene scene = basics();
    scene.own = own.position();
    scene.headingDeg = own.headingDeg;
    scene.altitudeFt = own.altitudeFt;
    scene.speedKt = own.speedKt;
    scene.alongM = along(widthM).value_or(-1.0);
    const double nearestM = along(anywhere).value_or(0.0);
    if (scene.alongM >= 0.0 || nearestM > 0.0) {
        scene.next.index = stateAt(mPath, std::max(scene.alongM, nearestM)).nextWaypoint;
    }
    lookAhead(scene);
    return scene;
}

Scene Flight::sceneAt(double alongM) const {
    Scene scene = basics();
    scene.alongM = std::clamp(alongM, 0.0, mPath.lengthM());
    const PathState state = stateAt(mPath, scene.alongM);
    scene.own = state.position;
    scene.headingDeg = mOptions.headingDeg.value_or(state.headingDeg);
    scene.next.index = state.nextWaypoint;
    lookAhead(scene);
    return scene;
}

}  // namespace MovingMap
