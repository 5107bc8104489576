// The aircraft flies on its own; the user moves the map.
#include "Interactive.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "LocalGrid.h"
#include "MapPicture.h"
#include "Window.h"

namespace MovingMap {

namespace {

using OrlekSupport::Screen;
using OrlekSupport::Window;

// While the map moves the relief is coarser, so that the picture follows at once.
constexpr int movingStep = 3;
constexpr int restingStep = 1;
constexpr double keyPanPixels = 60.0;
constexpr std::array<double, 18> ranges = {0.5, 1,  2,  3,  4,  6,   8,   10,  15,
                                           20,  30, 40, 60, 80, 100, 150, 200, 300};
constexpr double restS = 1.0;
constexpr double timeLapse = 10.0;  // The flight is shown ten times as fast as it is.

class Session {
public:
    Session(Screen& screen, const Options& options, const Flight& flight,
            Orlek::Geodetic::HeightMap& terrain, const Charts& charts, LiveFlight* live,
            LastView& left)
        : mScreen(screen),
          mOptions(options),
          mFlight(flight),
          mTerrain(terrain),
          mCharts(charts),
          mLive(live),
          mLeft(left),
          mUnitM(metresPer(options.style.units.distance)),
          mScene(flight.scene()),
          mCentre(options.centre.value_or(mScene.own)),
          mFollow(!options.centre) {
        Window& window = *screen.window();
        window.onKey([this](const std::string& key) { pressKey(key); });
        window.onDrag([this](double dx, double dy) { pan(dx, dy); });
        window.onScroll([this](double steps) { scroll(steps); });
        keepView();
    }

    void run() {
        double before = mScreen.window()->seconds();
        mScreen.show(mOptions.frames, [&] {
            const double now = mScreen.window()->seconds();
            useScale();
            advance(now, now - before);
            before = now;
            drawFrame();
            keepView();
        });
    }

private:
    void keepView() {
        mLeft = {mFollow ? std::nullopt : std::optional(mCentre), mScene.rangeM, mScene.headingUp};
    }

    // Letters and symbols are made for one scale.
    void useScale() {
        if (std::exchange(mScale, mScreen.scale()) != mScreen.scale()) {
            mPicture.reset();
            mPicture.emplace(mOptions.font, mOptions.scale * mScale, mOptions.style, mTerrain,
                             mFlight.route(), mFlight.path(), mCharts);
        }
    }

    void advance(double nowS, double seconds) {
        if (mLive != nullptr) {
            mLive->update();
            show(mLive->scene());
            followLive(nowS);
        } else {
            fly(seconds);
        }
    }

    // What the user has set stays.
    void show(Scene scene) {
        scene.rangeM = mScene.rangeM;
        scene.headingUp = mScene.headingUp;
        mScene = std::move(scene);
    }

    // Only whole pixels move the map, so that the relief need not be made anew for less. It is fine
    // again when the map has rested for a second.
    void followLive(double nowS) {
        const Point shift = mPicture->view().toScreen(mScene.own) - mPicture->view().focus();
        const bool turned = hasTurned();
        if (mFollow && (shift.Length() >= 1.0 || turned)) {
            mCentre = mScene.own;
            mMovedS = nowS;
        }
        mMovedS = turned ? nowS : mMovedS;
        mMoved = mMoved || nowS - mMovedS < restS;
    }

    // Whether the map has turned with the aircraft.
    bool hasTurned() {
        return std::exchange(mHeadingShown, mScene.headingDeg) != mScene.headingDeg &&
               mScene.headingUp;
    }

    void fly(double seconds) {
        if (mHeld || mScene.alongM < 0.0 || mScene.alongM >= mFlight.path().lengthM()) {
            return;
        }
        const double metres = seconds * timeLapse * mScene.speedKt * metresPerMile / 3600.0;
        show(mFlight.sceneAt(mScene.alongM + metres));
        if (mFollow) {
            mCentre = mScene.own;
        }
        mMoved = hasTurned() || mFollow || mMoved;
    }

    void drawFrame() {
        const auto [width, height] = mScreen.size();
        mPicture->draw(mScene, Point(width, height), mCentre, mMoved ? movingStep : restingStep);
        mMoved = false;
    }

    // From where the last move led, which may not be drawn yet.
    void pan(double dx, double dy) {
        const MapView& drawn = mPicture->view();
        const MapView view(mCentre, drawn.metresPerPixel(), drawn.upDeg(), drawn.focus(),
                           drawn.size());
        const Position moved = view.toPosition(Point(view.focus().x - dx, view.focus().y + dy));
        mCentre = {std::clamp(moved.lat, -farthestLat, farthestLat), longitudeNear(0.0, moved.lon)};
        mFollow = false;
        mMoved = true;
    }

    // A touchpad scrolls by parts of a step.
    void scroll(double steps) {
        mScrolled += steps;
        for (; mScrolled >= 1.0; mScrolled -= 1.0) {
            zoomIn();
        }
        for (; mScrolled <= -1.0; mScrolled += 1.0) {
            zoomOut();
        }
    }

    void zoomIn() {
        const auto range = std::lower_bound(ranges.begin(), ranges.end(), rangeShown() - 1e-6);
        if (range != ranges.begin()) {
            setRange(*(range - 1));
        }
    }

    void zoomOut() {
        const auto range = std::upper_bound(ranges.begin(), ranges.end(), rangeShown() + 1e-6);
        if (range != ranges.end()) {
            setRange(*range);
        }
    }

    double rangeShown() const { return mScene.rangeM / mUnitM; }

    void setRange(double range) {
        mScene.rangeM = range * mUnitM;
        mMoved = true;
    }

    void pressKey(const std::string& key) {
        if (key == "H") {
            mScene.headingUp = !mScene.headingUp;
        } else if (key == "C") {
            mFollow = true;
            mCentre = mScene.own;
        } else if (key == "Space") {
            mHeld = !mHeld;
        } else if (key == "+") {
            zoomIn();
        } else if (key == "-") {
            zoomOut();
        } else {
            panByKey(key);
        }
    }

    void panByKey(const std::string& key) {
        const double x = key == "Left" ? 1.0 : key == "Right" ? -1.0 : 0.0;
        const double y = key == "Up" ? 1.0 : key == "Down" ? -1.0 : 0.0;
        if (x != 0.0 || y != 0.0) {
            pan(x * keyPanPixels * mScale, y * keyPanPixels * mScale);
        }
    }

    Screen& mScreen;
    const Options& mOptions;
    const Flight& mFlight;
    Orlek::Geodetic::HeightMap& mTerrain;
    const Charts& mCharts;
    LiveFlight* mLive;
    LastView& mLeft;
    double mUnitM;
    double mScale = 0.0;
    std::optional<MapPicture> mPicture;
    Scene mScene;
    Position mCentre;
    bool mFollow;
    bool mHeld = false;
    bool mMoved = false;
    double mMovedS = -restS;
    double mHeadingShown = 0.0;
    double mScrolled = 0.0;
};

}  // namespace

void showWindow(Screen& screen, const Options& options, const Flight& flight,
                Orlek::Geodetic::HeightMap& terrain, const Charts& charts, LiveFlight* live,
                LastView& left) {
    Session(screen, options, flight, terrain, charts, live, left).run();
}

}  // namespace MovingMap
