// The flight as a feed has it.
#pragma once

#include "Colours.h"
#include "Feed.h"
#include "Flight.h"
#include "TrafficState.h"

namespace MovingMap {

/// Keeps a feed and what it has told.
class LiveFlight {
public:
    /// @p flight must outlive the object. The options have a feed. Throws
    /// std::runtime_error when it cannot exist.
    LiveFlight(const Options& options, const Flight& flight);

    /// Takes what has come, and gives it back. Call it often; it never waits.
    std::vector<FeedMessage> update();

    /// The scene as it is known now.
    Scene scene() const;

private:
    Live live(double nowS) const;

    const Flight& mFlight;
    Feed mFeed;
    TrafficState mTraffic;
    double mOldS;
    double mGoneS;
    double mIgnoredS = 0.0;  ///< When a message was ignored last.
};

/// What a feed's state is in words, one thing each: "LIVE, 12 TARGETS".
struct LiveNote {
    std::string text;
    Colour colour;
};
std::vector<LiveNote> notesOf(const Live& live);

}  // namespace MovingMap
