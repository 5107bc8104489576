// Finds out where a tile lies and reads its samples.
#include "terrain/tiles/HeightTile.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <utility>

#include "files/InflateStream.h"
#include "files/ZipArchive.h"
#include "platform/MallocArray.h"
#include "platform/PageArray.h"
#include "platform/RegularFile.h"
#include "platform/Report.h"
#include "terrain/tiles/DtedHeader.h"
#include "terrain/tiles/DtedRecords.h"
#include "terrain/tiles/SrtmSamples.h"
#include "terrain/tiles/TileName.h"

namespace Orlek::Detail {

namespace {

void reportUnusable(const std::string& path) {
    report("could not open data file <%s>\n", path.c_str());
}

ReadFault readDtedHeader(const RegularFile& file, TileGrid& grid) {
    std::array<char, dtedLabelSize> label{};
    if (file.size() < dtedHeaderSize ||
        file.readAt(0, std::as_writable_bytes(std::span(label))) != label.size()) {
        return ReadFault::headerCut;
    }
    const std::optional<TileGrid> parsed = parseDtedHeader({label.data(), label.size()});
    if (!parsed) {
        return ReadFault::impossibleHeader;
    }
    grid = *parsed;
    return ReadFault::none;
}

/// So many that their bytes stay in the cache from reading to decoding.
constexpr std::size_t dtedLinesAtOnce = 32;

/// Reads and decodes all records. `buffer` has room for dtedLinesAtOnce of them.
bool readDtedRecords(const RegularFile& file, const TileGrid& grid, std::byte* buffer,
                     std::int16_t* samples) {
    const std::size_t recordSize = dtedRecordSize(grid.numLat);
    for (std::size_t line = 0; line < grid.numLon; line += dtedLinesAtOnce) {
        const std::size_t lines = std::min(dtedLinesAtOnce, grid.numLon - line);
        const std::span bytes(buffer, lines * recordSize);
        if (file.readAt(dtedHeaderSize + line * recordSize, bytes) != bytes.size()) {
            return false;
        }
        decodeDtedRecords(bytes.data(), lines, grid.numLat, samples + line * grid.numLat);
    }
    return true;
}

/// Why a stream has not given what was expected.
ReadFault faultOf(const InflateStream& content) {
    return content.isCut() ? ReadFault::dataCut : ReadFault::damaged;
}

/// Inflates and places all rows. The stream must end exactly after the last one.
ReadFault readSrtmRows(InflateStream& content, const TileGrid& grid, std::int16_t* samples) {
    const std::size_t rowSize = std::size_t{grid.numLon} * 2;
    const auto band = mallocArray<std::byte>(srtmBandRows * rowSize);
    if (!band) {
        return ReadFault::noMemory;
    }
    for (std::uint32_t row = 0; row < grid.numLat; row += srtmBandRows) {
        const std::uint32_t rows = std::min(srtmBandRows, grid.numLat - row);
        const std::span bytes(band.get(), rows * rowSize);
        if (content.read(bytes) != bytes.size()) {
            return faultOf(content);
        }
        placeSrtmRows(bytes.data(), row, rows, grid, samples);
    }
    return content.atEnd() ? ReadFault::none : faultOf(content);
}

}  // namespace

bool HeightTile::openHeader(const std::string& path) {
    mPath = path;
    mType = Type::dted;
    RegularFile file;
    mFault = openDted(file);
    if (mFault != ReadFault::none) {
        reportUnusable(path);
    }
    mKey = originKey(mGrid.latOrigin, mGrid.lonOrigin);
    return mFault == ReadFault::none;
}

bool HeightTile::parseName(const std::string& path) {
    const std::optional<TileName> name = parseTileName(path);
    if (!name) {
        return false;
    }
    mPath = path;
    mType = Type::srtm;
    mLowRes = name->lowRes;
    mGrid.latOrigin = name->latOrigin;
    mGrid.lonOrigin = name->lonOrigin;
    mKey = originKey(name->latOrigin, name->lonOrigin);
    return true;
}

void HeightTile::load() {
    if (mType == Type::srtm) {
        loadSrtmOnceWhenDamaged();
    } else if (!mFailed) {
        mFault = loadDted();
        mFailed = mFault != ReadFault::none && mFault != ReadFault::noMemory;
        if (mFailed) {
            reportUnusable(mPath);
        }
    }
}

// All of a damaged archive may have to be inflated before that shows, and a map asks for its cell
// in every row: it is left alone until the file is another.
void HeightTile::loadSrtmOnceWhenDamaged() {
    const FileStamp stamp = fileStamp(mPath);
    if (stamp.kind == FileKind::regular && stamp == mDamaged) {
        return;
    }
    mFault = stamp.kind == FileKind::regular ? loadSrtm() : ReadFault::unreadable;
    mDamaged = mFault == ReadFault::damaged ? stamp : FileStamp{};
}

/// Opens the file and takes the grid from its header.
ReadFault HeightTile::openDted(RegularFile& file) {
    return file.open(mPath) ? readDtedHeader(file, mGrid) : ReadFault::unreadable;
}

ReadFault HeightTile::loadDted() {
    RegularFile file;
    const ReadFault fault = openDted(file);
    if (fault != ReadFault::none) {
        return fault;
    }
    if (file.size() < dtedFileSize(mGrid)) {
        return ReadFault::dataCut;
    }
    auto samples = pageArray<std::int16_t>(mGrid.sampleCount());
    const auto records = mallocArray<std::byte>(dtedLinesAtOnce * dtedRecordSize(mGrid.numLat));
    if (!samples || !records) {
        return ReadFault::noMemory;
    }
    if (!readDtedRecords(file, mGrid, records.get(), samples.get())) {
        return ReadFault::dataCut;
    }
    takeSamples(std::move(samples));
    return ReadFault::none;
}

ReadFault HeightTile::loadSrtm() {
    InflateStream content;
    std::uint32_t size = 0;
    const ReadFault opened = openFirstEntry(mPath, content, size);
    if (opened != ReadFault::none) {
        return opened;
    }
    std::optional<TileGrid> grid = srtmGrid(size);
    if (!grid) {
        return ReadFault::unknownSize;
    }
    grid->latOrigin = mGrid.latOrigin;
    grid->lonOrigin = mGrid.lonOrigin;
    auto samples = pageArray<std::int16_t>(grid->sampleCount());
    if (!samples) {
        return ReadFault::noMemory;
    }
    const ReadFault read = readSrtmRows(content, *grid, samples.get());
    if (read == ReadFault::none) {
        mGrid = *grid;
        takeSamples(std::move(samples));
    }
    return read;
}

void HeightTile::takeSamples(PageArray<std::int16_t> samples) {
    mData = std::move(samples);
    mSurface = TileSurface(mGrid, mData.get());
}

}  // namespace Orlek::Detail
