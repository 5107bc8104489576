// The terrain of a picture as texels, ready for the terrain shader.
#pragma once

#include <cstdint>
#include <vector>

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

}  // namespace MovingMap
