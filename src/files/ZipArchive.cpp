// Walking the local headers of a ZIP archive.
#include "files/ZipArchive.h"

#include <array>
#include <limits>
#include <span>
#include <utility>

#include "files/ZipHeaders.h"
#include "platform/Report.h"

namespace Orlek::Detail {

namespace {

using FileSystem::ZipFile;

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

std::optional<WalkedEntry> readEntry(const RegularFile& archive, std::uint64_t offset) {
    std::array<std::byte, localHeaderSize> bytes{};
    if (archive.readAt(offset, bytes) != bytes.size()) {
        return std::nullopt;
    }
    const std::optional<LocalHeader> header = parseLocalHeader(bytes);
    if (!header) {
        return std::nullopt;
    }
    const std::uint64_t dataOffset = offset + header->dataOffset();
    if (dataOffset > archive.size() || dataOffset > std::numeric_limits<std::uint32_t>::max()) {
        return std::nullopt;
    }
    WalkedEntry entry;
    entry.data.headerOffset = static_cast<std::uint32_t>(offset);
    entry.data.dataOffset = static_cast<std::uint32_t>(dataOffset);
    entry.data.uncompressedSize = header->uncompressedSize;
    entry.data.compressedSize = header->compressedSize;
    entry.nextOffset = offset + header->nextOffset();
    if (!readName(archive, offset + localHeaderSize, header->nameLength, entry.data.fileName)) {
        return std::nullopt;
    }
    return entry;
}

bool openEntry(RegularFile archive, const ZipFile::FileData& entry, InflateStream& content) {
    return deflateCanHold(entry.compressedSize, entry.uncompressedSize) &&
           content.open(std::move(archive), entry.dataOffset, entry.compressedSize);
}

std::optional<std::uint32_t> openFirstEntry(const std::string& path, InflateStream& content) {
    RegularFile archive;
    if (!openArchive(path, archive)) {
        return std::nullopt;
    }
    const std::optional<WalkedEntry> first = readEntry(archive, 0);
    if (!first || !openEntry(std::move(archive), first->data, content)) {
        return std::nullopt;
    }
    return first->data.uncompressedSize;
}

}  // namespace Orlek::Detail
