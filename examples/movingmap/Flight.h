// The aircraft as the options and the route have it.
#pragma once

#include <Orlek/Geodetic.h>

#include "Options.h"
#include "RoutePath.h"
#include "Scene.h"

namespace MovingMap {

/// Turns a place on the route, or the position that the options give, into a scene.
class Flight {
public:
    /// Works out the path of the route. @p terrain must outlive the object.
    Flight(const Options& options, Route route, Orlek::Geodetic::HeightMap& terrain);

    const Route& route() const { return mRoute; }
    const RoutePath& path() const { return mPath; }

    /// Where the flight begins: the options' position, or their place on the route.
    Position start() const;

    /// The first scene.
    Scene scene() const;

    /// The scene with the own ship where a feed has it.
    Scene sceneOf(const OwnShipMessage& own) const;

    /// The scene at a distance along the path in metres.
    Scene sceneAt(double alongM) const;

private:
    Scene basics() const;
    void lookAhead(Scene& scene) const;

    Options mOptions;
    Route mRoute;
    RoutePath mPath;
    Orlek::Geodetic::HeightMap& mTerrain;
};

}  // namespace MovingMap
