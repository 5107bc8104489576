// The library says what fault it met; the header fields that it does not ask for (method, password)
// and the name say how it came about.
#include "Reason.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <limits>

#include "files/ZipArchive.h"
#include "platform/RegularFile.h"
#include "terrain/tiles/DtedHeader.h"
#include "terrain/tiles/SrtmSamples.h"
#include "terrain/tiles/TileName.h"

namespace OrlekTiles {

namespace {

using namespace Orlek::Detail;

constexpr const char* repack = "; unzip it and use orlek-tiles pack";

std::string count(std::uint64_t bytes) {
    return std::to_string(bytes) + " bytes";
}

constexpr std::uint16_t deflate64 = 9;  // with short matches the same as deflate

std::string methodName(std::uint16_t method) {
    switch (method) {
        case deflate64:
            return "Deflate64";
        case 12:
            return "bzip2";
        case 14:
            return "LZMA";
        case 93:
            return "Zstandard";
        case 95:
            return "XZ";
        case 98:
            return "PPMd";
        default:
            return "method " + std::to_string(method);
    }
}

Reason methodReason(std::uint16_t method) {
    return {"other compression",
            "it is compressed by " + methodName(method) + ", and only deflate is read" + repack};
}

/// The name of a later entry that could be the tile; the walk ends where a header misleads.
std::optional<std::string> laterTile(const RegularFile& archive, std::uint64_t offset) {
    constexpr int mostEntries = 100;
    WalkedEntry entry;
    for (int i = 0; i < mostEntries && readEntry(archive, offset, entry) == ReadFault::none; ++i) {
        if (srtmGrid(entry.header.uncompressedSize)) {
            return entry.data.fileName;
        }
        offset = entry.nextOffset;
    }
    return std::nullopt;
}

/// What the way in which an entry was written has against it.
std::optional<Reason> writerReason(const LocalHeader& header) {
    constexpr std::uint32_t inZip64Field = std::numeric_limits<std::uint32_t>::max();
    if (header.encrypted) {
        return Reason{"encrypted entry", std::string("a password protects it") + repack};
    }
    if (header.method == zipMethodStored) {
        return Reason{"stored entry",
                      std::string("it is not compressed, and only deflate is read") + repack};
    }
    if (header.method != zipMethodDeflated && header.method != deflate64) {
        return methodReason(header.method);
    }
    if (header.compressedSize == inZip64Field || header.uncompressedSize == inZip64Field) {
        return Reason{"zip64 sizes",
                      std::string("its sizes are not in the local header but in a 64-bit field, as "
                                  "when a stream was zipped") +
                          repack};
    }
    if (header.hasDataDescriptor && (header.compressedSize == 0 || header.uncompressedSize == 0)) {
        return Reason{"sizes in a descriptor",
                      std::string("its sizes stand behind the data, as when a stream was zipped, "
                                  "and are needed before") +
                          repack};
    }
    return std::nullopt;
}

std::optional<Reason> faultReason(const WalkedEntry& entry, ReadFault fault) {
    switch (fault) {
        case ReadFault::none:
            return std::nullopt;
        case ReadFault::noHeader:
            return Reason{"no archive", "it does not begin as a zip file does"};
        case ReadFault::headerCut:
            return Reason{"header cut", "it ends within the header of its first entry"};
        case ReadFault::dataCut:
            return Reason{"truncated data", "it ends before the data of its first entry do"};
        case ReadFault::impossibleHeader:
            return Reason{"impossible sizes", count(entry.header.uncompressedSize) +
                                                  " cannot come out of " +
                                                  count(entry.header.compressedSize)};
        case ReadFault::unknownSize:
            return sizeReason(entry.data.fileName, entry.header.uncompressedSize);
        case ReadFault::noMemory:
            return Reason{"no memory", "there is not enough memory to load it"};
        case ReadFault::unreadable:
        case ReadFault::damaged:
            break;
    }
    return Reason{"damaged data",
                  "its data cannot be decoded, or are fewer or more than its header says"};
}

std::string lowerExtension(const std::string& path) {
    std::string extension = std::filesystem::path(path).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(), [](char c) {
        return static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    });
    return extension;
}

}  // namespace

