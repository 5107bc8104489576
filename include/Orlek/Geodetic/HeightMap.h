// Terrain elevation and surface normals at any latitude and longitude, from tiles on disk.
#pragma once

#include <Orlek/Export.h>

#include <memory>
#include <string>

namespace Orlek::Geodetic {

/// Terrain elevation and surface normals from a directory tree of elevation tiles.
///
/// Two kinds of file are tiles: DTED level-1 files, named `*.DT1`, and SRTM tiles, one in each ZIP
/// archive, named `*.zip`. A DTED file tells its position itself (MIL-PRF-89020B); an SRTM tile's
/// comes from its name, such as `N45E006.SRTMGL1.hgt.zip` for the cell whose south-west corner is
/// 45 N, 6 E, or `W020N90.SRTMGL30.hgt.zip` for the low-resolution tile whose north-west corner is
/// 90 N, 20 W. Other names that begin like the first, `N45E006.hgt.zip` say, count as high
/// resolution too. Files of other names, DTED files whose header cannot be read and archives
/// without a position in their name are left out.
///
/// loadData() looks for the tiles on a thread of its own, reading headers and names only. Samples
/// are read when a query first needs a tile and allows it. An object keeps at most MAX_TILES_LOADED
/// high-resolution and MAX_TILES_LOADED_LOW low-resolution tiles loaded; one more unloads the tile
/// that was loaded longest ago. A loaded tile takes two bytes a post: 2.9 MB for a 3 arc second
/// tile, 26 MB for 1 arc second, 58 MB for 30 arc seconds.
///
/// @code
/// Orlek::Geodetic::HeightMap terrain;
/// terrain.setDataPath("/data/terrain");
/// terrain.loadData();                       // the scan goes on behind the application's start
/// ...
/// double metres = terrain.getAltitude(43.75, 7.42, true, false);
/// @endcode
///
/// Threads: an object is used by one thread at a time, and so are an object and its copies, because
/// they share their tiles. Objects that are no copies of each other are independent. No GL context
/// is needed. Nothing throws but std::bad_alloc, when there is no memory for the small records
/// of the object itself; without memory for samples a tile stays unloaded.
class ORLEK_EXPORT HeightMap {
public:
    /// High-resolution tiles loaded at a time.
    static constexpr int MAX_TILES_LOADED = 300;
    /// Low-resolution tiles loaded at a time.
    static constexpr int MAX_TILES_LOADED_LOW = 15;

    /// Makes an object that has no tiles and is not ready.
    HeightMap();

    /// Copies what `other` knows at this moment: whether it is ready, its path, its tiles and which
    /// of them are loaded. The tiles are shared, so a tile that one loads or unloads is loaded or
    /// unloaded for both; one that a copy has loaded counts for this object from its next use on. A
    /// scan that `other` runs is not copied: a copy made before the first scan has finished is not
    /// ready and needs a loadData() of its own.
    HeightMap(const HeightMap& other);

    /// As the copy constructor; waits first for a scan of this object, as the destructor does.
    HeightMap& operator=(const HeightMap& other);

    /// Waits for a scan that still runs, which lists the directory and opens each DTED file in it:
    /// a second or two for 2,000 files, without end on a network disk that does not answer. Tiles
    /// go with the last object that shares them.
    ~HeightMap();

    /// Names the directory of the tiles for the next loadData(). Looks at nothing on disk.
    /// @param path a directory; its subdirectories are searched too.
    void setDataPath(const std::string& path);

    /// Starts to look for tiles and returns at once (where the system gives no thread, only when it
    /// has found them). Until the search has ended for the first time the object is not ready, and
    /// queries give what they say for that; there is no need to wait.
    ///
    /// Prints one line with the number of files found and one line for each DTED file. A directory
    /// that is missing or empty makes the object ready without tiles.
    ///
    /// While a scan runs, another call does nothing. After one, a call scans anew: queries answer
    /// from the tiles known before until it has finished, then new tiles are added and those found
    /// again take the place of the earlier ones, whose memory is given back; what the last
    /// query found, a tile or none, stays until a query goes to another cell.
    void loadData();

    /// The elevation of the terrain, interpolated bilinearly between the four posts around the
    /// point.
    ///
    /// High-resolution tiles, cells of one degree, go before low-resolution ones, which are asked
    /// only where no high-resolution tile exists. A tile is looked up when a query enters its cell;
    /// as long as queries stay in one cell nothing is read from disk, so a cell first asked for
    /// with `load` false stays unloaded until another cell has been asked for.
    ///
    /// @param lat latitude in degrees, -90 to 90, north positive, WGS 84.
    /// @param lon longitude in degrees, -180 to 180, east positive.
    /// @param load whether samples may be read from disk, which takes milliseconds, tens of them
    ///        for a tile of 1", and as long as the disk does.
    /// @param lowRes whether to leave the high-resolution tiles out.
    /// @return metres above mean sea level. 0 when the object is not ready, no tile covers the
    ///         point, the tile is not loaded or cannot be read, the post is missing (a DTED void
    ///         reads as -1), or the coordinates are out of range or not finite. As 0 is an
    ///         elevation too, ask getNormal() where the difference matters.
    double getAltitude(double lat, double lon, bool load, bool lowRes);

    /// The direction in which the surface of the terrain faces, from slopes of the Catmull-Rom
    /// surface through the sixteen posts around the point (Catmull and Rom 1974). Posts count as if
    /// they were as far apart along a parallel as they are along a meridian, and the other way
    /// round: away from the equator slopes to the east come out cos(lat) times as steep, those to
    /// the north divided by it; by DTED beyond 50 degrees, times the ratio of its spacings. For
    /// shading that is enough.
    ///
    /// Each component c of the unit vector, -1 to 1, is packed as (c + 1) * 127.5, rounded down;
    /// flat ground is (127, 127, 255).
    ///
    /// @param lat, lon, load, lowRes as for getAltitude().
    /// @param[out] x the component to the east.
    /// @param[out] y the component to the north.
    /// @param[out] z the component up.
    /// @return false, with (128, 128, 255), when the object is not ready; otherwise true. Then
    ///         (128, 128, 255) tells that no tile covers the point and (0, 0, 0) that its tile is
    ///         not loaded or the point lies outside its posts.
    bool getNormal(double lat, double lon, bool load, bool lowRes, unsigned char& x,
                   unsigned char& y, unsigned char& z);

private:
    struct State;
    std::unique_ptr<State> mState;
};

}  // namespace Orlek::Geodetic
