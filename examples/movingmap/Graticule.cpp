// In a flat map the lines are straight: a line is found from where it meets the picture's edges.
#include "Graticule.h"

#include <Orlek/Math/Scalar.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "Format.h"

namespace MovingMap {

namespace {

struct Extremes {
    double low;
    double high;
};

Extremes boundsOf(const MapView& view, double Position::*axis) {
    const Point size = view.size();
    const std::array<Point, 4> corners = {Point(0.0, 0.0), Point(size.x, 0.0), size,
                                          Point(0.0, size.y)};
    Extremes bounds{1e9, -1e9};
    for (const Point& corner : corners) {
        const double value = view.toPosition(corner).*axis;
        bounds.low = std::min(bounds.low, value);
        bounds.high = std::max(bounds.high, value);
    }
    return bounds;
}

Extremes within(const Extremes& bounds, const Extremes& limits) {
    return {std::max(bounds.low, limits.low), std::min(bounds.high, limits.high)};
}

// Where the line from a to b has y = level; false when it runs along that level.
bool crossesLevel(Point a, Point b, double level, double& x) {
    if (std::abs(b.y - a.y) < 1.0) {
        return false;
    }
    x = a.x + (b.x - a.x) * (level - a.y) / (b.y - a.y);
    return true;
}

bool crossesColumn(Point a, Point b, double column, double& y) {
    return crossesLevel(Point(a.y, a.x), Point(b.y, b.x), column, y);
}

// Puts labels where lines enter the area.
class EdgeLabels {
public:
    EdgeLabels(Canvas& canvas, const Box& area, const std::vector<Box>& blocked)
        : mText(canvas.smallLabel), mArea(area), mBlocked(blocked), mPad(6.0 * canvas.unit) {}

    // Steep lines are labelled at the upper edge, shallow ones at the left.
    void addFor(Point a, Point b, const std::string& label) {
        double at = 0.0;
        if (std::abs(b.x - a.x) > std::abs(b.y - a.y)) {
            if (crossesColumn(a, b, mArea.low.x, at)) {
                add(label, Point(mArea.low.x + mPad, at + 0.5 * mPad));
            }
        } else if (crossesLevel(a, b, mArea.high.y, at)) {
            add(label, Point(at + 0.5 * mPad, mArea.high.y - mPad - mText.capHeight()));
        }
    }

    const std::vector<Box>& places() const { return mPlaces; }

private:
    void add(const std::string& label, Point at) {
        const Box box{at, Point(at.x + mText.width(label), at.y + mText.capHeight())};
        const Box spaced = box.grown(0.5 * mPad);
        const auto covers = [&](const Box& other) { return other.overlaps(spaced); };
        const bool covered = std::any_of(mBlocked.begin(), mBlocked.end(), covers) ||
                             std::any_of(mPlaces.begin(), mPlaces.end(), covers);
        if (mArea.contains(box) && !covered) {
            mText.add(label, at, Align::left, white);
            mPlaces.push_back(box);
        }
    }

    LabelText& mText;
    const Box& mArea;
    const std::vector<Box>& mBlocked;
    double mPad;
    std::vector<Box> mPlaces;
};

}  // namespace

double graticuleMinutes(double leastMinutes) {
    constexpr std::array<double, 11> spacings = {1, 2, 5, 10, 20, 30, 60, 120, 300, 600, 1800};
    const auto found = std::find_if(spacings.begin(), spacings.end() - 1,
                                    [=](double spacing) { return spacing >= leastMinutes; });
    return *found;
}

std::vector<Box> drawGraticule(Canvas& canvas, const MapView& view, const Box& area,
                               const std::vector<Box>& blocked) {
    EdgeLabels labels(canvas, area, blocked);
    const double pixelMinutes = canvas.unit * view.metresPerPixel() / metresPerMile;
    const double narrowing = std::cos(view.centre().lat * std::numbers::pi / 180.0);
    const double latStep = graticuleMinutes(150.0 * pixelMinutes) / 60.0;
    const double lonStep = graticuleMinutes(100.0 * pixelMinutes / narrowing) / 60.0;
    // Nothing lies beyond the poles, and beyond half a turn the globe begins anew.
    const Extremes lats = within(boundsOf(view, &Position::lat), {-89.999, 89.999});
    const Extremes lons = within(boundsOf(view, &Position::lon),
                                 {view.centre().lon - 180.0, view.centre().lon + 180.0});
    for (double i = std::ceil(lats.low / latStep); i * latStep <= lats.high; ++i) {
        const double lat = i * latStep;
        const Point a = view.toScreen({lat, lons.low});
        const Point b = view.toScreen({lat, lons.high});
        canvas.stroke.segment(a, b);
        labels.addFor(a, b, latitudeLabel(lat));
    }
    for (double i = std::ceil(lons.low / lonStep); i * lonStep <= lons.high; ++i) {
        const double lon = i * lonStep;
        const Point a = view.toScreen({lats.low, lon});
        const Point b = view.toScreen({lats.high, lon});
        canvas.stroke.segment(a, b);
        labels.addFor(a, b, longitudeLabel(Orlek::Math::circLimit(lon, -180.0, 180.0)));
    }
    canvas.stroke.draw({.colour = Colour(1.0F, 1.0F, 1.0F, 0.38F), .width = canvas.unit});
    return labels.places();
}

}  // namespace MovingMap
