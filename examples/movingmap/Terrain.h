// Opening a directory of elevation tiles.
#pragma once

#include <Orlek/Geodetic.h>

#include <string>

#include "Position.h"

namespace MovingMap {

/// Starts the scan of a directory and waits until the height map answers.
/// Throws std::runtime_error when there is no such directory.
/// @param near a position that will be looked at
void openTerrain(Orlek::Geodetic::HeightMap& terrain, const std::string& directory,
                 const Position& near);

}  // namespace MovingMap
