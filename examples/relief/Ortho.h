// The picture's coordinate system.
#pragma once

#include <Orlek/Math.h>

namespace MovingMap {

/// Sets the library's current matrix and viewport size so that one unit is one pixel, from the
/// lower left corner.
void setPixelMatrix(Orlek::Math::Vector2<double> size);

}  // namespace MovingMap
