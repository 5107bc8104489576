// A trail gets a point a second, so it has as many points as it lasts seconds.
#include "TrafficState.h"

#include <Orlek/Geodetic.h>

#include <algorithm>

#include "LocalGrid.h"

namespace MovingMap {

namespace {

constexpr double trailStepS = 1.0;
constexpr double trailS = 60.0;
constexpr double longestJumpM = 5.0 * metresPerMile;

void extendTrail(TrafficState::Target& target, const Position& position, double nowS) {
    auto& trail = target.trail;
    if (!trail.empty()) {
        const Position& before = trail.back().position;
        if (Orlek::Geodetic::calcDistance(before.lat, before.lon, position.lat, position.lon) >
            longestJumpM) {
            trail.clear();
        }
    }
    if (trail.empty() || nowS - trail.back().atS >= trailStepS) {
        trail.push_back({position, nowS});
    }
}

}  // namespace

// Of too many targets the nearest are kept; as long as no own ship is known, those that came first.
bool TrafficState::makeRoom(const TargetMessage& message, double nowS) {
    if (mTargets.size() < mostTargets || mTargets.contains(message.number)) {
        return true;
    }
    mTooManyS = nowS;
    if (!mOwnShip) {
        return false;
    }
    const auto distance = [own = mOwnShip->last.position()](const TargetMessage& target) {
        return toGrid(own, target.position()).Length();
    };
    const auto farthest =
        std::max_element(mTargets.begin(), mTargets.end(), [&](const auto& a, const auto& b) {
            return distance(a.second.last) < distance(b.second.last);
        });
    if (distance(message) >= distance(farthest->second.last)) {
        return false;
    }
    mTargets.erase(farthest);
    return true;
}

void TrafficState::takeTarget(const TargetMessage& message, double nowS) {
    if (!makeRoom(message, nowS)) {
        return;
    }
    Target& target = mTargets[message.number];
    target.last = message;
    target.heardS = nowS;
    extendTrail(target, message.position(), nowS);
}

void TrafficState::take(const FeedMessage& message, double nowS) {
    mHeardS = nowS;
    if (const auto* own = std::get_if<OwnShipMessage>(&message)) {
        mOwnShip = OwnShip{*own, nowS};
    } else {
        takeTarget(std::get<TargetMessage>(message), nowS);
    }
}

void TrafficState::expire(double nowS) {
    std::erase_if(mTargets, [&](const auto& entry) { return nowS - entry.second.heardS > mGoneS; });
    for (auto& [number, target] : mTargets) {
        while (!target.trail.empty() && nowS - target.trail.front().atS > trailS) {
            target.trail.pop_front();
        }
    }
}

}  // namespace MovingMap
