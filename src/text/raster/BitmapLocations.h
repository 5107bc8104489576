// The table that says where the embedded bitmaps of an OpenType font lie: EBLC, CBLC or, in the
// fonts of one system, bloc. Numbers are big-endian (OpenType 1.9, the table "EBLC"):
//
//   offset 0  version                              4      4  count of sizes n  4
//          8  n sizes of 48 bytes, each with the offset of its list (0) and the count of ranges (8)
//
// A list has 8 bytes for a range of glyphs: first, last, and the offset from the list's start of
// what begins with the index format and the image format, 2 bytes each.
#pragma once

#include <cstddef>
#include <span>

namespace Orlek::Detail {

/// Whether a font with this table has bitmaps that are made of others (image formats 8 and 9),
/// which may be made of others again, as often as they like. Also true when there are more ranges
/// than any font has, so that looking takes little time.
bool hasCompositeBitmaps(std::span<const std::byte> table);

}  // namespace Orlek::Detail
