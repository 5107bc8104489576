// The moving map, as its window shows it, into an offscreen picture.
#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "Charts.h"
#include "Feeds.h"
#include "Figures.h"
#include "Flight.h"
#include "HeadlessContext.h"
#include "LiveFlight.h"
#include "MapPicture.h"
#include "support/TempDir.h"

namespace OrlekTest {

struct Plan {
    std::chrono::seconds duration{600};
    std::chrono::steady_clock::duration period{std::chrono::minutes(1)};
    int width = 480;
    int height = 320;
    int port = 0;         ///< Of the packages and of the datagrams.
    std::string picture;  ///< Where the last one goes; empty: nowhere.
};

/// Draws 60 pictures a second from the two feeds. In each period the tiles, the range and the
/// direction that is up change once, the settings are written, and names and descriptors counted.
class MapRun {
public:
    explicit MapRun(const Plan& plan);

    /// Until the time is up and what was sent has come.
    Figures run(Sent& sent);

private:
    using Clock = std::chrono::steady_clock;

    /// Something that is due once a period.
    struct Turn {
        Clock::time_point next;
        Clock::duration every;
        bool due(Clock::time_point now);
    };
    Turn turn(double share) const;

    void takeFeeds();
    void drawFrame();
    void changeTiles();
    void changeView();
    void writeSettings();
    void watchMemory(Clock::time_point now);
    void count();
    void drain(Sent& sent);

    Plan mPlan;
    TempDir mDir;
    OrlekSupport::HeadlessContext mContext;
    Orlek::Geodetic::HeightMap mTerrain;
    MovingMap::Options mOptions;
    MovingMap::Flight mFlight;
    MovingMap::Charts mCharts;
    MovingMap::LiveFlight mDatagrams;  // Before the other, whose connection lets the sender begin.
    MovingMap::LiveFlight mPackages;
    MovingMap::MapPicture mPicture;
    MovingMap::Position mCentre;
    RoundOrder mDatagramOrder;
    RoundOrder mPackageOrder;
    Clock::time_point mStart;
    Clock::time_point mMemoryDue;
    Figures mFigures;
};

}  // namespace OrlekTest
