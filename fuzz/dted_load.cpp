// Whole DTED files: registering, loading and querying whatever bytes come.
#include <cstdio>

#include "FuzzTarget.h"
#include "MemoryFile.h"
#include "TileQueries.h"
#include "terrain/tiles/DtedHeader.h"

using namespace Orlek::Detail;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The lines about files that cannot be used go nowhere.
    static const bool quiet = std::freopen("/dev/null", "w", stdout) != nullptr;
    const MemoryFile file(data, size);
    HeightTile tile;
    if (!quiet || !tile.openHeader(file.path())) {
        return 0;
    }
    const auto grid = parseDtedHeader({reinterpret_cast<const char*>(data), size});
    tile.load();
    require(grid && tile.loaded() == (size >= dtedFileSize(*grid)));
    queryTile(tile, grid->latOrigin, grid->lonOrigin);
    tile.unload();
    tile.load();
    return 0;
}
