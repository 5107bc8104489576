// Height maps that have finished their scan.
#pragma once

#include <Orlek/Geodetic/HeightMap.h>

#include <array>
#include <string>
#include <thread>

namespace OrlekTest {

using Normal = std::array<unsigned char, 3>;
inline constexpr Normal noTile{128, 128, 255};
inline constexpr Normal notLoaded{0, 0, 0};
inline constexpr Normal flat{127, 127, 255};

inline void waitUntilReady(Orlek::Geodetic::HeightMap& map) {
    Normal n{};
    while (!map.getNormal(89.5, 179.5, false, false, n[0], n[1], n[2])) {
        std::this_thread::yield();
    }
}

/// For the first scan of an object.
inline void scan(Orlek::Geodetic::HeightMap& map, const std::string& path) {
    map.setDataPath(path);
    map.loadData();
    waitUntilReady(map);
}

inline Normal normalAt(Orlek::Geodetic::HeightMap& map, double lat, double lon, bool load,
                       bool lowRes = false) {
    Normal n{};
    map.getNormal(lat, lon, load, lowRes, n[0], n[1], n[2]);
    return n;
}

/// Queries a cell without tiles, so that the next query of another cell looks it up anew.
inline void leaveCell(Orlek::Geodetic::HeightMap& map) {
    map.getAltitude(89.5, 179.5, false, false);
}

/// Whether the tile of this point is loaded. Does not load it.
inline bool isLoaded(Orlek::Geodetic::HeightMap& map, double lat, double lon, bool lowRes = false) {
    leaveCell(map);
    return normalAt(map, lat, lon, false, lowRes) != notLoaded;
}

}  // namespace OrlekTest
