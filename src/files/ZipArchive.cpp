// Walking the local headers of a ZIP archive.
#include "files/ZipArchive.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <span>
#include <utility>

#include "platform/Report.h"

namespace Orlek::Detail {

namespace {

using FileSystem::ZipFile;

// The header at an offset of a file that may end anywhere in it. Zeros stand for what is missing,
// so that a header that is cut is still told from none.
ReadFault readHeader(const RegularFile& archive, std::uint64_t offset, LocalHeader& header) {
    std::array<std::byte, localHeaderSize> bytes{};
    const bool whole = archive.readAt(offset, bytes) == bytes.size();
    const std::optional<LocalHeader> parsed = parseLocalHeader(bytes);
    if (!parsed) {
        return ReadFault::noHeader;
    }
    header = *parsed;
    return whole ? ReadFault::none : ReadFault::headerCut;
}

// Reads the name, up to its first zero byte. False when the file ends first.
bool readName(const RegularFile& archive, std::uint64_t offset, std::size_t length,
              std::string& name) {
    name.resize(length);
    if (archive.readAt(offset, std::as_writable_bytes(std::span(name))) != length) {
        return false;
    }
    name.resize(std::min(length, name.find('\0')));
    return true;
}

}  // namespace

bool openArchive(const std::string& path, RegularFile& archive) {
    if (archive.open(path)) {
        return true;
    }
    report("could not open <%s>\n", path.c_str());
    reportSystemError("fopen");
    return false;
}

ReadFault readEntry(const RegularFile& archive, std::uint64_t offset, WalkedEntry& entry) {
    const ReadFault fault = readHeader(archive, offset, entry.header);
    if (fault != ReadFault::none) {
        return fault;
    }
    const LocalHeader& header = entry.header;
    const std::uint64_t dataOffset = offset + header.dataOffset();
    if (dataOffset > archive.size()) {
        return ReadFault::headerCut;
    }
    if (dataOffset > std::numeric_limits<std::uint32_t>::max()) {
        return ReadFault::impossibleHeader;
    }
    entry.data.headerOffset = static_cast<std::uint32_t>(offset);
    entry.data.dataOffset = static_cast<std::uint32_t>(dataOffset);
    entry.data.uncompressedSize = header.uncompressedSize;
    entry.data.compressedSize = header.compressedSize;
    entry.nextOffset = offset + header.nextOffset();
    return readName(archive, offset + localHeaderSize, header.nameLength, entry.data.fileName)
               ? ReadFault::none
               : ReadFault::headerCut;
}

ReadFault openEntry(RegularFile archive, const ZipFile::FileData& entry, InflateStream& content) {
    if (entry.dataOffset + std::uint64_t{entry.compressedSize} > archive.size()) {
        return ReadFault::dataCut;
    }
    if (!deflateCanHold(entry.compressedSize, entry.uncompressedSize)) {
        return ReadFault::impossibleHeader;
    }
    return content.open(std::move(archive), entry.dataOffset, entry.compressedSize)
               ? ReadFault::none
               : ReadFault::noMemory;
}

ReadFault openFirstEntry(const std::string& path, InflateStream& content, std::uint32_t& size) {
    RegularFile archive;
    if (!openArchive(path, archive)) {
        return ReadFault::unreadable;
    }
    WalkedEntry first;
    const ReadFault fault = readEntry(archive, 0, first);
    if (fault != ReadFault::none) {
        return fault;
    }
    size = first.data.uncompressedSize;
    return openEntry(std::move(archive), first.data, content);
}

}  // namespace Orlek::Detail
