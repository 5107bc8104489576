// Everything turns about the aircraft: what lies ahead is up.
#include "Hsi.h"

#include <cmath>

#include "HeadingStrip.h"

namespace Instruments {

namespace {

constexpr float dotSpacing = 34.0F;

class Hsi {
public:
    Hsi(Canvas& canvas, const FlightState& state, Point centre, float radius)
        : mCanvas(canvas),
          mState(state),
          mGuidance(guidanceAt(state)),
          mCentre(centre),
          mR(radius) {}

    void drawRose() {
        mCanvas.disc(mCentre, mR, {0.07F, 0.09F, 0.12F, 1});
        const Placed rose(mCentre, onScreen(0));
        mCanvas.loop(arc(mR, 0, 357), grey, 2);
        Points ticks;
        for (int degrees = 0; degrees < 360; degrees += 5) {
            const float length = degrees % 10 == 0 ? 16.0F : 9.0F;
            const auto at = static_cast<float>(degrees);
            ticks.push_back(onCircle(mR, at));
            ticks.push_back(onCircle(mR - length, at));
        }
        mCanvas.segments(ticks, white, 2);
        for (int degrees = 0; degrees < 360; degrees += 30) {
            const Placed turned({0, 0}, static_cast<float>(degrees));
            mCanvas.text(roseText(degrees), {2, mR - 32}, degrees % 90 == 0 ? 26.0F : 21.0F, white);
        }
    }

    void drawBug() {
        const Placed placed(mCentre, onScreen(mState.selectedHeadingDeg));
        mCanvas.polygon({{-14, mR + 12},
                         {-14, mR},
                         {14, mR},
                         {14, mR + 12},
                         {7, mR + 12},
                         {0, mR + 2},
                         {-7, mR + 12}},
                        cyan);
    }

    void drawBearing() {
        const Placed placed(mCentre, onScreen(mGuidance.bearingDeg));
        const float outer = mR - 46;
        const float inner = mR * 0.56F;
        mCanvas.loop({{0, outer},
                      {-11, outer - 18},
                      {-4, outer - 18},
                      {-4, inner},
                      {4, inner},
                      {4, outer - 18},
                      {11, outer - 18}},
                     cyan, 2);
        mCanvas.loop(
            {{-4, -inner}, {4, -inner}, {4, -outer + 4}, {0, -outer - 4}, {-4, -outer + 4}}, cyan,
            2);
    }

    void drawCourse() {
        const Placed placed(mCentre, onScreen(mGuidance.courseDeg));
        const float outer = mR - 22;
        const float inner = mR * 0.48F;
        drawDots();
        mCanvas.polygon({{0, outer},
                         {-13, outer - 24},
                         {-3, outer - 24},
                         {-3, inner},
                         {3, inner},
                         {3, outer - 24},
                         {13, outer - 24}},
                        magenta);
        mCanvas.polygon({{-3, -inner}, {3, -inner}, {3, -outer}, {-3, -outer}}, magenta);
        const float x = static_cast<float>(mGuidance.dots) * dotSpacing;
        mCanvas.polygon(
            {{x - 3, inner - 6}, {x + 3, inner - 6}, {x + 3, 6 - inner}, {x - 3, 6 - inner}},
            magenta);
        drawToFrom(inner);
    }

    void drawAircraft() {
        const Placed placed(mCentre);
        mCanvas.polygon({{0, 24},
                         {-3, 17},
                         {-3, 7},
                         {-24, -2},
                         {-24, -6},
                         {-3, -3},
                         {-3, -16},
                         {-10, -21},
                         {-10, -24},
                         {0, -22},
                         {10, -24},
                         {10, -21},
                         {3, -16},
                         {3, -3},
                         {24, -6},
                         {24, -2},
                         {3, 7},
                         {3, 17}},
                        white);
        mCanvas.polygon({{0, mR + 1}, {-10, mR + 18}, {10, mR + 18}}, white);
        Points marks;
        for (const float angle : {45.0F, 90.0F, 135.0F, 180.0F, 225.0F, 270.0F, 315.0F}) {
            marks.push_back(onCircle(mR + 3, angle));
            marks.push_back(onCircle(mR + 13, angle));
        }
        mCanvas.segments(marks, white, 2);
    }

    void drawTexts() {
        const float left = mCentre.x - mR - 38;
        const float right = mCentre.x + mR + 38;
        const float top = mCentre.y + mR + 8;
        field({left, top}, "CRS", headingText(mGuidance.courseDeg), magenta,
              Canvas::Align::BOTTOM_LEFT);
        char distance[16];
        std::snprintf(distance, sizeof distance, "%.1f NM", mGuidance.distanceNm);
        field({right, top}, "DIST", distance, magenta, Canvas::Align::BOTTOM_RIGHT);
        const float low = mCentre.y - mR + 22;
        field({left, low}, "HDG SEL", headingText(mState.selectedHeadingDeg), cyan,
              Canvas::Align::BOTTOM_LEFT);
        field({right, low}, "BRG", headingText(mGuidance.bearingDeg), cyan,
              Canvas::Align::BOTTOM_RIGHT);
        const Box box{mCentre.x - 36, top + 14, mCentre.x + 36, top + 48};
        mCanvas.fill(box, black);
        mCanvas.loop({{box.left, box.bottom},
                      {box.left, box.top},
                      {box.right, box.top},
                      {box.right, box.bottom}},
                     white, 2);
        mCanvas.text(headingText(mState.headingDeg), {box.centre().x + 2, box.centre().y - 1}, 26,
                     white);
    }

private:
    // Where a bearing lies on the screen, clockwise from the top.
    float onScreen(double bearingDeg) const {
        return static_cast<float>(bearingDeg - mState.headingDeg);
    }

    void drawDots() {
        for (const int dot : {-2, -1, 1, 2}) {
            const Placed placed({static_cast<float>(dot) * dotSpacing, 0});
            mCanvas.loop(arc(5, 0, 330), white, 2);
        }
    }

    // Points along the course when the station lies ahead.
    void drawToFrom(float inner) {
        const float tip = mGuidance.to ? inner * 0.72F : -inner * 0.72F;
        const float base = mGuidance.to ? tip - 20 : tip + 20;
        mCanvas.polygon({{94, tip}, {82, base}, {106, base}}, white);
    }

    void field(Point at, const char* name, const std::string& value, const Colour& colour,
               Canvas::Align align) {
        mCanvas.label(name, {at.x, at.y + 12}, 15, grey, align);
        mCanvas.label(value, {at.x, at.y - 11}, 22, colour, align);
    }

    Canvas& mCanvas;
    const FlightState& mState;
    Guidance mGuidance;
    Point mCentre;
    float mR;
};

}  // namespace

void drawHsi(Canvas& canvas, const FlightState& state, Point centre, float radius) {
    Hsi hsi(canvas, state, centre, radius);
    hsi.drawRose();
    hsi.drawBug();
    hsi.drawBearing();
    hsi.drawCourse();
    hsi.drawAircraft();
    hsi.drawTexts();
}

}  // namespace Instruments
