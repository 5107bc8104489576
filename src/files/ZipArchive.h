// The entries of a ZIP archive on disk, found by walking from one local header to the next; the
// central directory is never read. ZipFile keeps a table of them, terrain reads only the first.
#pragma once

#include <Orlek/FileSystem/ZipFile.h>

#include <cstdint>
#include <optional>
#include <string>

#include "files/InflateStream.h"
#include "platform/RegularFile.h"

namespace Orlek::Detail {

struct WalkedEntry {
    FileSystem::ZipFile::FileData data;
    std::uint64_t nextOffset = 0;  ///< where the next local header would stand
};

/// Opens the archive; when that fails it says so on both streams and returns false.
bool openArchive(const std::string& path, RegularFile& archive);

/// The entry whose local header stands at `offset`. Nothing when there is none, when the header is
/// cut by the end of the file, or when the entry lies beyond 32-bit offsets.
std::optional<WalkedEntry> readEntry(const RegularFile& archive, std::uint64_t offset);

/// Starts reading an entry. False when its sizes cannot be true: data beyond the end of the file,
/// or more of it than deflate can make of the compressed bytes.
bool openEntry(RegularFile archive, const FileSystem::ZipFile::FileData& entry,
               InflateStream& content);

/// Starts reading the first entry and returns its uncompressed size as the header gives it; nothing
/// (and a line on both streams when the file cannot be opened) when there is no such entry.
std::optional<std::uint32_t> openFirstEntry(const std::string& path, InflateStream& content);

}  // namespace Orlek::Detail
