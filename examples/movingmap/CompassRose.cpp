// Angles are compass angles; the view turns them.
#include "CompassRose.h"

#include <cmath>
#include <numbers>

namespace MovingMap {

namespace {

class Rose {
public:
    Rose(Canvas& canvas, const MapView& view, const Scene& scene)
        : mCanvas(canvas),
          mColours(canvas.style.colours),
          mScene(scene),
          mCentre(view.toScreen(scene.own)),
          mRadius(scene.rangeM / view.metresPerPixel()),
          mUpDeg(view.upDeg()) {}

    void drawRings() {
        mCanvas.stroke.circle(mCentre, mRadius);
        mCanvas.stroke.draw(pen(1.6));
        mCanvas.stroke.circle(mCentre, mRadius / 2.0);
        mCanvas.stroke.draw(pen(1.2));
    }

    void drawTicks() {
        for (int degrees = 0; degrees < 360; degrees += 5) {
            const double length = degrees % 30 == 0 ? 14.0 : degrees % 10 == 0 ? 10.0 : 6.0;
            mCanvas.stroke.segment(at(degrees, mRadius),
                                   at(degrees, mRadius - length * mCanvas.unit));
        }
        mCanvas.stroke.draw(pen(1.6));
    }

    void addFigures() {
        static const char* const figures[] = {"N", "3",  "6",  "E", "12", "15",
                                              "S", "21", "24", "W", "30", "33"};
        for (int i = 0; i < 12; ++i) {
            const bool cardinal = i % 3 == 0;
            LabelText& text = cardinal ? mCanvas.largeLabel : mCanvas.label;
            addCentred(text, figures[i], at(i * 30, mRadius - 27.0 * mCanvas.unit),
                       i == 0 ? mColours.ownShip : mColours.rings);
        }
    }

    // Below and to the right of the aircraft, where the route seldom runs and no figure stands.
    void addDistances() {
        for (const double share : {0.5, 1.0}) {
            const Point place = onScreen(135.0, mRadius * share + 17.0 * mCanvas.unit);
            addCentred(mCanvas.smallLabel,
                       lengthText(mScene.rangeM * share, mCanvas.style.units.distance), place,
                       mColours.rings);
        }
    }

    void drawHeading() {
        const double unit = mCanvas.unit;
        const double heading = mScene.headingDeg;
        const Point tip = at(heading, mRadius - 2.0 * unit);
        const Point left = at(heading, mRadius + 13.0 * unit, -7.0 * unit);
        const Point right = at(heading, mRadius + 13.0 * unit, 7.0 * unit);
        mCanvas.fill.strip({tip, left, right}, mColours.ownShip);
        mCanvas.stroke.loop({tip, left, right});
        mCanvas.stroke.draw({.colour = halo, .width = 1.2 * unit});
        mCanvas.stroke.segment(mCentre, at(heading, mRadius - 4.0 * unit));
        mCanvas.stroke.draw({.colour = withAlpha(mColours.ownShip, 0.8F),
                             .width = 1.2 * unit,
                             .rim = shadow,
                             .rimWidth = unit});
    }

    const std::vector<Box>& figures() const { return mFigures; }

private:
    Pen pen(double width) const {
        return {.colour = withAlpha(mColours.rings, 0.92F),
                .width = width * mCanvas.unit,
                .rim = shadow,
                .rimWidth = mCanvas.unit};
    }

    // A point at a screen angle clockwise from the top, and `aside` pixels to its right.
    Point onScreen(double degrees, double distance, double aside = 0.0) const {
        const double angle = degrees * std::numbers::pi / 180.0;
        return Point(mCentre.x + distance * std::sin(angle) + aside * std::cos(angle),
                     mCentre.y + distance * std::cos(angle) - aside * std::sin(angle));
    }

    Point at(double compassDeg, double distance, double aside = 0.0) const {
        return onScreen(compassDeg - mUpDeg, distance, aside);
    }

    void addCentred(LabelText& text, const std::string& words, Point place, const Colour& colour) {
        const Point half(text.width(words) / 2.0, text.capHeight() / 2.0);
        mFigures.push_back({place - half, place + half});
        text.add(words, Point(place.x, place.y - text.capHeight() / 2.0), Align::centre, colour);
    }

    Canvas& mCanvas;
    const Palette& mColours;
    const Scene& mScene;
    Point mCentre;
    double mRadius;
    double mUpDeg;
    std::vector<Box> mFigures;
};

}  // namespace

std::vector<Box> drawCompassRose(Canvas& canvas, const MapView& view, const Scene& scene) {
    Rose rose(canvas, view, scene);
    rose.drawRings();
    rose.drawTicks();
    if (scene.ownState != OwnShipState::unknown) {
        rose.drawHeading();
    }
    rose.addFigures();
    rose.addDistances();
    return rose.figures();
}

}  // namespace MovingMap
