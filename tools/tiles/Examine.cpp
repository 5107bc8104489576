#include "Examine.h"

#include <zlib.h>

#include <array>
#include <cstdio>
#include <span>
#include <vector>

#include "files/ZipArchive.h"
#include "platform/RegularFile.h"
#include "terrain/tiles/DtedHeader.h"

namespace OrlekTiles {

namespace {

using namespace Orlek::Detail;

std::string hex(std::uint32_t value) {
    char text[16];
    std::snprintf(text, sizeof text, "%08X", value);
    return text;
}

/// Of an archive that the library can load. Where a descriptor follows the data, the checksum may
/// stand only there.
std::optional<Reason> checkCrc(const std::string& path) {
    RegularFile archive;
    WalkedEntry first;
    InflateStream content;
    if (!archive.open(path) || readEntry(archive, 0, first) != ReadFault::none ||
        (first.header.hasDataDescriptor && first.header.crc == 0) ||
        openEntry(std::move(archive), first.data, content) != ReadFault::none) {
        return std::nullopt;
    }
    std::vector<std::byte> bytes(std::size_t{1} << 18U);
    uLong crc = crc32(0, nullptr, 0);
    for (std::size_t got = content.read(bytes); got > 0; got = content.read(bytes)) {
        crc = crc32(crc, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(got));
    }
    if (crc == first.header.crc) {
        return std::nullopt;
    }
    return Reason{"wrong checksum", "its samples are not those that were zipped: their CRC-32 is " +
                                        hex(static_cast<std::uint32_t>(crc)) + ", it should be " +
                                        hex(first.header.crc)};
}

/// A record ends with the big-endian sum of all its bytes before (MIL-PRF-89020B).
bool checksumFits(std::span<const std::byte> record) {
    std::uint32_t sum = 0;
    for (const std::byte byte : record.first(record.size() - dtedRecordSuffix)) {
        sum += std::to_integer<std::uint32_t>(byte);
    }
    std::uint32_t stored = 0;
    for (const std::byte byte : record.last(dtedRecordSuffix)) {
        stored = stored << 8U | std::to_integer<std::uint32_t>(byte);
    }
    return sum == stored;
}

/// Writers that leave the sums out altogether are not accused.
std::optional<Reason> checkRecords(const std::string& path, const TileGrid& grid) {
    RegularFile file;
    if (!file.open(path)) {
        return std::nullopt;
    }
    std::vector<std::byte> record(dtedRecordSize(grid.numLat));
    std::uint32_t wrong = 0;
    for (std::uint32_t line = 0; line < grid.numLon; ++line) {
        const bool whole = file.readAt(dtedHeaderSize + std::uint64_t{line} * record.size(),
                                       record) == record.size();
        wrong += whole && checksumFits(record) ? 0 : 1;
    }
    if (wrong == 0 || wrong == grid.numLon) {
        return std::nullopt;
    }
    return Reason{"wrong checksum", std::to_string(wrong) + " of its " +
                                        std::to_string(grid.numLon) +
                                        " records are not what was written"};
}

}  // namespace

std::optional<Reason> load(const TileFile& file) {
    // Asked first: the library's line about it would stand among ours.
    if (!RegularFile().open(file.path)) {
        return unreadableReason(file.path);
    }
    file.tile->load();
    if (file.tile->loaded()) {
        return std::nullopt;
    }
    const ReadFault fault = file.tile->fault();
    return file.format == TileFormat::dted ? dtedReason(file.path, fault)
                                           : archiveReason(file.path, fault);
}

std::optional<Reason> examine(const TileFile& file) {
    if (auto reason = load(file)) {
        return reason;
    }
    const TileGrid grid = file.tile->grid();
    file.tile->unload();
    if (file.format == TileFormat::srtm) {
        if (auto misfit = fitReason(grid, file.tile->lowRes())) {
            return misfit;
        }
    }
    return file.format == TileFormat::dted ? checkRecords(file.path, grid) : checkCrc(file.path);
}

}  // namespace OrlekTiles
