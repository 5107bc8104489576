#include "Panel.h"

#include <cmath>
#include <cstdio>

#include "Attitude.h"
#include "HeadingStrip.h"
#include "Hsi.h"
#include "Tape.h"
#include "VerticalSpeed.h"

namespace Instruments {

namespace {

constexpr double trendS = 6.0;

constexpr Box attitudeBox{20, 118, 680, 780};
constexpr Box headingBox{150, 20, 510, 72};
constexpr Box verticalSpeedBox{632, 280, 672, 650};
constexpr Box videoBox{720, 30, 1008, 192};
constexpr Box dataBox{1030, 30, 1258, 192};

constexpr TapeStyle speedTape{{34, 225, 118, 705}, false, 22.0F, 5.0, 10.0, 1.0, 1, 3};
constexpr TapeStyle altitudeTape{{518, 225, 620, 705}, true, 26.0F, 20.0, 100.0, 20.0, 2, 5};

template <typename... Values>
std::string format(const char* pattern, Values... values) {
    char text[32];
    std::snprintf(text, sizeof text, pattern, values...);
    return text;
}

}  // namespace

Panel::Panel(const std::string& fontFile) : mCanvas(fontFile) {}

void Panel::draw(double seconds, int width, int height) {
    const FlightState state = mFlight.at(seconds);
    mCanvas.begin(width, height);
    drawFlightDisplay(state);
    drawSituation(state, seconds);
}

void Panel::drawFlightDisplay(const FlightState& state) {
    drawAttitude(mCanvas, state, attitudeBox, {attitudeBox.centre().x - 20, 465});
    drawTape(mCanvas, speedTape, state.speedKt, state.selectedSpeedKt,
             state.speedKt + state.accelerationKt * trendS);
    drawTape(mCanvas, altitudeTape, state.altitudeFt, state.selectedAltitudeFt,
             state.altitudeFt + state.climbFpm / 60.0 * trendS);
    drawVerticalSpeed(mCanvas, verticalSpeedBox, state.climbFpm);
    drawHeadingStrip(mCanvas, headingBox, state.headingDeg, state.selectedHeadingDeg);
    mCanvas.label(format("%.0f", state.selectedSpeedKt), {76, 728}, 22, cyan);
    mCanvas.label(format("%.0f", state.selectedAltitudeFt), {569, 728}, 22, cyan);
    mCanvas.label("KT", {76, 208}, 16, white);
    mCanvas.label("1013 HPA", {569, 208}, 16, cyan);
    mCanvas.label(headingText(state.selectedHeadingDeg), {84, 56}, 22, cyan);
    mCanvas.label(headingText(state.headingDeg), {330, 100}, 22, white);
}

void Panel::drawSituation(const FlightState& state, double seconds) {
    drawHsi(mCanvas, state, {988, 488}, 226);
    mVideo.draw(mCanvas, videoBox, state);
    drawFlightData(state, seconds);
}

void Panel::drawFlightData(const FlightState& state, double seconds) {
    const double time = std::fmod(seconds, Flight::lengthS);
    const struct {
        const char* name;
        std::string value;
    } rows[] = {
        {"IAS", format("%.0f KT", state.speedKt)},
        {"BANK", format("%.0f %c", std::abs(state.bankDeg), state.bankDeg < 0 ? 'L' : 'R')},
        {"V/S", format("%.0f FPM", std::round(state.climbFpm / 10) * 10 + 0.0)},
        {"TIME", format("%02.0f:%02.0f", std::floor(time / 60), std::floor(std::fmod(time, 60)))},
    };
    float y = dataBox.top - 22;
    for (const auto& row : rows) {
        mCanvas.label(row.name, {dataBox.left, y}, 17, grey, Canvas::Align::BOTTOM_LEFT);
        mCanvas.label(row.value, {dataBox.right, y}, 22, green, Canvas::Align::BOTTOM_RIGHT);
        y -= 39;
    }
}

}  // namespace Instruments
