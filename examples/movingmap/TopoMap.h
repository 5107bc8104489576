// A topographic map drawn from elevations.
#pragma once

#include <Orlek/Geodetic.h>

#include "Image.h"
#include "MapImage.h"

namespace MovingMap {

/// Draws contour lines every 100 feet, each fifth of them bold, over land classes that the slope
/// gives: open valley floors, woods, rock. Missing terrain is grey; a hole in a tile, which reads
/// as sea level, is water. Throws std::runtime_error when the picture would be higher than 8192
/// pixels.
/// @param terrain ready for queries
/// @param width pixels from west to east; the height follows from the bounds
OrlekSupport::Image drawTopoMap(Orlek::Geodetic::HeightMap& terrain, const Bounds& bounds,
                                int width);

}  // namespace MovingMap
