#include "HeadingStrip.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace Instruments {

namespace {

constexpr double unitsPerDegree = 6.5;

}  // namespace

std::string headingText(double headingDeg) {
    const long whole = (std::lround(headingDeg) % 360 + 360) % 360;
    char text[8];
    std::snprintf(text, sizeof text, "%03ld", whole == 0 ? 360 : whole);
    return text;
}

std::string roseText(int headingDeg) {
    switch ((headingDeg % 360 + 360) % 360) {
        case 0:
            return "N";
        case 90:
            return "E";
        case 180:
            return "S";
        case 270:
            return "W";
        default:
            return std::to_string((headingDeg % 360 + 360) % 360 / 10);
    }
}

void drawHeadingStrip(Canvas& canvas, const Box& box, double headingDeg, double selectedDeg) {
    const float middle = box.centre().x;
    const auto x = [&](double degrees) {
        return middle +
               static_cast<float>(std::remainder(degrees - headingDeg, 360.0) * unitsPerDegree);
    };
    canvas.fill(box, plate);
    canvas.clip(box);
    Points ticks;
    const int first = static_cast<int>(std::floor(headingDeg / 5.0)) * 5 - 40;
    for (int degrees = first; degrees <= first + 85; degrees += 5) {
        const bool numbered = degrees % 10 == 0;
        ticks.insert(ticks.end(),
                     {{x(degrees), box.top}, {x(degrees), box.top - (numbered ? 14.0F : 8.0F)}});
        if (numbered) {
            canvas.text(roseText(degrees), {x(degrees), box.top - 28}, 19, white);
        }
    }
    canvas.segments(ticks, white, 2);
    canvas.noClip();
    const float bug = std::clamp(x(selectedDeg), box.left, box.right);
    canvas.polygon({{bug - 13, box.top + 10},
                    {bug - 13, box.top},
                    {bug + 13, box.top},
                    {bug + 13, box.top + 10},
                    {bug + 6, box.top + 10},
                    {bug, box.top + 2},
                    {bug - 6, box.top + 10}},
                   cyan);
    canvas.polygon({{middle, box.top - 2}, {middle - 9, box.top + 13}, {middle + 9, box.top + 13}},
                   white);
}

}  // namespace Instruments
