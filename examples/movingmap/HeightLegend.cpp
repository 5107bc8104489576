// Equal steps of the figures rather than of the height: the lowlands have most of the colours.
#include "HeightLegend.h"

#include <array>

#include "Format.h"
#include "HeightColours.h"

namespace MovingMap {

namespace {

using Figures = std::array<double, 8>;
constexpr Figures figuresFt = {0, 500, 1000, 2000, 3000, 5000, 8000, 12000};
constexpr Figures figuresM = {0, 150, 300, 600, 1000, 1500, 2500, 4000};
constexpr int shadesAStep = 12;
constexpr double bandStep = 22.0;
constexpr double bar = 14.0;
constexpr double legendPad = 8.0;

Colour colourAt(double heightM) {
    const Rgb colour = heightColour(heightM);
    return Colour(static_cast<float>(colour.red), static_cast<float>(colour.green),
                  static_cast<float>(colour.blue), 1.0F);
}

}  // namespace

Box heightLegendBox(const Canvas& canvas, Point corner) {
    const double unit = canvas.unit;
    const double width = canvas.small.width("12000") + (bar + 3.0 * legendPad) * unit;
    const double height =
        (bandStep * (figuresM.size() - 1) + 5.0 * legendPad) * unit + canvas.small.capHeight();
    return {Point(corner.x - width, corner.y - height), corner};
}

void drawHeightLegend(Canvas& canvas, const Box& box) {
    const double unit = canvas.unit;
    const double rim = legendPad * unit;
    const double capHeight = canvas.small.capHeight();
    const AltitudeUnit altitude = canvas.style.units.altitude;
    const Figures& figures = altitude == AltitudeUnit::metres ? figuresM : figuresFt;
    canvas.fill.rect(box.low, box.high, plate);
    canvas.small.add(symbol(altitude), Point(box.high.x - rim, box.high.y - rim - capHeight),
                     Align::right, grey);
    const Point start(box.low.x + rim, box.low.y + 1.5 * rim);
    for (std::size_t i = 0; i < figures.size(); ++i) {
        const double y = start.y + bandStep * unit * static_cast<double>(i);
        canvas.small.add(wholeNumber(figures[i]), Point(box.high.x - rim, y - capHeight / 2.0),
                         Align::right, white);
        for (int shade = 0; i + 1 < figures.size() && shade < shadesAStep; ++shade) {
            const double t = static_cast<double>(shade) / shadesAStep;
            const double height = figures[i] + (figures[i + 1] - figures[i]) * t;
            canvas.fill.rect(
                Point(start.x, y + bandStep * unit * t),
                Point(start.x + bar * unit, y + bandStep * unit * (t + 1.0 / shadesAStep)),
                colourAt(height * metresPer(altitude)));
        }
    }
}

}  // namespace MovingMap
