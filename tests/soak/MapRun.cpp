// The tiles of even periods are DTED files, those of odd ones SRTM archives of the same cells.
#include "MapRun.h"

#include <cmath>
#include <thread>

#include "LastView.h"
#include "Png.h"
#include "Terrain.h"
#include "support/GlNames.h"
#include "support/Memory.h"
#include "support/OpenFiles.h"
#include "terrain/TileFiles.h"

namespace OrlekTest {

namespace {

using namespace std::chrono_literals;
using MovingMap::FeedMessage;
using Milliseconds = std::chrono::duration<float, std::milli>;

constexpr int framesPerSecond = 60;
constexpr auto betweenFrames = std::chrono::nanoseconds(1s) / framesPerSecond;
constexpr int movingStep = 3;  // Of the relief, as in the window while the map moves.
constexpr double nearM = 4.0 * MovingMap::metresPerMile;
constexpr double farM = 8.0 * MovingMap::metresPerMile;
// More than a run makes; a name above it would not be counted.
constexpr unsigned mostNamesOfARun = 50000;

int hills(int i, int j) {
    return static_cast<int>(500.0 + 300.0 * std::sin(i / 37.0) * std::cos(j / 53.0));
}

DtedLabel wholeLabel(int lat, int lon) {
    DtedLabel label = dtedLabelAt(lat, lon);
    label.latInterval = label.lonInterval = "0030";
    label.numLat = label.numLon = "1201";
    return label;
}

// Two cells beside each other, in two formats.
void writeTiles(const TempDir& dir) {
    for (const int lon : {-85, -84}) {
        const std::string name = "N36W0" + std::to_string(-lon);
        dir.write("dted/" + name + ".DT1", dtedFile(wholeLabel(36, lon), hills));
        dir.write("srtm/" + name + ".SRTMGL3.hgt.zip", archiveOf(srtmSamples(1201, 1201, hills)));
    }
}

MovingMap::Options optionsOf(const Plan& plan, const TempDir& dir, bool tcp) {
    MovingMap::Options options;
    options.config = dir.path("map.xml");
    options.font = "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf";
    options.feed =
        MovingMap::parseFeedUrl((tcp ? "tcp://127.0.0.1:" : "udp://:") + std::to_string(plan.port));
    options.feedOldS = 3.0;
    options.alongMiles = 5.0;
    options.rangeM = nearM;
    options.altitudeFt = 5500.0;
    options.speedKt = 110.0;
    options.width = plan.width;
    options.height = plan.height;
    return options;
}

}  // namespace

MapRun::MapRun(const Plan& plan)
    : mPlan(plan),
      mContext(plan.width, plan.height),
      mOptions(optionsOf(plan, mDir, true)),
      mFlight(mOptions, MovingMap::defaultRoute(), mTerrain),
      mCharts(MovingMap::readCharts(mOptions)),
      mDatagrams(optionsOf(plan, mDir, false), mFlight),
      mPackages(mOptions, mFlight),
      mPicture(mOptions.font, 0.75, mOptions.style, mTerrain, mFlight.route(), mFlight.path(),
               mCharts),
      mCentre(mFlight.start()),
      mFigures(static_cast<std::size_t>((plan.duration.count() + 60) * framesPerSecond),
               std::max<std::size_t>(2, static_cast<std::size_t>(plan.duration / plan.period))) {
    writeTiles(mDir);
    MovingMap::openTerrain(mTerrain, mDir.path("dted"), mCentre);
    mStart = mMemoryDue = Clock::now();
}

bool MapRun::Turn::due(Clock::time_point now) {
    if (now < next) {
        return false;
    }
    next += every;
    return true;
}

MapRun::Turn MapRun::turn(double share) const {
    return {mStart + std::chrono::duration_cast<Clock::duration>(mPlan.period * share),
            mPlan.period};
}

Figures MapRun::run(Sent& sent) {
    Turn tiles = turn(0.25);
    Turn settings = turn(0.5);
    Turn view = turn(0.75);
    Turn counting = turn(1.4);
    counting.every /= 2;
    Clock::time_point due = mStart;
    Clock::time_point before = mStart;
    while (before < mStart + mPlan.duration) {
        due = std::max(due + betweenFrames, Clock::now());
        std::this_thread::sleep_until(due);
        const Clock::time_point begin = Clock::now();
        takeFeeds();
        if (tiles.due(begin)) {
            changeTiles();
        }
        if (view.due(begin)) {
            changeView();
        }
        drawFrame();
        mFigures.workMs.push_back(Milliseconds(Clock::now() - begin).count());
        mFigures.intervalMs.push_back(Milliseconds(begin - before).count());
        before = begin;
        if (settings.due(begin)) {
            writeSettings();
        }
        watchMemory(begin);
        if (mPackages.scene().live->connected && counting.due(begin)) {
            count();
        }
    }
    drain(sent);
    if (!mPlan.picture.empty()) {
        OrlekSupport::writePng(mPlan.picture,
                               OrlekSupport::readFramebuffer(mPlan.width, mPlan.height));
    }
    return mFigures;
}

void MapRun::takeFeeds() {
    for (const FeedMessage& message : mDatagrams.update()) {
        mDatagramOrder.take(message);
    }
    for (const FeedMessage& message : mPackages.update()) {
        mPackageOrder.take(message);
    }
}

// The map follows the own ship in whole pixels, as in the window.
void MapRun::drawFrame() {
    MovingMap::Scene scene = mPackages.scene();
    scene.rangeM = mOptions.rangeM;
    scene.headingUp = mOptions.headingUp;
    if ((mPicture.view().toScreen(scene.own) - mPicture.view().focus()).Length() >= 1.0) {
        mCentre = scene.own;
    }
    mPicture.draw(scene, MovingMap::Point(mPlan.width, mPlan.height), mCentre, movingStep);
    glFinish();
}

// Tiles that were found take the place of others when a query comes from another cell.
void MapRun::changeTiles() {
    const bool dted = ++mFigures.tileChanges % 2 == 0;
    MovingMap::openTerrain(mTerrain, mDir.path(dted ? "dted" : "srtm"), {0.0, 0.0});
    mTerrain.getAltitude(0.0, 0.0, true, false);
}

void MapRun::changeView() {
    mOptions.rangeM = mOptions.rangeM == nearM ? farM : nearM;
    mOptions.headingUp = !mOptions.headingUp;
}

void MapRun::writeSettings() {
    MovingMap::saveSettings(mOptions.config, {mCentre, mOptions.rangeM, mOptions.headingUp},
                            mOptions.style.units.distance);
    ++mFigures.settingsWritten;
}

void MapRun::watchMemory(Clock::time_point now) {
    if (now < mMemoryDue) {
        return;
    }
    mMemoryDue += 1s;
    const auto period = static_cast<std::size_t>((now - mStart) / mPlan.period);
    if (period < mFigures.memoryKib.size()) {
        mFigures.memoryKib[period].push_back(static_cast<float>(residentKib()));
    }
}

void MapRun::count() {
    mFigures.descriptors.push_back(static_cast<int>(openFiles()));
    mFigures.names.push_back(liveNames(mostNamesOfARun));
    GLuint next = 0;
    glGenTextures(1, &next);
    glDeleteTextures(1, &next);
    mFigures.faults += next >= mostNamesOfARun ? 1 : 0;
}

void MapRun::drain(Sent& sent) {
    sent.stop = true;
    bool all = false;
    for (int i = 0; i < 300 && !all; ++i) {
        std::this_thread::sleep_for(10ms);
        const bool ended = sent.ended;
        takeFeeds();
        all = ended && mPackageOrder.complete(sent.tcpRounds) &&
              mDatagramOrder.complete(sent.udpRounds);
    }
    mFigures.complete = all;
    mFigures.rounds = sent.tcpRounds + sent.udpRounds;
    mFigures.connections = sent.connections;
    mFigures.datagramFaults = mDatagramOrder.faults();
    mFigures.dropped = droppedDatagrams(mPlan.port);
    mFigures.faults +=
        mPackageOrder.faults() + mPackages.scene().live->ignored + mDatagrams.scene().live->ignored;
}

}  // namespace OrlekTest
