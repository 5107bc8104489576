// Where the samples of a tile lie: origin, spacing and counts.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Orlek::Detail {

/// A regular grid of posts. The post at latitude index i (0 southernmost) and longitude index j
/// (0 westernmost) lies at latOrigin + i * latSpacing, lonOrigin + j * lonSpacing, in degrees.
struct TileGrid {
    double latOrigin = 0.0;
    double lonOrigin = 0.0;
    double latSpacing = 0.0;
    double lonSpacing = 0.0;
    std::uint32_t numLat = 0;
    std::uint32_t numLon = 0;

    [[nodiscard]] std::size_t sampleCount() const { return std::size_t{numLat} * numLon; }
};

/// Samples below this elevation, in metres, mark a missing post.
inline constexpr std::int16_t lowestElevation = -9000;

}  // namespace Orlek::Detail
