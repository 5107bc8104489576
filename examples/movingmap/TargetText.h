// What stands beside a target, and which targets are near.
#pragma once

#include <string>

#include "Scene.h"
#include "Units.h"

namespace MovingMap {

/// Altitude against the own ship in hundreds of feet or tens of metres: "+05", "-12", "00"; above
/// sea level, without a sign, when the own ship's is unknown.
std::string altitudeText(const TargetMessage& target, const Scene& scene, AltitudeUnit unit);

/// 1 when a target climbs at 500 feet a minute or more, -1 when it descends so, otherwise 0.
int verticalTrend(const TargetMessage& target);

/// Whether a target is within 6 nautical miles and 1,200 feet of the own ship.
bool isNear(const TargetMessage& target, const Scene& scene);

}  // namespace MovingMap
