// Writing DTED level 1 files.
#pragma once

#include <string>

#include "ElevationGrid.h"

namespace TerrainData {

/// The whole file for a grid: headers and one record for each meridian, west to east, as
/// MIL-PRF-89020B lays them out.
std::string toDted(const ElevationGrid& grid);

}  // namespace TerrainData
