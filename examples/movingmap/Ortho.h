// The picture's coordinate system.
#pragma once

#include "MapView.h"

namespace MovingMap {

/// Sets the library's current matrix and viewport size so that one unit is one pixel, from the
/// lower left corner.
void setPixelMatrix(Point size);

}  // namespace MovingMap
