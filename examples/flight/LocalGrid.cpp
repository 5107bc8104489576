#include "LocalGrid.h"

#include <Orlek/Geodetic.h>
#include <Orlek/Math/Scalar.h>

#include <cmath>

namespace MovingMap {

namespace {

GridPoint unrolled(const Position& reference, double lat, double lon) {
    GridPoint point;
    Orlek::Geodetic::latLong2Grid(reference.lat, reference.lon, lat, lon, point.x, point.y);
    return point;
}

}  // namespace

double longitudeNear(double near, double lon) {
    // Left as it is to the last bit where it can be.
    return std::abs(lon - near) <= 180.0 ? lon
                                         : near + Orlek::Math::circLimit(lon - near, -180.0, 180.0);
}

GridPoint toGrid(const Position& reference, const Position& position) {
    return unrolled(reference, position.lat, longitudeNear(reference.lon, position.lon));
}

std::vector<GridPoint> toGrid(const Position& reference, const std::vector<Position>& line) {
    std::vector<GridPoint> points;
    points.reserve(line.size());
    double lon = reference.lon;
    for (const Position& position : line) {
        lon = longitudeNear(lon, position.lon);
        points.push_back(unrolled(reference, position.lat, lon));
    }
    return points;
}

Position fromGrid(const Position& reference, const GridPoint& point) {
    Position position;
    Orlek::Geodetic::grid2LatLong(reference.lat, reference.lon, point.x, point.y, position.lat,
                                  position.lon);
    position.lon = longitudeNear(0.0, position.lon);
    return position;
}

}  // namespace MovingMap
