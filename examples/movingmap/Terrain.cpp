// The scan runs on a thread of its own; getNormal tells when it has finished.
#include "Terrain.h"

#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <thread>

namespace MovingMap {

void openTerrain(Orlek::Geodetic::HeightMap& terrain, const std::string& directory,
                 const Position& near) {
    std::error_code unreadable;
    if (!std::filesystem::is_directory(directory, unreadable)) {
        throw std::runtime_error("no directory of elevation tiles: " + directory);
    }
    terrain.setDataPath(directory);
    terrain.loadData();
    PackedNormal ignored;
    // Loading must be allowed here: a tile that a first query leaves unloaded stays so for the
    // next queries in its cell.
    while (!terrain.getNormal(near.lat, near.lon, true, false, ignored.x, ignored.y, ignored.z)) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

PackedNormal normalAt(Orlek::Geodetic::HeightMap& terrain, const Position& position) {
    PackedNormal normal;
    terrain.getNormal(position.lat, position.lon, true, false, normal.x, normal.y, normal.z);
    return normal;
}

bool isTerrain(const PackedNormal& normal) {
    constexpr PackedNormal noTile{128, 128, 255};
    constexpr PackedNormal noSamples{0, 0, 0};
    return normal != noTile && normal != noSamples;
}

Ground groundAt(Orlek::Geodetic::HeightMap& terrain, const Position& position) {
    if (!isTerrain(normalAt(terrain, position))) {
        return {};
    }
    return {true, terrain.getAltitude(position.lat, position.lon, true, false)};
}

}  // namespace MovingMap
