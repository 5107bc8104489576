// What is known of the own ship and its traffic, and since when.
#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <optional>

#include "FeedMessage.h"

namespace MovingMap {

/// Collects messages. Targets that fall silent are forgotten; the number of targets, the nearest
/// 200, and the lengths of their trails are bounded, whatever comes.
class TrafficState {
public:
    struct TrailPoint {
        Position position;
        double atS = 0.0;
    };

    struct Target {
        TargetMessage last;
        double heardS = 0.0;
        std::deque<TrailPoint> trail;  ///< The oldest first.
    };

    struct OwnShip {
        OwnShipMessage last;
        double heardS = 0.0;
    };

    /// @param goneS targets not heard of for longer are forgotten, seconds
    explicit TrafficState(double goneS) : mGoneS(goneS) {}

    /// @param nowS a clock that runs evenly, seconds
    void take(const FeedMessage& message, double nowS);

    /// Forgets what has become too old.
    void expire(double nowS);

    const std::optional<OwnShip>& ownShip() const { return mOwnShip; }
    const std::map<std::uint32_t, Target>& targets() const { return mTargets; }

    /// When the last message came; nothing before the first.
    const std::optional<double>& heardS() const { return mHeardS; }

    /// When there were last more targets than are kept; nothing when there never were.
    const std::optional<double>& tooManyS() const { return mTooManyS; }

private:
    static constexpr std::size_t mostTargets = 200;

    bool makeRoom(const TargetMessage& message, double nowS);
    void takeTarget(const TargetMessage& message, double nowS);

    double mGoneS;
    std::optional<OwnShip> mOwnShip;
    std::map<std::uint32_t, Target> mTargets;
    std::optional<double> mHeardS;
    std::optional<double> mTooManyS;
};

}  // namespace MovingMap
