// One elevation tile: where it lies, known from the scan on, and its samples, while it is loaded.
#pragma once

#include <cstdint>
#include <string>

#include "files/ReadFault.h"
#include "platform/DirectorySearch.h"
#include "platform/PageArray.h"
#include "terrain/tiles/TileGrid.h"
#include "terrain/tiles/TileKey.h"
#include "terrain/tiles/TileSurface.h"

namespace Orlek::Detail {

class RegularFile;

/// Coordinates are degrees within -90 to 90 and -180 to 180. One thread at a time uses a tile.
class HeightTile {
public:
    /// Reads the header of the DTED file `path`. Prints a line and returns false when there is no
    /// such regular file or its header cannot be used.
    bool openHeader(const std::string& path);
    /// Takes the origin of the SRTM archive `path` from its name; the file is not opened. False
    /// when the name holds none.
    bool parseName(const std::string& path);

    /// That of the header or the name as first read: under it the tile is found and counted,
    /// whatever its file has become meanwhile.
    [[nodiscard]] TileKey key() const { return mKey; }
    [[nodiscard]] bool lowRes() const { return mLowRes; }
    [[nodiscard]] bool loaded() const { return mData != nullptr; }
    /// An SRTM tile has no more than its origin before it was loaded.
    [[nodiscard]] const TileGrid& grid() const { return mGrid; }
    /// What came of the last attempt to read the file.
    [[nodiscard]] ReadFault fault() const { return mFault; }

    /// Reads the samples. The tile stays unloaded when there is no memory, or its file is missing,
    /// is no tile or is shorter than its header says. A DTED file that fails so prints a line and
    /// is never tried again; an archive whose content is damaged, only when the file has changed.
    void load();
    void unload() { mData.reset(); }

    /// TileSurface::altitude; false also when the tile is not loaded.
    bool altitude(double lat, double lon, double& value) const {
        return loaded() && mSurface.altitude(lat, lon, value);
    }
    /// TileSurface::altitudeInside; false also when the tile is not loaded.
    bool altitudeInside(double lat, double lon, double& value) const {
        return loaded() && mSurface.altitudeInside(lat, lon, value);
    }
    /// TileSurface::normal; false also when the tile is not loaded.
    bool normal(double lat, double lon, unsigned char& x, unsigned char& y,
                unsigned char& z) const {
        x = y = z = 0;
        return loaded() && mSurface.normal(lat, lon, x, y, z);
    }

private:
    enum class Type : std::uint8_t { dted, srtm };

    ReadFault openDted(RegularFile& file);
    ReadFault loadDted();
    ReadFault loadSrtm();
    void loadSrtmOnceWhenDamaged();
    void takeSamples(PageArray<std::int16_t> samples);

    PageArray<std::int16_t> mData;
    TileSurface mSurface;  ///< sees mData
    Type mType = Type::dted;
    ReadFault mFault = ReadFault::none;
    bool mFailed = false;
    FileStamp mDamaged;  ///< The archive as it was when it was found damaged.
    bool mLowRes = false;
    TileGrid mGrid;
    TileKey mKey = noTileKey;
    std::string mPath;
};

}  // namespace Orlek::Detail
