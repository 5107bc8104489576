// Bearing and distance are those to the waypoint itself, the time is that of the path to it.
#include "Flight.h"

#include <algorithm>
#include <utility>

namespace MovingMap {

namespace {

constexpr double knot = metresPerMile / 3600.0;  // Metres a second.

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
    if (scene.speedKt > 0.0) {
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

// Near the route the aircraft counts as flying it.
Scene Flight::sceneOf(const OwnShipMessage& own) const {
    constexpr double widthM = 0.5 * metresPerMile;
    const std::optional<double> alongM = alongAt(mPath, own.position(), widthM);
    Scene scene = alongM ? sceneAt(*alongM) : basics();
    scene.own = own.position();
    scene.headingDeg = own.headingDeg;
    scene.altitudeFt = own.altitudeFt;
    scene.speedKt = own.speedKt;
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
