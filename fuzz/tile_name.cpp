// Names of SRTM tiles: what is accepted has a position of whole degrees.
#include <cmath>
#include <string>

#include "FuzzTarget.h"
#include "terrain/tiles/TileKey.h"
#include "terrain/tiles/TileName.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string path(reinterpret_cast<const char*>(data), size);
    const auto name = Orlek::Detail::parseTileName(path);
    if (!name) {
        return 0;
    }
    const double highest = name->lowRes ? 49.0 : 99.0;
    const double lowest = name->lowRes ? -149.0 : -99.0;
    require(size >= 7 && name->latOrigin >= lowest && name->latOrigin <= highest &&
            std::fabs(name->lonOrigin) <= 999.0 && name->latOrigin == std::trunc(name->latOrigin));
    Orlek::Detail::originKey(name->latOrigin, name->lonOrigin);
    return 0;
}
