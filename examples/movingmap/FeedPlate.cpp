#include "FeedPlate.h"

#include <algorithm>

#include "LiveFlight.h"

namespace MovingMap {

namespace {

constexpr double lineHeight = 20.0;
constexpr double gap = 6.0;

}  // namespace

Box feedBox(const Canvas& canvas, const Box& above, const Live& live) {
    const double unit = canvas.unit;
    double width = above.high.x - above.low.x;
    double height = 1.5 * platePad * unit;
    for (const LiveNote& note : notesOf(live)) {
        width = std::max(width, canvas.small.width(note.text) + 2.0 * platePad * unit);
        height += lineHeight * unit;
    }
    const double top = above.low.y - gap * unit;
    return {Point(above.low.x, top - height), Point(above.low.x + width, top)};
}

void drawFeed(Canvas& canvas, const Box& box, const Live& live) {
    canvas.fill.rect(box.low, box.high, plate);
    double y = box.high.y - platePad * canvas.unit - canvas.small.capHeight();
    for (const LiveNote& note : notesOf(live)) {
        canvas.small.add(note.text, Point(box.low.x + platePad * canvas.unit, y), Align::left,
                         note.colour);
        y -= lineHeight * canvas.unit;
    }
}

}  // namespace MovingMap
