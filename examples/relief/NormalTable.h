// Surface normals as the relief's texture holds them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace MovingMap {

/// A surface normal (east, north, up) as the library packs it: 0 to 255 for -1 to 1.
struct PackedNormal {
    unsigned char x = 0;
    unsigned char y = 0;
    unsigned char z = 0;

    bool operator==(const PackedNormal&) const = default;
};

/// East, north and up, each from -1 to 1 in 0 to 65535.
using NormalTexel = std::array<std::uint16_t, 3>;

/// The texel of each pair of packed components, at 256 * north + east. Slopes are shown steeper
/// than they are, as on any relief map.
using NormalTable = std::array<NormalTexel, std::size_t{256} * 256>;

/// The table, made on the first call.
const NormalTable& normalTable();

}  // namespace MovingMap
