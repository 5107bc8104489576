// Archives of SRTM tiles: loading and querying whatever bytes come under the name of a tile. What
// loads has a whole tile as its first entry, and gives what the rules give for its samples.
#include <Orlek/FileSystem/ZipFile.h>

#include "MemoryFile.h"
#include "Quiet.h"
#include "TileQueries.h"
#include "platform/MallocArray.h"
#include "terrain/tiles/SrtmSamples.h"

using namespace Orlek::Detail;

namespace {

/// Rows from north to south become columns from south to north; voids are 0.
std::vector<std::int16_t> samplesOf(const std::uint8_t* file, const TileGrid& grid) {
    std::vector<std::int16_t> samples(grid.sampleCount());
    for (std::size_t row = 0; row < grid.numLat; ++row) {
        for (std::size_t column = 0; column < grid.numLon; ++column) {
            const std::int16_t sample = fileSample(file + 2 * (row * grid.numLon + column));
            samples[column * grid.numLat + grid.numLat - 1 - row] =
                sample < lowestElevation ? std::int16_t{0} : sample;
        }
    }
    return samples;
}

void checkLoaded(const HeightTile& tile, const std::string& path) {
    unsigned int size = 0;
    const MallocArray<unsigned char> content(Orlek::FileSystem::ZipFile(path).readFirstFile(size));
    const auto grid = srtmGrid(size);
    require(content != nullptr && grid && tile.grid().sampleCount() * 2 == size);
    require(tile.grid().numLat == grid->numLat && tile.grid().latSpacing == grid->latSpacing);
    queryTile(tile, ruleTile(tile.grid(), samplesOf(content.get(), *grid)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const MemoryFile file(data, size, "N45E006.SRTMGL3.hgt.zip");
    HeightTile tile;
    require(tile.parseName(file.path()));
    tile.load();
    if (tile.loaded()) {
        checkLoaded(tile, file.path());
    }
    return 0;
}
