// Three kinds, told apart by colour and by the direction of their stipple: not by colour alone.
#include "AirspaceLayer.h"

#include <algorithm>

namespace MovingMap {

namespace {

struct Look {
    Colour line;
    Colour text;
    ScreenStipple stipple;
};

Colour withAlpha(const Colour& colour, float alpha) {
    return {colour.x, colour.y, colour.z, alpha};
}

const Look& lookOf(AirspaceKind kind) {
    static const Look controlled{
        {0.12F, 0.32F, 0.95F, 1.0F}, {0.86F, 0.93F, 1.0F, 1.0F}, dottedStipple()};
    static const Look prohibited{
        {0.85F, 0.10F, 0.10F, 1.0F}, {1.0F, 0.87F, 0.84F, 1.0F}, risingStipple()};
    static const Look training{
        {0.42F, 0.20F, 0.75F, 1.0F}, {0.94F, 0.89F, 1.0F, 1.0F}, fallingStipple()};
    switch (kind) {
        case AirspaceKind::controlled:
            return controlled;
        case AirspaceKind::prohibited:
            return prohibited;
        case AirspaceKind::training:
            break;
    }
    return training;
}

Box boxAround(const Polyline& outline) {
    Box box{outline.front(), outline.front()};
    for (const Point& point : outline) {
        box.low = Point(std::min(box.low.x, point.x), std::min(box.low.y, point.y));
        box.high = Point(std::max(box.high.x, point.x), std::max(box.high.y, point.y));
    }
    return box;
}

// Places for the middle of a label, from the middle of what can be seen outwards.
std::vector<Point> placesInside(const Polyline& outline, const Box& area) {
    const Box all = boxAround(outline);
    const Point low(std::max(all.low.x, area.low.x), std::max(all.low.y, area.low.y));
    const Point high(std::min(all.high.x, area.high.x), std::min(all.high.y, area.high.y));
    const Point middle((low.x + high.x) / 2.0, (low.y + high.y) / 2.0);
    constexpr int side = 9;
    std::vector<Point> places;
    for (int i = 0; i < side * side; ++i) {
        const Point place(low.x + (high.x - low.x) * (i % side + 0.5) / side,
                          low.y + (high.y - low.y) * (i / side + 0.5) / side);
        if (isInside(outline, place)) {
            places.push_back(place);
        }
    }
    std::stable_sort(places.begin(), places.end(), [&](Point a, Point b) {
        return (a - middle).Length() < (b - middle).Length();
    });
    return places;
}

void addLabel(Canvas& canvas, const AirspaceShape& shape, LabelPlacer& placer, const Box& area) {
    const Airspace& airspace = *shape.airspace;
    LabelText& text = canvas.smallLabel;
    const std::string name = airspace.name + "  " + airspace.type;
    const std::string limits = airspace.ceiling + " / " + airspace.floor;
    const double line = text.capHeight() + 6.0 * canvas.unit;
    const Point size(std::max(text.width(name), text.width(limits)), line + text.capHeight());
    for (const Polyline& outline : shape.outlines) {
        if (const auto box = placer.placeOneOf(placesInside(outline, area), size)) {
            const double middle = (box->low.x + box->high.x) / 2.0;
            const Colour& colour = lookOf(airspace.kind).text;
            text.add(name, Point(middle, box->low.y + line), Align::centre, colour);
            text.add(limits, Point(middle, box->low.y), Align::centre, colour);
            return;
        }
    }
}

}  // namespace

std::vector<AirspaceShape> projectAirspace(const std::vector<Airspace>& airspace,
                                           const MapView& view, const Box& area) {
    std::vector<AirspaceShape> shapes;
    for (const Airspace& one : airspace) {
        AirspaceShape shape{&one, {}};
        for (const auto& outline : one.outlines) {
            Polyline points;
            for (const Position& corner : outline) {
                points.push_back(view.toScreen(corner));
            }
            if (boxAround(points).overlaps(area)) {
                shape.outlines.push_back(std::move(points));
            }
        }
        if (!shape.outlines.empty()) {
            shapes.push_back(std::move(shape));
        }
    }
    return shapes;
}

void drawAirspace(Canvas& canvas, const std::vector<AirspaceShape>& shapes) {
    for (const AirspaceShape& shape : shapes) {
        const Look& look = lookOf(shape.airspace->kind);
        for (const Polyline& outline : shape.outlines) {
            canvas.fill.polygon(outline, withAlpha(look.line, 0.10F));
            canvas.fill.polygon(outline, withAlpha(look.line, 0.28F), &look.stipple);
            canvas.stroke.loop(outline);
        }
        canvas.stroke.draw({.colour = look.line, .width = 2.2 * canvas.unit});
    }
}

void addAirspaceLabels(Canvas& canvas, const std::vector<AirspaceShape>& shapes,
                       LabelPlacer& placer, const Box& area) {
    for (const AirspaceShape& shape : shapes) {
        for (Polyline outline : shape.outlines) {
            outline.push_back(outline.front());
            placer.avoid(outline);
        }
    }
    for (const AirspaceShape& shape : shapes) {
        addLabel(canvas, shape, placer, area);
    }
}

bool isInside(const Polyline& outline, Point point) {
    bool inside = false;
    for (std::size_t i = 0, j = outline.size() - 1; i < outline.size(); j = i++) {
        const Point& a = outline[i];
        const Point& b = outline[j];
        if ((a.y > point.y) != (b.y > point.y) &&
            point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x) {
            inside = !inside;
        }
    }
    return inside;
}

}  // namespace MovingMap
