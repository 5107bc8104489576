// Symbols of one look are drawn together; the arrows in labels are strokes, which fonts lack.
#include "TrafficLayer.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

#include "Format.h"
#include "TargetText.h"

namespace MovingMap {

namespace {

constexpr double symbolReach = 11.0;
constexpr double lineStep = 1.45;  // Of the height of capitals.
constexpr std::size_t trailPieces = 3;
constexpr double arrowWidth = 11.0;

Colour faded(const Colour& colour, double alpha) {
    return withAlpha(colour, static_cast<float>(alpha));
}

bool isOld(const LiveTarget& target, const Live& live) {
    return target.ageS > live.oldS;
}

Colour colourOf(const Canvas& canvas, const LiveTarget& target, const Live& live) {
    if (!isOld(target, live)) {
        return canvas.style.colours.traffic;
    }
    const double share = (target.ageS - live.oldS) / (live.goneS - live.oldS);
    return faded(grey, 1.0 - 0.4 * std::clamp(share, 0.0, 1.0));
}

// Tip, right end, notch, left end.
Polyline arrowhead(const Canvas& canvas, const MapView& view, const TargetMessage& target) {
    const Point centre = view.toScreen(target.position());
    Polyline points;
    for (Point corner :
         {Point(0.0, symbolReach), Point(8.0, -9.0), Point(0.0, -4.5), Point(-8.0, -9.0)}) {
        corner.Rotate((view.upDeg() - target.trackDeg) * std::numbers::pi / 180.0);
        points.emplace_back(centre.x + corner.x * canvas.unit, centre.y + corner.y * canvas.unit);
    }
    return points;
}

void drawSymbol(Canvas& canvas, const Polyline& outline, const Colour& colour, bool filled) {
    const double unit = canvas.unit;
    canvas.fill.strip({outline[3], outline[0], outline[2], outline[1]},
                      filled ? colour : faded(black, 0.5 * colour.w));
    canvas.stroke.loop(outline);
    canvas.stroke.draw({.colour = filled ? faded(black, colour.w) : colour,
                        .width = (filled ? 1.4 : 2.0) * unit,
                        .rim = faded(black, 0.8 * colour.w),
                        .rimWidth = filled ? 0.0 : 1.1 * unit});
}

// A third of a trail; the last one reaches the target.
Polyline trailPiece(const MapView& view, const LiveTarget& target, std::size_t piece) {
    const std::size_t count = target.trail.size();
    const std::size_t end = std::min(count, count * (piece + 1) / trailPieces + 1);
    const auto begin = target.trail.begin();
    std::vector<Position> line(begin + static_cast<std::ptrdiff_t>(count * piece / trailPieces),
                               begin + static_cast<std::ptrdiff_t>(end));
    if (piece + 1 == trailPieces) {
        line.push_back(target.last.position());
    }
    return view.toScreen(line);
}

void drawTrend(Canvas& canvas, Point foot, double height, int trend, const Colour& colour) {
    const Point low(foot.x, foot.y);
    const Point high(foot.x, foot.y + height);
    const Point& tip = trend > 0 ? high : low;
    const double back = -3.6 * trend * canvas.unit;
    canvas.stroke.segment(low, high);
    canvas.stroke.polyline({Point(tip.x - 3.4 * canvas.unit, tip.y + back), tip,
                            Point(tip.x + 3.4 * canvas.unit, tip.y + back)});
    canvas.stroke.draw(
        {.colour = colour, .width = 1.8 * canvas.unit, .rim = halo, .rimWidth = 1.3 * canvas.unit});
}

// Two lines of text: the callsign over the altitude.
class Label {
public:
    Label(Canvas& canvas, const LiveTarget& target, const Scene& scene)
        : mCanvas(canvas),
          mName(target.last.name()),
          mAltitude(altitudeText(target.last, scene, canvas.style.units.altitude)),
          mTrend(verticalTrend(target.last)),
          mColour(colourOf(canvas, target, *scene.live)) {
        if (isOld(target, *scene.live)) {
            mAge = "  " + wholeNumber(target.ageS) + " S";
        }
    }

    Point size() const {
        return Point(std::max(text().width(mName), ageAt() + text().width(mAge)),
                     text().capHeight() * (1.0 + lineStep));
    }

    void draw(Point corner) const {
        const double cap = text().capHeight();
        text().add(mName, Point(corner.x, corner.y + cap * lineStep), Align::left, mColour);
        text().add(mAltitude, corner, Align::left, mColour);
        text().add(mAge, Point(corner.x + ageAt(), corner.y), Align::left, mColour);
        if (mTrend != 0) {
            const double x = corner.x + text().width(mAltitude) + 0.6 * arrowWidth * mCanvas.unit;
            drawTrend(mCanvas, Point(x, corner.y), cap, mTrend, mColour);
        }
    }

private:
    LabelText& text() const { return mCanvas.smallLabel; }
    double ageAt() const {
        return text().width(mAltitude) + (mTrend == 0 ? 0.0 : arrowWidth * mCanvas.unit);
    }

    Canvas& mCanvas;
    std::string mName;
    std::string mAltitude;
    std::string mAge;
    int mTrend;
    Colour mColour;
};

}  // namespace

void drawTrails(Canvas& canvas, const MapView& view, const Live& live) {
    for (const bool old : {true, false}) {
        for (std::size_t piece = 0; piece < trailPieces; ++piece) {
            for (const LiveTarget& target : live.targets) {
                if (isOld(target, live) == old) {
                    canvas.stroke.polyline(trailPiece(view, target, piece));
                }
            }
            const double alpha = 0.45 + 0.22 * static_cast<double>(piece);
            canvas.stroke.draw({.colour = faded(old ? grey : canvas.style.colours.traffic, alpha),
                                .width = 2.2 * canvas.unit,
                                .rim = faded(black, 0.4 * alpha),
                                .rimWidth = canvas.unit});
        }
    }
}

void drawTargets(Canvas& canvas, const MapView& view, const Scene& scene) {
    for (const LiveTarget& target : scene.live->targets) {
        drawSymbol(canvas, arrowhead(canvas, view, target.last),
                   colourOf(canvas, target, *scene.live), isNear(target.last, scene));
    }
}

void addTargetLabels(Canvas& canvas, const MapView& view, const Scene& scene, LabelPlacer& placer,
                     const Box& area, LabelPlaces& places) {
    const Point own = view.toScreen(scene.own);
    std::vector<std::pair<double, const LiveTarget*>> nearestFirst;
    for (const LiveTarget& target : scene.live->targets) {
        const Point at = view.toScreen(target.last.position());
        const Box symbol = Box{at, at}.grown(symbolReach * canvas.unit);
        placer.block(symbol);
        if (area.contains(Box{at, at})) {
            nearestFirst.emplace_back((at - own).Length(), &target);
        }
    }
    std::stable_sort(nearestFirst.begin(), nearestFirst.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    LabelPlaces chosen;
    for (const auto& [distance, target] : nearestFirst) {
        const Label label(canvas, *target, scene);
        const Point at = view.toScreen(target->last.position());
        std::size_t& place = chosen[target->last.number];
        place = places[target->last.number];
        label.draw(placer.place(at, label.size(), canvas.unit, &place).low);
    }
    places = std::move(chosen);
}

}  // namespace MovingMap
