// Eight 16-bit samples worked on at once, and their transposition in blocks of eight by eight, with
// the vector types that gcc and clang offer on every machine.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "terrain/tiles/TileGrid.h"

namespace Orlek::Detail {

inline constexpr std::size_t laneCount = 8;

using SampleLanes [[gnu::vector_size(16)]] = std::int16_t;
using SampleBlock = std::array<SampleLanes, laneCount>;

/// One big-endian two's-complement sample.
inline std::int16_t loadSample(const std::byte* at) {
    return static_cast<std::int16_t>(std::to_integer<unsigned>(at[0]) << 8U |
                                     std::to_integer<unsigned>(at[1]));
}

/// A sample, or 0 for a missing post.
inline std::int16_t voidToZero(std::int16_t sample) {
    return sample < lowestElevation ? std::int16_t{0} : sample;
}

/// Eight big-endian samples in a row, missing posts set to 0.
inline SampleLanes loadLanes(const std::byte* at) {
    using Unsigned [[gnu::vector_size(16)]] = std::uint16_t;
    Unsigned bits;
    std::memcpy(&bits, at, sizeof bits);
    if constexpr (std::endian::native == std::endian::little) {
        bits = bits << 8U | bits >> 8U;
    }
    const auto samples = reinterpret_cast<SampleLanes>(bits);
    return samples & (samples >= lowestElevation);
}

inline void storeLanes(SampleLanes samples, std::int16_t* at) {
    std::memcpy(at, &samples, sizeof samples);
}

/// Turns rows into columns: lane c of row r becomes lane r of row c.
inline SampleBlock transposed(const SampleBlock& rows) {
    const auto lowPairs = [](SampleLanes a, SampleLanes b) {
        return __builtin_shufflevector(a, b, 0, 8, 1, 9, 2, 10, 3, 11);
    };
    const auto highPairs = [](SampleLanes a, SampleLanes b) {
        return __builtin_shufflevector(a, b, 4, 12, 5, 13, 6, 14, 7, 15);
    };
    // Three rounds of interleaving row r with row r + 4: each moves one bit of the row number into
    // the lane number.
    SampleBlock block = rows;
    for (int round = 0; round < 3; ++round) {
        const SampleBlock from = block;
        for (std::size_t row = 0; row < laneCount / 2; ++row) {
            block[2 * row] = lowPairs(from[row], from[row + laneCount / 2]);
            block[2 * row + 1] = highPairs(from[row], from[row + laneCount / 2]);
        }
    }
    return block;
}

}  // namespace Orlek::Detail
