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
    unsigned char x = 0;
    unsigned char y = 0;
    unsigned char z = 0;
    // Loading must be allowed here: a tile that a first query leaves unloaded stays so for the
    // next queries in its cell.
    while (!terrain.getNormal(near.lat, near.lon, true, false, x, y, z)) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

}  // namespace MovingMap
