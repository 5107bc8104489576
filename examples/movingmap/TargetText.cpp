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

std::string altitudeText(const TargetMessage& target, const Scene& scene) {
    char text[16];
    if (scene.ownState == OwnShipState::unknown) {
        std::snprintf(text, sizeof text, "%03ld", std::lround(target.altitudeFt / 100.0));
        return text;
    }
    const long hundreds = std::lround((target.altitudeFt - scene.altitudeFt) / 100.0);
    std::snprintf(text, sizeof text, hundreds == 0 ? "%02ld" : "%+03ld", hundreds);
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
