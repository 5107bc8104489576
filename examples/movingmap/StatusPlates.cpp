// Small dark plates along the picture's upper edge.
#include "StatusPlates.h"

#include "Format.h"

namespace MovingMap {

namespace {

constexpr double plateHeight = 30.0;
constexpr double margin = 10.0;

Box topBox(const Canvas& canvas, Point size, double left, double width) {
    const double top = size.y - margin * canvas.unit;
    return {Point(left, top - plateHeight * canvas.unit), Point(left + width, top)};
}

double baseline(const Box& box, const PlateText& text) {
    return (box.low.y + box.high.y - text.capHeight()) / 2.0;
}

std::string modeText(const Scene& scene, DistanceUnit unit) {
    return std::string(scene.headingUp ? "HEADING UP" : "NORTH UP") + "   " +
           lengthText(scene.rangeM, unit);
}

}  // namespace

Box headingBox(const Canvas& canvas, Point size) {
    const double width =
        canvas.small.width("HDG ") + canvas.large.width("000\xB0") + 2.0 * platePad * canvas.unit;
    return topBox(canvas, size, (size.x - width) / 2.0, width);
}

void drawHeading(Canvas& canvas, const Box& box, const Scene& scene) {
    const double left = box.low.x + platePad * canvas.unit;
    const double right = box.high.x - platePad * canvas.unit;
    canvas.fill.rect(box.low, box.high, plate);
    canvas.small.add("HDG", Point(left, baseline(box, canvas.large)), Align::left, grey);
    const bool known = scene.ownState != OwnShipState::unknown;
    canvas.large.add(known ? direction(scene.headingDeg) : "---",
                     Point(right, baseline(box, canvas.large)), Align::right,
                     scene.ownState == OwnShipState::current ? canvas.style.colours.ownShip : red);
}

Box modeBox(const Canvas& canvas, Point size) {
    const double width = canvas.small.width("HEADING UP   000.0 NM") + 2.0 * platePad * canvas.unit;
    return topBox(canvas, size, margin * canvas.unit, width);
}

void drawMode(Canvas& canvas, const Box& box, const Scene& scene) {
    const Point middle((box.low.x + box.high.x) / 2.0, baseline(box, canvas.small));
    canvas.fill.rect(box.low, box.high, plate);
    canvas.small.add(modeText(scene, canvas.style.units.distance), middle, Align::centre, white);
}

}  // namespace MovingMap
