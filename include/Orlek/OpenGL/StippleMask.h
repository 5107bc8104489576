// The screen stipple of filled shapes.
#pragma once

#include <array>

namespace Orlek::Detail {

/// A pattern of 32 x 32 pixels that repeats over the window and lets a fill through where its bits
/// are set.
struct StippleMask {
    std::array<int, 32> rows{};  ///< The lowest row first; bit 0 is the leftmost pixel.
    bool use = false;            ///< Without: everything is drawn.

    /// Takes a pattern over and uses it, or stops using the one it has.
    /// @param pattern 128 bytes, read and not kept: 4 for each row, the lowest row first, the
    /// leftmost pixel in bit 0 of the first byte. Null: the fill is solid, the pattern stays.
    void set(const unsigned char* pattern);
};

}  // namespace Orlek::Detail
