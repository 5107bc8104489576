// A place on the earth.
#pragma once

namespace MovingMap {

/// Latitude and longitude in degrees, north and east positive.
struct Position {
    double lat = 0.0;
    double lon = 0.0;
};

/// Nearer to the poles a flat grid is no map; degrees.
constexpr double farthestLat = 85.0;

constexpr double metresPerMile = 1852.0;  ///< Nautical miles.
constexpr double metresPerFoot = 0.3048;

}  // namespace MovingMap
