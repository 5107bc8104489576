// DTED header labels: what is accepted has usable counts and spacings.
#include <cmath>

#include "FuzzTarget.h"
#include "terrain/tiles/DtedHeader.h"
#include "terrain/tiles/TileKey.h"

using namespace Orlek::Detail;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto grid = parseDtedHeader({reinterpret_cast<const char*>(data), size});
    if (!grid) {
        return 0;
    }
    const auto usable = [](std::uint32_t count, double spacing) {
        return count >= 2 && count <= 9999 && spacing > 0.0 && spacing < 1.0;
    };
    require(size >= dtedLabelSize && usable(grid->numLat, grid->latSpacing) &&
            usable(grid->numLon, grid->lonSpacing) && std::fabs(grid->latOrigin) < 1002.0 &&
            std::fabs(grid->lonOrigin) < 1002.0);
    originKey(grid->latOrigin, grid->lonOrigin);
    return 0;
}
