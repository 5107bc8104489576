// Three kinds, told apart by colour and by the direction of their stipple: not by colour alone.
#include "AirspaceLayer.h"

#include <algorithm>
#include <utility>

#include "PolygonCut.h"

namespace MovingMap {

namespace {

struct Look {
    Colour line;
    Colour text;
    ScreenStipple stipple;
};

Look lookOf(AirspaceKind kind, const Palette& colours) {
    const auto look = [](const Colour& colour, const ScreenStipple& stipple) {
        return Look{colour, paler(colour, 0.85F), stipple};
    };
    switch (kind) {
        case AirspaceKind::controlled:
            return look(colours.controlled, dottedStipple());
        case AirspaceKind::prohibited:
            return look(colours.prohibited, risingStipple());
        case AirspaceKind::training:
            break;
    }
    return look(colours.training, fallingStipple());
}

int rankOf(AirspaceKind kind) {
    return kind == AirspaceKind::prohibited ? 0 : kind == AirspaceKind::controlled ? 1 : 2;
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
    const AltitudeUnit unit = canvas.style.units.altitude;
    const std::string limits =
        limitText(airspace.ceiling, unit) + " / " + limitText(airspace.floor, unit);
    const double line = text.capHeight() + 6.0 * canvas.unit;
    const Point size(std::max(text.width(name), text.width(limits)), line + text.capHeight());
    // In what is filled if there is room, else in the area under another one.
    std::vector<Polyline> parts = shape.fills;
    parts.insert(parts.end(), shape.outlines.begin(), shape.outlines.end());
    for (const Polyline& part : parts) {
        if (const auto box = placer.placeOneOf(placesInside(part, area), size)) {
            const double middle = (box->low.x + box->high.x) / 2.0;
            const Colour colour = lookOf(airspace.kind, canvas.style.colours).text;
            text.add(name, Point(middle, box->low.y + line), Align::centre, colour);
            text.add(limits, Point(middle, box->low.y), Align::centre, colour);
            return;
        }
    }
}

std::vector<Polyline> partsOutsideAll(const Polyline& outline, const std::vector<Polyline>& taken) {
    std::vector<Polyline> parts{outline};
    for (const Polyline& other : taken) {
        std::vector<Polyline> left;
        for (const Polyline& part : parts) {
            const std::vector<Polyline> outside = partsOutside(part, other);
            left.insert(left.end(), outside.begin(), outside.end());
        }
        parts = std::move(left);
    }
    return parts;
}

// Fills do not add up: each takes its ground.
void cutFills(std::vector<AirspaceShape>& shapes) {
    std::vector<Polyline> taken;
    for (AirspaceShape& shape : shapes) {
        for (const Polyline& outline : shape.outlines) {
            const std::vector<Polyline> parts = partsOutsideAll(outline, taken);
            shape.fills.insert(shape.fills.end(), parts.begin(), parts.end());
            taken.push_back(outline);
        }
    }
}

}  // namespace

std::vector<AirspaceShape> projectAirspace(const std::vector<Airspace>& airspace,
                                           const MapView& view, const Box& area) {
    std::vector<AirspaceShape> shapes;
    for (const Airspace& one : airspace) {
        AirspaceShape shape{&one, {}, {}};
        for (const auto& outline : one.outlines) {
            const std::vector<Polyline> parts =
                partsInside(view.toScreen(outline), rectangle(area));
            shape.outlines.insert(shape.outlines.end(), parts.begin(), parts.end());
        }
        if (!shape.outlines.empty()) {
            shapes.push_back(std::move(shape));
        }
    }
    std::stable_sort(shapes.begin(), shapes.end(), [](const auto& a, const auto& b) {
        return rankOf(a.airspace->kind) < rankOf(b.airspace->kind);
    });
    cutFills(shapes);
    return shapes;
}

void drawAirspace(Canvas& canvas, const std::vector<AirspaceShape>& shapes) {
    for (auto shape = shapes.rbegin(); shape != shapes.rend(); ++shape) {
        const Look look = lookOf(shape->airspace->kind, canvas.style.colours);
        for (const Polyline& fill : shape->fills) {
            canvas.fill.polygon(fill, withAlpha(look.line, 0.10F));
            canvas.fill.polygon(fill, withAlpha(look.line, 0.28F), &look.stipple);
        }
        for (const Polyline& outline : shape->outlines) {
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
