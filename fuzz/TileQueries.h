// Asks a tile for heights and normals inside, on and beyond its edges: the answers are those of the
// rules written out sample by sample.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "FuzzTarget.h"
#include "terrain/TerrainRules.h"
#include "terrain/tiles/HeightTile.h"

/// The sample at a place of a file: big-endian, two's complement.
inline std::int16_t fileSample(const std::uint8_t* place) {
    return static_cast<std::int16_t>(place[0] << 8 | place[1]);
}

/// What the rules make of the samples, longitude lines from west to east.
inline OrlekTest::RuleTile ruleTile(const Orlek::Detail::TileGrid& grid,
                                    std::vector<std::int16_t> samples) {
    return {grid.latOrigin,
            grid.lonOrigin,
            grid.latSpacing,
            grid.lonSpacing,
            static_cast<int>(grid.numLat),
            static_cast<int>(grid.numLon),
            std::move(samples)};
}

/// Points are kept on the globe, as those of queries are.
inline void queryTile(const Orlek::Detail::HeightTile& tile, const OrlekTest::RuleTile& rules) {
    for (const double north : {-0.0001, 0.0, 0.0004, 0.25, 0.9999, 1.0, 45.0}) {
        for (const double east : {-0.0001, 0.0, 0.0004, 0.25, 0.9999, 1.0, 45.0}) {
            const double lat = std::clamp(rules.latOrigin + north, -90.0, 90.0);
            const double lon = std::clamp(rules.lonOrigin + east, -180.0, 180.0);
            double metres = 0.0;
            double inside = 0.0;
            const bool found = tile.altitude(lat, lon, metres);
            const auto expected = rules.altitude(lat, lon);
            require(found == expected.has_value() && metres == expected.value_or(0.0));
            require(!tile.altitudeInside(lat, lon, inside) || (found && inside == metres));
            std::array<unsigned char, 3> normal{};
            tile.normal(lat, lon, normal[0], normal[1], normal[2]);
            require(normal == rules.normal(lat, lon));
        }
    }
}
