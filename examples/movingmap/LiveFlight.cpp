// Ages are measured with the clock of this machine, from when a message was taken.
#include "LiveFlight.h"

#include <ctime>

#include "Format.h"

namespace MovingMap {

namespace {

constexpr double goneAfterOld =
    5.0;  // Targets vanish at so many times the age at which they are old.
constexpr std::size_t longestSource = 34;

// A clock that goes on while the machine sleeps: data are not younger for it.
double secondsNow() {
    timespec now = {};
    clock_gettime(CLOCK_BOOTTIME, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

std::vector<Position> positionsOf(const TrafficState::Target& target) {
    std::vector<Position> positions;
    for (const auto& point : target.trail) {
        positions.push_back(point.position);
    }
    return positions;
}

OwnShipState ownStateOf(const Live& live) {
    if (!live.ownAgeS) {
        return OwnShipState::unknown;
    }
    return *live.ownAgeS > live.oldS ? OwnShipState::old : OwnShipState::current;
}

std::string ageText(double seconds) {
    return seconds < 100.0 ? wholeNumber(seconds) + " S" : duration(seconds);
}

LiveNote stateNote(const Live& live) {
    const std::string age = live.ageS ? "   " + ageText(*live.ageS) : "";
    if (!live.connected) {
        return {"NOT CONNECTED" + age, red};
    }
    if (!live.ageS) {
        return {"NO DATA YET", amber};
    }
    if (*live.ageS > live.oldS) {
        return {"DATA OLD" + age, red};
    }
    if (live.tooMany) {
        return {"LIVE   ONLY THE " + std::to_string(live.targets.size()) + " NEAREST", amber};
    }
    return {"LIVE   " + counted(live.targets.size(), "TARGET"), green};
}

}  // namespace

LiveFlight::LiveFlight(const Options& options, const Flight& flight)
    : mFlight(flight),
      mFeed(options.feed.value()),
      mTraffic(options.feedOldS * goneAfterOld),
      mOldS(options.feedOldS),
      mGoneS(options.feedOldS * goneAfterOld) {}

std::vector<FeedMessage> LiveFlight::update() {
    const double nowS = secondsNow();
    const unsigned long ignoredBefore = mFeed.ignored();
    std::vector<FeedMessage> messages = mFeed.poll(nowS);
    if (mFeed.ignored() != ignoredBefore) {
        mIgnoredS = nowS;
    }
    for (const FeedMessage& message : messages) {
        mTraffic.take(message, nowS);
    }
    mTraffic.expire(nowS);
    return messages;
}

Live LiveFlight::live(double nowS) const {
    Live live;
    live.source = mFeed.source();
    live.connected = mFeed.connected();
    live.oldS = mOldS;
    live.goneS = mGoneS;
    live.ignored = nowS - mIgnoredS <= mGoneS ? mFeed.ignored() : 0;
    if (mTraffic.heardS()) {
        live.ageS = nowS - *mTraffic.heardS();
    }
    if (mTraffic.ownShip()) {
        live.ownAgeS = nowS - mTraffic.ownShip()->heardS;
    }
    live.tooMany = mTraffic.tooManyS() && nowS - *mTraffic.tooManyS() <= mGoneS;
    for (const auto& [number, target] : mTraffic.targets()) {
        live.targets.push_back({target.last, nowS - target.heardS, positionsOf(target)});
    }
    return live;
}

Scene LiveFlight::scene() const {
    Scene scene = mTraffic.ownShip() ? mFlight.sceneOf(mTraffic.ownShip()->last) : mFlight.scene();
    scene.live = live(secondsNow());
    scene.ownState = ownStateOf(*scene.live);
    return scene;
}

std::vector<LiveNote> notesOf(const Live& live) {
    std::vector<LiveNote> notes{{live.source.substr(0, longestSource), grey}, stateNote(live)};
    const bool heard = live.ageS && *live.ageS <= live.oldS;
    if (heard && !live.ownAgeS) {
        notes.push_back({"NO OWN SHIP", red});
    } else if (heard && *live.ownAgeS > live.oldS) {
        notes.push_back({"OWN SHIP OLD   " + ageText(*live.ownAgeS), red});
    }
    if (live.ignored > 0) {
        notes.push_back({counted(live.ignored, "BAD MESSAGE"), amber});
    }
    return notes;
}

}  // namespace MovingMap
