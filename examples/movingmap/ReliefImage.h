// The terrain of a map view as texels, ready for the terrain shader.
#pragma once

#include <Orlek/Geodetic.h>

#include <cstdint>
#include <vector>

#include "MapView.h"

namespace MovingMap {

/// Textures of the same size, the bottom row first.
struct ReliefImage {
    int width = 0;
    int height = 0;
    /// Four numbers a texel: the surface normal (east, north, up, each from -1 to 1 in 0 to 65535)
    /// and the height's code.
    std::vector<std::uint16_t> normals;
    /// Red, green, blue, alpha: what lies over the relief. Water and missing terrain are opaque,
    /// land is transparent.
    std::vector<std::uint8_t> cover;
    /// Red, green, blue, alpha: what is blended into the height colours; empty without a map.
    std::vector<std::uint8_t> map;
    bool complete = true;  ///< No terrain was missing.
};

/// Samples the terrain of a view, one texel for @p step x @p step pixels, into @p image, whose
/// memory is used again from one view to the next.
///
/// The height map must be ready (see HeightMap::loadData). Tiles are loaded as the view needs
/// them. Where a tile is missing the cover is hatched: nobody shall take it for sea.
void sampleRelief(Orlek::Geodetic::HeightMap& terrain, const MapView& view, int step,
                  ReliefImage& image);

}  // namespace MovingMap
