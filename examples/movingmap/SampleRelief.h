// The relief of a map view.
#pragma once

#include <Orlek/Geodetic.h>

#include "MapView.h"
#include "ReliefImage.h"

namespace MovingMap {

/// Samples the terrain of a view, one texel for @p step x @p step pixels, into @p image, whose
/// memory is used again from one view to the next.
///
/// The height map must be ready (see HeightMap::loadData). Tiles are loaded as the view needs
/// them. Where a tile is missing the cover is hatched: nobody shall take it for sea.
void sampleRelief(Orlek::Geodetic::HeightMap& terrain, const MapView& view, int step,
                  ReliefImage& image);

}  // namespace MovingMap
