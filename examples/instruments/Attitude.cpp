// In a right bank the horizon tilts to the left; with the nose up it sinks.
#include "Attitude.h"

#include <cmath>
#include <cstdlib>

namespace Instruments {

namespace {

constexpr float unitsPerPitchDegree = 9.0F;
constexpr double ladderReach = 17.0;  // degrees above and below the symbol
constexpr float bankRadius = 196.0F;  // its ends stay between the tapes
constexpr float beyond = 1200.0F;

void drawSkyAndGround(Canvas& canvas) {
    canvas.shade({{-beyond, beyond},
                  {beyond, beyond},
                  {-beyond, 220},
                  {beyond, 220},
                  {-beyond, 0},
                  {beyond, 0}},
                 {skyTop, skyTop, skyTop, skyTop, skyLow, skyLow});
    canvas.shade({{-beyond, 0},
                  {beyond, 0},
                  {-beyond, -220},
                  {beyond, -220},
                  {-beyond, -beyond},
                  {beyond, -beyond}},
                 {groundHigh, groundHigh, groundLow, groundLow, groundLow, groundLow});
    canvas.segments({{-beyond, 0}, {beyond, 0}}, white, 2);
}

// Steps of 2.5 degrees: the shorter, the finer.
float halfLength(int step) {
    return step % 4 == 0 ? 62.0F : step % 2 == 0 ? 34.0F : 16.0F;
}

void drawLadder(Canvas& canvas, double pitchDeg) {
    Points rungs;
    for (int step = -24; step <= 24; ++step) {
        const float y = static_cast<float>(step) * 2.5F * unitsPerPitchDegree;
        if (step == 0 || std::abs(step * 2.5 - pitchDeg) > ladderReach) {
            continue;
        }
        rungs.insert(rungs.end(), {{-halfLength(step), y}, {halfLength(step), y}});
        if (step % 4 == 0) {
            const std::string degrees = std::to_string(std::abs(step) * 10 / 4);
            canvas.text(degrees, {-halfLength(step) - 8, y}, 19, white,
                        Canvas::Align::CENTER_RIGHT);
            canvas.text(degrees, {halfLength(step) + 10, y}, 19, white, Canvas::Align::CENTER_LEFT);
        }
    }
    canvas.segments(rungs, white, 2);
}

void drawBankScale(Canvas& canvas) {
    canvas.line(arc(bankRadius, -60, 60), white, 2);
    Points ticks;
    for (const int angle : {10, 20, 30, 45, 60}) {
        const float length = angle % 30 == 0 ? 16.0F : 10.0F;
        for (const auto side : {-1.0F, 1.0F}) {
            const float degrees = side * static_cast<float>(angle);
            ticks.push_back(onCircle(bankRadius, degrees));
            ticks.push_back(onCircle(bankRadius + length, degrees));
        }
    }
    canvas.segments(ticks, white, 2);
    canvas.polygon({{0, bankRadius + 1}, {-10, bankRadius + 19}, {10, bankRadius + 19}}, white);
}

// Points to the sky; the bar below slides to the side that the ball of a slip indicator would.
void drawSkyPointer(Canvas& canvas, const FlightState& state) {
    const float top = bankRadius - 2;
    canvas.polygon({{0, top}, {-12, top - 20}, {12, top - 20}}, yellow);
    const float x = static_cast<float>(state.slip) * 40.0F;
    canvas.polygon({{x - 13, top - 24}, {x + 13, top - 24}, {x + 17, top - 32}, {x - 17, top - 32}},
                   yellow);
}

void drawSymbolPart(Canvas& canvas, const Points& outline) {
    canvas.polygon(outline, black);
    canvas.loop(outline, yellow, 2);
}

void drawSymbol(Canvas& canvas) {
    for (const float side : {-1.0F, 1.0F}) {
        drawSymbolPart(canvas, {{side * 150, 4},
                                {side * 72, 4},
                                {side * 72, -24},
                                {side * 82, -24},
                                {side * 82, -5},
                                {side * 150, -5}});
    }
    drawSymbolPart(canvas, {{-5, -5}, {5, -5}, {5, 5}, {-5, 5}});
}

}  // namespace

void drawAttitude(Canvas& canvas, const FlightState& state, const Box& box, Point centre) {
    const auto bank = static_cast<float>(state.bankDeg);
    canvas.clip(box);
    {
        const Placed tilted(centre, -bank);
        {
            const Placed shifted({0, -static_cast<float>(state.pitchDeg) * unitsPerPitchDegree});
            drawSkyAndGround(canvas);
            drawLadder(canvas, state.pitchDeg);
        }
        drawSkyPointer(canvas, state);
    }
    const Placed placed(centre);
    drawBankScale(canvas);
    drawSymbol(canvas);
    canvas.noClip();
}

}  // namespace Instruments
