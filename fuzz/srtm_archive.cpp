// Archives of SRTM tiles: loading and querying whatever bytes come under the name of a tile.
#include <unistd.h>

#include "MemoryFile.h"
#include "TileQueries.h"
#include "support/TempDir.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const OrlekTest::TempDir dir;
    static const std::string link = dir.path("N45E006.SRTMGL3.hgt.zip");
    const MemoryFile file(data, size);
    unlink(link.c_str());
    require(symlink(file.path().c_str(), link.c_str()) == 0);
    Orlek::Detail::HeightTile tile;
    require(tile.parseName(link));
    tile.load();
    queryTile(tile, 45.0, 6.0);
    return 0;
}
