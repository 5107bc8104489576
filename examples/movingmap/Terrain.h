// Opening a directory of elevation tiles, and asking for terrain.
#pragma once

#include <Orlek/Geodetic.h>

#include <string>

#include "NormalTable.h"
#include "Position.h"

namespace MovingMap {

/// Starts the scan of a directory and waits until the height map answers.
/// Throws std::runtime_error when there is no such directory.
/// @param near a position that will be looked at
void openTerrain(Orlek::Geodetic::HeightMap& terrain, const std::string& directory,
                 const Position& near);

/// The surface normal; its tile is loaded if need be.
PackedNormal normalAt(Orlek::Geodetic::HeightMap& terrain, const Position& position);

/// Whether a normal is one. It is none where no tile is, and where a tile has no samples:
/// HeightMap::getAltitude gives 0 there, as at sea level.
bool isTerrain(const PackedNormal& normal);

/// Terrain under a position; not known where no tile is and in a hole of one.
struct Ground {
    bool known = false;
    double heightM = 0.0;
};

Ground groundAt(Orlek::Geodetic::HeightMap& terrain, const Position& position);

}  // namespace MovingMap
