// Where places of the earth lie in the picture.
#pragma once

#include <Orlek/Math.h>

#include <vector>

#include "Position.h"

namespace MovingMap {

/// A point of the picture in pixels, x to the right and y up from the lower left corner.
using Point = Orlek::Math::Vector2<double>;

/// A flat map: the local grid of one position, turned and scaled. Good for the few hundred miles
/// around a position that a moving map shows.
class MapView {
public:
    /// @param centre the position that is shown at @p focus
    /// @param metresPerPixel scale, above 0
    /// @param upDeg the direction at the top of the picture, degrees clockwise from north
    /// @param focus a point of the picture
    /// @param size width and height of the picture in pixels
    MapView(Position centre, double metresPerPixel, double upDeg, Point focus, Point size);

    /// A position, or those of a line or an outline, the short way round the globe.
    Point toScreen(const Position& position) const;
    std::vector<Point> toScreen(const std::vector<Position>& line) const;

    /// The longitude goes on beyond 180 degrees.
    Position toPosition(const Point& point) const;

    const Position& centre() const { return mCentre; }
    double metresPerPixel() const { return mMetresPerPixel; }
    double upDeg() const { return mUpDeg; }
    Point focus() const { return mFocus; }
    Point size() const { return mSize; }

    bool operator==(const MapView& other) const;

private:
    Point onScreen(Point grid) const;

    Position mCentre;
    double mMetresPerPixel;
    double mUpDeg;
    Point mFocus;
    Point mSize;
};

}  // namespace MovingMap
