// The header of a DTED level-1 file and the sizes that follow from it (MIL-PRF-89020B).
//
// A file is a header of 3428 bytes (UHL 80, DSI 648, ACC 2700) and one record per longitude line.
// Of the header only the UHL is read, ASCII fields of fixed width:
//
//   offset length
//        4      8  longitude of the south-west corner, DDDMMSSH
//       12      8  latitude of the south-west corner, DDDMMSSH
//       20      4  longitude interval, tenths of arc seconds
//       24      4  latitude interval, tenths of arc seconds
//       47      4  number of longitude lines
//       51      4  number of latitude points in each
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "terrain/tiles/TileGrid.h"

namespace Orlek::Detail {

inline constexpr std::size_t dtedLabelSize = 80;
inline constexpr std::size_t dtedHeaderSize = 3428;
inline constexpr std::size_t dtedRecordPrefix = 8;
inline constexpr std::size_t dtedRecordSuffix = 4;

/// The bytes of one longitude line of `numLat` samples.
constexpr std::size_t dtedRecordSize(std::size_t numLat) {
    return dtedRecordPrefix + 2 * numLat + dtedRecordSuffix;
}

/// The bytes that a file with this grid has at least.
constexpr std::uint64_t dtedFileSize(const TileGrid& grid) {
    return dtedHeaderSize + std::uint64_t{grid.numLon} * dtedRecordSize(grid.numLat);
}

/// Reads the grid from the first dtedLabelSize bytes of a file; nothing when it has fewer than 2 or
/// more than 9999 posts along an axis or an interval that is not positive. The sentinel is not
/// compared, and numbers follow the rules of `atoi`.
std::optional<TileGrid> parseDtedHeader(std::string_view label);

}  // namespace Orlek::Detail
