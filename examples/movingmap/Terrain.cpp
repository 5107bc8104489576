// The scan runs on a thread of its own; getNormal tells when it has finished.
#include "Terrain.h"

#include <chrono>
#include <filesystem>
#include <numbers>
#include <stdexcept>
#include <thread>

#include "LocalGrid.h"

namespace MovingMap {

namespace {

// Samples without data read as sea level. As in the relief it is a hole, not water, where most of
// the shores in eight directions are steeper than those of water.
bool isHole(Orlek::Geodetic::HeightMap& terrain, const Position& position) {
    constexpr double stepM = 100.0;
    constexpr int farthest = 300;
    constexpr double steepestM = 1.2 * stepM;
    int shores = 0;
    int cliffs = 0;
    for (int direction = 0; direction < 8; ++direction) {
        GridPoint step(0.0, stepM);
        step.Rotate(direction * std::numbers::pi / 4.0);
        const auto heightAt = [&](int steps) {
            const Position place = fromGrid(position, GridPoint(step.x * steps, step.y * steps));
            return terrain.getAltitude(place.lat, place.lon, true, false);
        };
        int steps = 1;
        while (steps < farthest && heightAt(steps) == 0.0) {
            ++steps;
        }
        if (steps < farthest) {
            ++shores;
            cliffs += heightAt(steps + 1) > steepestM ? 1 : 0;
        }
    }
    return cliffs * 2 > shores;
}

}  // namespace

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
    const double heightM = terrain.getAltitude(position.lat, position.lon, true, false);
    if (heightM == 0.0 && isHole(terrain, position)) {
        return {};
    }
    return {true, heightM};
}

}  // namespace MovingMap
