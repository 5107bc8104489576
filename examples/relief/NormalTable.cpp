// The up component follows from the other two, so that the pair is all that a table needs.
#include "NormalTable.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace MovingMap {

namespace {

constexpr double exaggeration = 1.25;

std::uint16_t signedUnit(double value) {
    return static_cast<std::uint16_t>((value + 1.0) * 32767.5);
}

NormalTexel steeper(double east, double north) {
    const double up = std::sqrt(std::max(1e-4, 1.0 - east * east - north * north));
    const double x = east * exaggeration;
    const double y = north * exaggeration;
    const double length = std::sqrt(x * x + y * y + up * up);
    return {signedUnit(x / length), signedUnit(y / length), signedUnit(up / length)};
}

}  // namespace

const NormalTable& normalTable() {
    static const auto table = [] {
        auto made = std::make_unique<NormalTable>();
        for (int y = 0; y < 256; ++y) {
            for (int x = 0; x < 256; ++x) {
                // A component is truncated when packed: a flat surface has 127.
                (*made)[static_cast<std::size_t>(y * 256 + x)] =
                    steeper((x - 127) / 127.5, (y - 127) / 127.5);
            }
        }
        return made;
    }();
    return *table;
}

}  // namespace MovingMap
