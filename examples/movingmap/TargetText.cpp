// The limits are those of proximate traffic in RTCA DO-185, which cockpit displays follow.
#include "TargetText.h"

#include <Orlek/Geodetic.h>

#include <cmath>
#include <cstdio>

namespace MovingMap {

namespace {

constexpr double nearMiles = 6.0;
constexpr double nearFt = 1200.0;
constexpr double trendFpm = 500.0;

}  // namespace

std::string altitudeText(const TargetMessage& target, const Scene& scene, AltitudeUnit unit) {
    const double step = unit == AltitudeUnit::metres ? 10.0 / metresPerFoot : 100.0;
    char text[16];
    if (scene.ownState == OwnShipState::unknown) {
        std::snprintf(text, sizeof text, "%03ld", std::lround(target.altitudeFt / step));
        return text;
    }
    const long steps = std::lround((target.altitudeFt - scene.altitudeFt) / step);
    std::snprintf(text, sizeof text, steps == 0 ? "%02ld" : "%+03ld", steps);
    return text;
}

int verticalTrend(const TargetMessage& target) {
    return target.verticalFpm >= trendFpm ? 1 : target.verticalFpm <= -trendFpm ? -1 : 0;
}

bool isNear(const TargetMessage& target, const Scene& scene) {
    return scene.ownState != OwnShipState::unknown &&
           std::abs(target.altitudeFt - scene.altitudeFt) <= nearFt &&
           Orlek::Geodetic::calcDistance(scene.own.lat, scene.own.lon, target.lat, target.lon) <=
               nearMiles * metresPerMile;
}

}  // namespace MovingMap
