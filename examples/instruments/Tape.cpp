#include "Tape.h"

#include <algorithm>
#include <cmath>

#include "RollingDigits.h"

namespace Instruments {

namespace {

constexpr float bugHeight = 26.0F;

class Tape {
public:
    Tape(Canvas& canvas, const TapeStyle& style, double value)
        : mCanvas(canvas), mStyle(style), mValue(value), mMiddle(style.box.centre().y) {}

    float y(double value) const {
        return mMiddle + static_cast<float>((value - mValue) / mStyle.minor) * mStyle.unitsPerStep;
    }

    void drawScale() {
        const double reach = mStyle.minor * mStyle.box.height() / mStyle.unitsPerStep / 2;
        Points ticks;
        for (double i = std::max(0.0, std::floor((mValue - reach) / mStyle.minor));
             i * mStyle.minor <= mValue + reach; ++i) {
            drawTick(i * mStyle.minor, ticks);
        }
        mCanvas.segments(ticks, white, 2);
    }

    void drawBug(double selected) {
        const float half = bugHeight / 2;
        const float at = std::clamp(y(selected), mStyle.box.bottom + half, mStyle.box.top - half);
        const float out = side(10);
        mCanvas.polygon({{edge(), at - half},
                         {edge() + out, at - half},
                         {edge() + out, at - 6},
                         {edge() + side(2), at},
                         {edge() + out, at + 6},
                         {edge() + out, at + half},
                         {edge(), at + half}},
                        cyan);
    }

    void drawTrend(double value) {
        const float x = edge() - side(3);
        mCanvas.line({{x, mMiddle}, {x, std::clamp(y(value), mStyle.box.bottom, mStyle.box.top)}},
                     green, 4);
    }

    // The rolling digits stand in the higher part of the window.
    void drawWindow() {
        const float inner = edge() + side(4);
        const float outer = mStyle.right ? mStyle.box.right : mStyle.box.left;
        const Points outline = {{edge() - side(6), mMiddle}, {inner, mMiddle + 9},
                                {inner, mMiddle + 22},       {outer, mMiddle + 22},
                                {outer, mMiddle - 22},       {inner, mMiddle - 22},
                                {inner, mMiddle - 9}};
        mCanvas.polygon(outline, black);
        mCanvas.loop(outline, white, 2);
        const float left = std::min(inner, outer);
        drawRollingDigits(mCanvas,
                          {left + 2, mMiddle - 20, std::max(inner, outer) - 5, mMiddle + 20},
                          mValue, {mStyle.roll, mStyle.rollDigits, mStyle.digits});
    }

private:
    // The edge towards the middle of the picture, and a distance away from it.
    float edge() const { return mStyle.right ? mStyle.box.left : mStyle.box.right; }
    float side(float distance) const { return mStyle.right ? distance : -distance; }

    void drawTick(double value, Points& ticks) {
        const bool numbered = std::fmod(value + 1e-6, mStyle.major) < 1e-3;
        ticks.push_back({edge(), y(value)});
        ticks.push_back({edge() + side(numbered ? 16.0F : 9.0F), y(value)});
        if (numbered) {
            mCanvas.text(std::to_string(std::lround(value)), {edge() + side(22), y(value)}, 19,
                         white,
                         mStyle.right ? Canvas::Align::CENTER_LEFT : Canvas::Align::CENTER_RIGHT);
        }
    }

    Canvas& mCanvas;
    const TapeStyle& mStyle;
    double mValue;
    float mMiddle;
};

}  // namespace

void drawTape(Canvas& canvas, const TapeStyle& style, double value, double selected,
              std::optional<double> trend) {
    Tape tape(canvas, style, value);
    canvas.fill(style.box, plate);
    canvas.clip(style.box);
    tape.drawScale();
    canvas.noClip();
    tape.drawBug(selected);
    if (trend) {
        tape.drawTrend(*trend);
    }
    tape.drawWindow();
}

}  // namespace Instruments
