// Writes archives that the library reads.
#pragma once

#include <string>
#include <string_view>

namespace OrlekTiles {

/// The bytes of a zip archive of one deflated entry with its sizes in the local header, as
/// PKWARE's APPNOTE 6.3 has it. The same input gives the same bytes at any time. `name` has at most
/// 65535 bytes and `content` stays below 4 GiB. Throws std::bad_alloc.
std::string zipArchive(std::string_view name, std::string_view content);

}  // namespace OrlekTiles
