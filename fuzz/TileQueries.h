// Asks a tile for heights and normals inside, on and beyond its edges.
#pragma once

#include <algorithm>

#include "terrain/tiles/HeightTile.h"

/// The origin is that of the tile; points are kept on the globe, as those of queries are.
inline void queryTile(const Orlek::Detail::HeightTile& tile, double latOrigin, double lonOrigin) {
    for (const double north : {-0.0001, 0.0, 0.0004, 0.25, 0.9999, 1.0, 45.0}) {
        for (const double east : {-0.0001, 0.0, 0.0004, 0.25, 0.9999, 1.0, 45.0}) {
            const double lat = std::clamp(latOrigin + north, -90.0, 90.0);
            const double lon = std::clamp(lonOrigin + east, -180.0, 180.0);
            double metres = 0.0;
            tile.altitude(lat, lon, metres);
            tile.altitudeInside(lat, lon, metres);
            unsigned char x = 0;
            unsigned char y = 0;
            unsigned char z = 0;
            tile.normal(lat, lon, x, y, z);
        }
    }
}
