// Equal steps of the figures rather than of the height: the lowlands have most of the colours.
#include "HeightLegend.h"

#include <array>

#include "Format.h"
#include "HeightColours.h"

namespace MovingMap {

namespace {

constexpr std::array<double, 8> figuresFt = {0, 500, 1000, 2000, 3000, 5000, 8000, 12000};
constexpr int shadesAStep = 12;
constexpr double step = 22.0;
constexpr double bar = 14.0;
constexpr double pad = 8.0;

Colour colourAt(double feetHeight) {
    const Rgb colour = heightColour(feetHeight * metresPerFoot);
    return Colour(static_cast<float>(colour.red), static_cast<float>(colour.green),
                  static_cast<float>(colour.blue), 1.0F);
}

}  // namespace

Box heightLegendBox(const Canvas& canvas, Point corner) {
    const double unit = canvas.unit;
    const double width = canvas.small.width("12000") + (bar + 3.0 * pad) * unit;
    const double height =
        (step * (figuresFt.size() - 1) + 5.0 * pad) * unit + canvas.small.capHeight();
    return {Point(corner.x - width, corner.y - height), corner};
}

void drawHeightLegend(Canvas& canvas, const Box& box) {
    const double unit = canvas.unit;
    const double rim = pad * unit;
    const double capHeight = canvas.small.capHeight();
    canvas.fill.rect(box.low, box.high, plate);
    canvas.small.add("FT", Point(box.high.x - rim, box.high.y - rim - capHeight), Align::right,
                     grey);
    const Point start(box.low.x + rim, box.low.y + 1.5 * rim);
    for (std::size_t i = 0; i < figuresFt.size(); ++i) {
        const double y = start.y + step * unit * static_cast<double>(i);
        canvas.small.add(wholeNumber(figuresFt[i]), Point(box.high.x - rim, y - capHeight / 2.0),
                         Align::right, white);
        for (int shade = 0; i + 1 < figuresFt.size() && shade < shadesAStep; ++shade) {
            const double t = static_cast<double>(shade) / shadesAStep;
            const double feetHeight = figuresFt[i] + (figuresFt[i + 1] - figuresFt[i]) * t;
            canvas.fill.rect(Point(start.x, y + step * unit * t),
                             Point(start.x + bar * unit, y + step * unit * (t + 1.0 / shadesAStep)),
                             colourAt(feetHeight));
        }
    }
}

}  // namespace MovingMap
