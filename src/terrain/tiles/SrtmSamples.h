// Places the samples of an SRTM file into a tile.
//
// The file is big-endian samples row by row, north to south and west to east, without a header; the
// grid follows from its size alone. A tile holds longitude lines, south to north, so rows become
// columns. (The SRTM collections user guide.)
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "terrain/tiles/TileGrid.h"

namespace Orlek::Detail {

/// Rows placed at a time: few enough to stay in the cache between inflating and placing.
inline constexpr std::uint32_t srtmBandRows = 128;

/// Counts and spacings of a file of `size` bytes, origin left at 0; nothing for any other size than
/// those of 3, 1 and 30 arc second tiles.
std::optional<TileGrid> srtmGrid(std::uint64_t size);

/// Places `rowCount` file rows, the first of which is row `firstRow` from the north, into
/// `samples`, the whole tile. Missing posts become 0. At least 8 rows and 8 columns.
void placeSrtmRows(const std::byte* rows, std::uint32_t firstRow, std::uint32_t rowCount,
                   const TileGrid& grid, std::int16_t* samples);

}  // namespace Orlek::Detail
