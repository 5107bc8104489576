// DTED header labels: what a plain reading by the columns of the format gives, or nothing.
#include <cstdlib>
#include <string>

#include "FuzzTarget.h"
#include "terrain/tiles/DtedHeader.h"
#include "terrain/tiles/TileKey.h"

using namespace Orlek::Detail;

namespace {

int numberAt(const std::string& label, std::size_t at, std::size_t length) {
    return std::atoi(label.substr(at, length).c_str());
}

double angleAt(const std::string& label, std::size_t at, char negative) {
    const double degrees = numberAt(label, at, 3) + numberAt(label, at + 3, 2) / 60.0 +
                           numberAt(label, at + 5, 2) / 3600.0;
    return label[at + 7] == negative ? -degrees : degrees;
}

bool isUsable(int count, int interval) {
    return count >= 2 && count <= 9999 && interval > 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string label(reinterpret_cast<const char*>(data), size);
    const auto grid = parseDtedHeader(label);
    const bool usable = size >= 80 && isUsable(numberAt(label, 47, 4), numberAt(label, 20, 4)) &&
                        isUsable(numberAt(label, 51, 4), numberAt(label, 24, 4));
    require(grid.has_value() == usable);
    if (usable) {
        require(grid->lonOrigin == angleAt(label, 4, 'W') &&
                grid->latOrigin == angleAt(label, 12, 'S'));
        require(grid->lonSpacing == numberAt(label, 20, 4) / 36000.0);
        require(grid->latSpacing == numberAt(label, 24, 4) / 36000.0);
        require(static_cast<int>(grid->numLon) == numberAt(label, 47, 4));
        require(static_cast<int>(grid->numLat) == numberAt(label, 51, 4));
        originKey(grid->latOrigin, grid->lonOrigin);
    }
    return 0;
}
