// The grid's x axis points east and its y axis north; turning it by the direction at the top,
// counter-clockwise, brings that direction upright.
#include "MapView.h"

#include <Orlek/Geodetic.h>

#include <numbers>

#include "LocalGrid.h"

namespace MovingMap {

namespace {

constexpr double radians(double degrees) {
    return degrees * std::numbers::pi / 180.0;
}

}  // namespace

MapView::MapView(Position centre, double metresPerPixel, double upDeg, Point focus, Point size)
    : mCentre(centre), mMetresPerPixel(metresPerPixel), mUpDeg(upDeg), mFocus(focus), mSize(size) {}

Point MapView::toScreen(const Position& position) const {
    return onScreen(toGrid(mCentre, position));
}

std::vector<Point> MapView::toScreen(const std::vector<Position>& line) const {
    std::vector<Point> points = toGrid(mCentre, line);
    for (Point& point : points) {
        point = onScreen(point);
    }
    return points;
}

Point MapView::onScreen(Point grid) const {
    grid.Rotate(radians(mUpDeg));
    return Point(mFocus.x + grid.x / mMetresPerPixel, mFocus.y + grid.y / mMetresPerPixel);
}

Position MapView::toPosition(const Point& point) const {
    Point grid((point.x - mFocus.x) * mMetresPerPixel, (point.y - mFocus.y) * mMetresPerPixel);
    grid.Rotate(radians(-mUpDeg));
    Position position;
    Orlek::Geodetic::grid2LatLong(mCentre.lat, mCentre.lon, grid.x, grid.y, position.lat,
                                  position.lon);
    return position;
}

bool MapView::operator==(const MapView& other) const {
    return mCentre.lat == other.mCentre.lat && mCentre.lon == other.mCentre.lon &&
           mMetresPerPixel == other.mMetresPerPixel && mUpDeg == other.mUpDeg &&
           mFocus.x == other.mFocus.x && mFocus.y == other.mFocus.y && mSize.x == other.mSize.x &&
           mSize.y == other.mSize.y;
}

}  // namespace MovingMap
