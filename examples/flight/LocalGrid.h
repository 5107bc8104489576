// The flat grid around a place, without a seam at 180 degrees of longitude.
#pragma once

#include <Orlek/Math.h>

#include <vector>

#include "Position.h"

namespace MovingMap {

/// Metres to the east (x) and to the north (y).
using GridPoint = Orlek::Math::Vector2<double>;

/// @p lon moved by whole turns to within half a turn of @p near, degrees.
double longitudeNear(double near, double lon);

/// The place of a position in the grid around @p reference, the short way round the globe.
GridPoint toGrid(const Position& reference, const Position& position);

/// The first position of a line like that, then the short way from each to the next: the line stays
/// in one piece on whichever side of the globe.
std::vector<GridPoint> toGrid(const Position& reference, const std::vector<Position>& line);

/// The position of a place in the grid, its longitude from -180 to 180.
Position fromGrid(const Position& reference, const GridPoint& point);

}  // namespace MovingMap
