// Where a setting stands in a property file, and how its texts are spelled there: no XML, no files.
//
// A key is nested where it can be, "a.b.c" as the leaf c in the group b in the group a. Nesting
// stays within what a file may have when it is read, and within a length that keeps many keys of
// one group from taking far more memory than their file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Orlek::Detail {

/// The name of a leaf, so of no group.
inline constexpr std::string_view leafName = "Property";

/// The most bytes of groups that a key nests in, dots included.
inline constexpr std::size_t longestGroups = 1024;

/// Views into the key.
struct PropertyPlace {
    std::string_view groups;  ///< joined by dots; empty under the root
    std::string_view leaf;    ///< the whole key when it cannot be nested
};

/// Finds the place of a key.
PropertyPlace placeProperty(std::string_view key);

/// Whether the text is UTF-8 (RFC 3629) without U+FFFE and U+FFFF, as a property file must be.
bool isWritable(std::string_view text);

/// Spells any bytes so: % and two hexadecimal digits for each byte that is none of such a text and
/// for the per cent sign itself.
std::string escapeBytes(std::string_view text);

/// Takes escapeBytes back; a per cent sign without two digits stays.
std::string unescapeBytes(std::string_view text);

}  // namespace Orlek::Detail
