// The entries of a ZIP archive on disk, found by walking from one local header to the next; the
// central directory is never read. ZipFile keeps a table of them, terrain reads only the first.
#pragma once

#include <Orlek/FileSystem/ZipFile.h>

#include <cstdint>
#include <string>

#include "files/InflateStream.h"
#include "files/ReadFault.h"
#include "files/ZipHeaders.h"
#include "platform/RegularFile.h"

namespace Orlek::Detail {

struct WalkedEntry {
    LocalHeader header;
    FileSystem::ZipFile::FileData data;
    std::uint64_t nextOffset = 0;  ///< where the next local header would stand
};

/// Opens the archive; when that fails it says so on both streams and returns false.
bool openArchive(const std::string& path, RegularFile& archive);

/// Reads the entry whose local header stands at `offset`. Faults: noHeader, headerCut when the file
/// ends within the header, impossibleHeader when the entry lies beyond 32-bit offsets.
ReadFault readEntry(const RegularFile& archive, std::uint64_t offset, WalkedEntry& entry);

/// Starts reading an entry. Faults: dataCut when the file ends before its data, impossibleHeader
/// when deflate cannot make so many bytes of the compressed ones, noMemory.
ReadFault openEntry(RegularFile archive, const FileSystem::ZipFile::FileData& entry,
                    InflateStream& content);

/// Starts reading the first entry and gives its uncompressed size as the header has it. Faults are
/// those of the functions above, and unreadable with a line on both streams.
ReadFault openFirstEntry(const std::string& path, InflateStream& content, std::uint32_t& size);

}  // namespace Orlek::Detail
