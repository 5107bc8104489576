// Why a file is not taken as a tile, or is one that cannot be loaded, in words for people.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "files/ReadFault.h"
#include "files/ZipHeaders.h"
#include "terrain/tiles/TileGrid.h"

namespace OrlekTiles {

using Orlek::Detail::ReadFault;
using Orlek::Detail::TileGrid;

struct Reason {
    std::string word;  ///< a few words that stay the same from version to version, for scripts
    std::string text;  ///< what is wrong with this file and what helps
};

/// What the header of an archive's first entry tells.
struct ArchiveHead {
    Orlek::Detail::LocalHeader header{};
    std::optional<TileGrid> grid;  ///< the posts that its size stands for
    std::optional<Reason> reason;  ///< why it cannot be loaded, as far as the header tells
};

/// Reads no more than headers.
ArchiveHead readHead(const std::string& path);

/// Why the system does not let a file be read.
Reason unreadableReason(const std::string& path);

/// Why the library could not load an archive.
Reason archiveReason(const std::string& path, ReadFault fault);

/// Why the library could not use a DTED file.
Reason dtedReason(const std::string& path, ReadFault fault);

/// Why 57600000 bytes (30") and a name that is none of a low-resolution tile do not fit, or the
/// other way round; nothing when they do.
std::optional<Reason> fitReason(const TileGrid& grid, bool lowResName);

/// A size that no tile has.
Reason sizeReason(const std::string& name, std::uint64_t bytes);

/// Why a file, which is none by its name, was not taken.
Reason nameReason(const std::string& path);

/// Whether the name shows that the file was meant to be a tile.
bool looksLikeTile(const std::string& path);

}  // namespace OrlekTiles
