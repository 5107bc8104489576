// Screen stipple patterns in the two bit orders that the drawing classes take.
#pragma once

#include <array>

namespace Gallery {

/// 32 x 32 pixels: 4 bytes a row, the lowest row first.
using Pattern = std::array<unsigned char, 128>;

enum class BitOrder {
    lowestFirst,  ///< TriangleStrip and Polygon: the leftmost pixel in the lowest bit of a byte.
    highestFirst  ///< Circle, as glPolygonStipple has it: in the highest bit.
};

/// Builds a pattern from a rule that says which pixels are drawn; x from the left, y from below.
template <typename Rule>
Pattern pattern(BitOrder order, Rule isSet) {
    Pattern bytes{};
    for (int i = 0; i < 32 * 32; ++i) {
        const int x = i % 32;
        const int bit = order == BitOrder::lowestFirst ? x % 8 : 7 - x % 8;
        unsigned char& byte = bytes[static_cast<std::size_t>(i / 8)];
        byte = static_cast<unsigned char>(byte | (isSet(x, i / 32) ? 1 << bit : 0));
    }
    return bytes;
}

}  // namespace Gallery
