// Lengths in the series 1, 2, 5.
#include "ScaleBar.h"

#include <cmath>

namespace MovingMap {

namespace {

constexpr double longest = 170.0;

double barM(const Canvas& canvas, const MapView& view) {
    const double unitM = metresPer(canvas.style.units.distance);
    return roundLength(longest * canvas.unit * view.metresPerPixel() / unitM) * unitM;
}

}  // namespace

double roundLength(double most) {
    const double decade = std::pow(10.0, std::floor(std::log10(most)));
    const double digit = most / decade;
    return decade * (digit >= 5.0 ? 5.0 : digit >= 2.0 ? 2.0 : 1.0);
}

Box scaleBarBox(const Canvas& canvas, const MapView& view, Point at) {
    const double width = barM(canvas, view) / view.metresPerPixel();
    return {at, Point(at.x + width + 2.0 * platePad * canvas.unit, at.y + 38.0 * canvas.unit)};
}

void drawScaleBar(Canvas& canvas, const MapView& view, const Box& box) {
    const double unit = canvas.unit;
    const Point left(std::round(box.low.x + platePad * unit) + 0.5,
                     std::round(box.low.y + platePad * unit) + 0.5);
    const Point right(std::round(box.high.x - platePad * unit) + 0.5, left.y);
    const Point middle((left.x + right.x) / 2.0, left.y);
    const Point up(0.0, 6.0 * unit);
    canvas.fill.rect(box.low, box.high, plate);
    canvas.stroke.polyline({left + up, left, right, right + up});
    canvas.stroke.segment(middle, Point(middle.x, middle.y + 4.0 * unit));
    canvas.stroke.draw({.colour = white, .width = 1.6 * unit});
    canvas.small.add(lengthText(barM(canvas, view), canvas.style.units.distance),
                     Point(middle.x, middle.y + 10.0 * unit), Align::centre, white);
}

}  // namespace MovingMap
