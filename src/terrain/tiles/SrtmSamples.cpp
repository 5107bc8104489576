// Swaps, clears, flips and transposes SRTM rows in blocks of eight by eight samples.
#include "terrain/tiles/SrtmSamples.h"

#include <algorithm>

#include "terrain/tiles/SampleLanes.h"

namespace Orlek::Detail {

namespace {

/// The start of the block after the one at `start`: eight on, but never past the last whole block,
/// which overlaps its neighbour instead of leaving a rest. `count` itself once all are done.
std::size_t nextBlock(std::size_t start, std::size_t count) {
    const std::size_t last = count - laneCount;
    return start == last ? count : std::min(start + laneCount, last);
}

/// Eight rows, read from the last to the first so that columns run north.
SampleBlock loadFlipped(const std::byte* firstRow, std::size_t rowSize) {
    SampleBlock block;
    for (std::size_t row = 0; row < laneCount; ++row) {
        block[row] = loadLanes(firstRow + (laneCount - 1 - row) * rowSize);
    }
    return block;
}

}  // namespace

std::optional<TileGrid> srtmGrid(std::uint64_t size) {
    const auto grid = [](double spacing, std::uint32_t numLat, std::uint32_t numLon) {
        return TileGrid{0.0, 0.0, spacing, spacing, numLat, numLon};
    };
    switch (size) {
        case 2884802:
            return grid(1.0 / 1200, 1201, 1201);
        case 25934402:
            return grid(1.0 / 3600, 3601, 3601);
        case 57600000:
            return grid(1.0 / 120, 6000, 4800);
        default:
            return std::nullopt;
    }
}

void placeSrtmRows(const std::byte* rows, std::uint32_t firstRow, std::uint32_t rowCount,
                   const TileGrid& grid, std::int16_t* samples) {
    const std::size_t rowSize = std::size_t{grid.numLon} * 2;
    std::int16_t* southmost = samples + (grid.numLat - firstRow - rowCount);
    for (std::size_t column = 0; column < grid.numLon; column = nextBlock(column, grid.numLon)) {
        for (std::size_t row = 0; row < rowCount; row = nextBlock(row, rowCount)) {
            const SampleBlock block =
                transposed(loadFlipped(rows + row * rowSize + column * 2, rowSize));
            std::int16_t* target = southmost + (rowCount - laneCount - row);
            for (std::size_t line = 0; line < laneCount; ++line) {
                storeLanes(block[line], target + (column + line) * grid.numLat);
            }
        }
    }
}

}  // namespace Orlek::Detail
