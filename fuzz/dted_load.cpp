// Whole DTED files: registering, loading and querying whatever bytes come. A file as long as its
// header says gives what the rules give.
#include "FuzzTarget.h"
#include "MemoryFile.h"
#include "Quiet.h"
#include "TileQueries.h"
#include "terrain/tiles/DtedHeader.h"

using namespace Orlek::Detail;

namespace {

std::vector<std::int16_t> samplesOf(const std::uint8_t* file, const TileGrid& grid) {
    std::vector<std::int16_t> samples;
    for (std::size_t line = 0; line < grid.numLon; ++line) {
        const std::uint8_t* const record =
            file + dtedHeaderSize + line * dtedRecordSize(grid.numLat) + dtedRecordPrefix;
        std::vector<std::int16_t> column;
        for (std::size_t k = 0; k < grid.numLat; ++k) {
            column.push_back(fileSample(record + 2 * k));
        }
        OrlekTest::repairLine(column);
        samples.insert(samples.end(), column.begin(), column.end());
    }
    return samples;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const MemoryFile file(data, size);
    HeightTile tile;
    if (!tile.openHeader(file.path())) {
        return 0;
    }
    const auto grid = parseDtedHeader({reinterpret_cast<const char*>(data), size});
    require(grid && !tile.loaded());
    tile.load();
    require(tile.loaded() == (size >= dtedFileSize(*grid)));
    if (tile.loaded()) {
        queryTile(tile, ruleTile(*grid, samplesOf(data, *grid)));
    }
    tile.unload();
    tile.load();
    require(tile.loaded() == (size >= dtedFileSize(*grid)));
    return 0;
}