Reason unreadableReason(const std::string& path) {
    errno = 0;
    RegularFile file;
    file.open(path);
    return {"unreadable", errno == 0 ? "the file changed meanwhile" : std::strerror(errno)};
}

Reason sizeReason(const std::string& name, std::uint64_t bytes) {
    return {"size not in the table",
            name + " has " + count(bytes) +
                "; tiles have 2884802 (3\"), 25934402 (1\") or 57600000 (30\")"};
}

std::optional<Reason> fitReason(const TileGrid& grid, bool lowResName) {
    const bool lowRes = grid.numLon != grid.numLat;
    if (lowRes == lowResName) {
        return std::nullopt;
    }
    return Reason{"wrong name", lowRes ? "a 30\" tile is called like W020N90.SRTMGL30.dem"
                                       : "only 30\" tiles are called SRTMGL30"};
}

ArchiveHead readHead(const std::string& path) {
    RegularFile archive;
    if (!archive.open(path)) {
        return {{}, std::nullopt, unreadableReason(path)};
    }
    WalkedEntry first;
    const ReadFault fault = readEntry(archive, 0, first);
    if (fault != ReadFault::none) {
        return {{}, std::nullopt, faultReason(first, fault)};
    }
    const std::optional<TileGrid> grid = srtmGrid(first.header.uncompressedSize);
    const auto later = grid ? std::nullopt : laterTile(archive, first.nextOffset);
    if (later) {
        return {first.header, grid,
                Reason{"tile not first", "its first entry is " + first.data.fileName +
                                             " and must be " + *later + repack}};
    }
    auto reason = writerReason(first.header);
    if (!reason) {
        InflateStream content;
        const ReadFault opened = openEntry(std::move(archive), first.data, content);
        reason = faultReason(first,
                             opened == ReadFault::none && !grid ? ReadFault::unknownSize : opened);
    }
    return {first.header, grid, reason};
}

Reason archiveReason(const std::string& path, ReadFault fault) {
    if (fault == ReadFault::unreadable) {
        return unreadableReason(path);
    }
    const ArchiveHead head = readHead(path);
    if (head.reason) {
        return *head.reason;
    }
    return head.header.method == deflate64 ? methodReason(deflate64) : *faultReason({}, fault);
}

Reason dtedReason(const std::string& path, ReadFault fault) {
    switch (fault) {
        case ReadFault::unreadable:
            return unreadableReason(path);
        case ReadFault::headerCut:
            return {"header cut", "it is shorter than a DTED header, " + count(dtedHeaderSize)};
        case ReadFault::noMemory:
            return {"no memory", "there is not enough memory to load it"};
        case ReadFault::dataCut:
            return {"truncated data", "it ends before the records that its header promises"};
        default:
            return {"bad header",
                    "a DTED header has intervals above 0 and counts of 2 to 9999 posts"};
    }
}

Reason nameReason(const std::string& path) {
    const std::string extension = lowerExtension(path);
    if (extension == ".zip" && path.ends_with(".zip")) {
        return {"wrong name", "it must begin with a corner: N45E006, or W020N90 before .SRTMGL30"};
    }
    if (extension == ".hgt") {
        return {"not zipped", "only zipped tiles are read; use orlek-tiles pack"};
    }
    if (extension == ".dt0" || extension == ".dt2") {
        return {"other level", "only level 1 of DTED is read"};
    }
    if (extension == ".zip" || extension == ".dt1") {
        return {"wrong extension", "the extension must be .zip or .DT1, letter by letter"};
    }
    return looksLikeTile(path)
               ? Reason{"wrong extension", "only .DT1 files and zipped .hgt files are read"}
               : Reason{"no tile", "its name is not that of a tile"};
}

bool looksLikeTile(const std::string& path) {
    const std::string extension = lowerExtension(path);
    constexpr const char* known[] = {".hgt", ".dt0", ".dt1", ".dt2", ".zip"};
    return parseTileName(path).has_value() ||
           std::find(std::begin(known), std::end(known), extension) != std::end(known);
}

}  // namespace OrlekTiles
