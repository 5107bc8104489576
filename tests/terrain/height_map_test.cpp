// Choosing, loading and unloading tiles through the interface.
#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

#include "support/Capture.h"
#include "support/TempDir.h"
#include "terrain/ScannedMap.h"
#include "terrain/TileFiles.h"

namespace {

using namespace OrlekTest;
using Orlek::Geodetic::HeightMap;

std::string writeFlatDted(const TempDir& dir, int lat, int lon, int elevation) {
    char name[32];
    std::snprintf(name, sizeof name, "%d/%d.DT1", lat, lon);
    return dir.write(name, dtedFile(dtedLabelAt(lat, lon), [=](int, int) { return elevation; }));
}

std::string quietScan(HeightMap& map, const std::string& path) {
    return captureStdout([&] { scan(map, path); });
}

TEST(HeightMap, IsNotReadyBeforeTheScan) {
    HeightMap map;
    Normal n{};
    EXPECT_EQ(map.getAltitude(45, 6, true, false), 0.0);
    EXPECT_FALSE(map.getNormal(45, 6, true, false, n[0], n[1], n[2]));
    EXPECT_EQ(n, noTile);
}

TEST(HeightMap, PrintsWhatItFinds) {
    const TempDir dir;
    const std::string first =
        dir.write("a/x.DT1", dtedFile(dtedLabelAt(-1, 6), [](int, int) { return 5; }));
    dir.write("a/N10E010.SRTMGL3.hgt.zip", "");
    dir.write("a/notes.txt", "");
    dir.write("a/none", "");
    dir.write("a/lower.dt1", "");
    HeightMap map;
    EXPECT_EQ(quietScan(map, dir.path()), "basePath <" + dir.path() + "> size 5\nread DT File <" +
                                              first + "> -1 6 0x5900ba size 0\n");
    EXPECT_EQ(normalAt(map, 10.5, 10.5, false), notLoaded);
    EXPECT_EQ(normalAt(map, -0.9, 6.1, true), flat);
}

TEST(HeightMap, OfAMissingDirectoryIsReadyWithoutTiles) {
    const TempDir dir;
    const std::string missing = dir.path("missing");
    HeightMap map;
    EXPECT_EQ(quietScan(map, missing), "Property::readAllFiles: could not open path <" + missing +
                                           "\\*>\nbasePath <" + missing + "> size 0\n");
    EXPECT_EQ(map.getAltitude(45, 6, true, false), 0.0);
    EXPECT_EQ(normalAt(map, 45, 6, true), noTile);
}

TEST(HeightMap, InterpolatesFromTheCornersCell) {
    const TempDir dir;
    dir.write("a.DT1", dtedFile(dtedLabelAt(45, 6), [](int i, int j) { return 100 * i + 10 * j; }));
    HeightMap map;
    quietScan(map, dir.path());
    EXPECT_EQ(map.getAltitude(45.0, 6.0, true, false), 0.0);
    EXPECT_DOUBLE_EQ(map.getAltitude(45.125, 6.125, true, false), 55.0);
    // A hair south of the tile still is in its cell; the first row is continued.
    EXPECT_NEAR(map.getAltitude(44.9999995, 6.0, true, false), -0.0002, 1e-9);
    // Beyond the posts, which end at 45.5 and 6.5.
    EXPECT_EQ(map.getAltitude(45.9, 6.1, true, false), 0.0);
    EXPECT_EQ(normalAt(map, 45.9, 6.1, true), notLoaded);
}

TEST(HeightMap, ACellIsLookedUpOnlyWhenEntered) {
    const TempDir dir;
    writeFlatDted(dir, 45, 6, 700);
    writeFlatDted(dir, 45, 7, 800);
    HeightMap map;
    quietScan(map, dir.path());
    EXPECT_EQ(map.getAltitude(45.1, 6.1, false, false), 0.0);
    EXPECT_EQ(normalAt(map, 45.1, 6.1, false), notLoaded);
    // The key has not changed: load comes too late.
    EXPECT_EQ(map.getAltitude(45.1, 6.1, true, false), 0.0);
    EXPECT_EQ(map.getAltitude(45.1, 7.1, true, false), 800.0);
    EXPECT_EQ(map.getAltitude(45.1, 6.1, true, false), 700.0);
    EXPECT_EQ(map.getAltitude(45.1, 7.1, false, false), 800.0);
}

TEST(HeightMap, OffTheGlobeThereIsNoTile) {
    const TempDir dir;
    writeFlatDted(dir, -90, -180, 700);  // the cell that wrong coordinates would fall into
    writeFlatDted(dir, 0, 0, 700);
    dir.write("S92W182.SRTMGL1.hgt.zip", flatSrtmArchive(700));  // its key is that of no tile
    HeightMap map;
    quietScan(map, dir.path());
    EXPECT_EQ(map.getAltitude(-89.9, -179.9, true, false), 700.0);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    for (const double bad : {nan, inf, -inf, 1e300, -1e300, -180.1, 4294967296.5}) {
        for (const bool lowRes : {false, true}) {
            EXPECT_EQ(map.getAltitude(bad, -179.9, true, lowRes), 0.0) << bad;
            EXPECT_EQ(map.getAltitude(0.1, bad, true, lowRes), 0.0) << bad;
            EXPECT_EQ(normalAt(map, bad, bad, true, lowRes), noTile) << bad;
        }
    }
    EXPECT_EQ(map.getAltitude(0.1, 0.1, true, false), 700.0);
}

TEST(HeightMap, HighResolutionGoesBeforeLow) {
    const TempDir dir;
    // The grid goes by size alone, so a 3 arc second grid serves as a small low-resolution tile.
    dir.write("W020N90.SRTMGL30.dem.zip", flatSrtmArchive(30));
    writeFlatDted(dir, 40, -20, 700);
    HeightMap map;
    quietScan(map, dir.path());
    EXPECT_EQ(map.getAltitude(40.1, -19.9, true, true), 30.0);
    EXPECT_EQ(normalAt(map, 40.1, -19.9, true, true), flat);
    EXPECT_EQ(map.getAltitude(40.1, -19.9, false, false), 0.0);  // there, though not loaded
    leaveCell(map);
    EXPECT_EQ(map.getAltitude(40.1, -19.9, true, false), 700.0);
    EXPECT_EQ(map.getAltitude(40.1, -19.5, true, false), 700.0);
    // The neighbouring cell has low resolution only, and this point lies outside its posts.
    EXPECT_EQ(normalAt(map, 41.5, -19.9, true), notLoaded);
}

TEST(HeightMap, LowResolutionLayoutPutsTheFirstRowNorth) {
    const TempDir dir;
    dir.write("W020N90.SRTMGL30.dem.zip",
              archiveOf(srtmSamples(
                  4800, 6000, [](int row, int column) { return row == 0 ? 1000 + column : 0; })));
    HeightMap map;
    quietScan(map, dir.path());
    const double north = 40.0 + 5999.0 / 120;
    EXPECT_NEAR(map.getAltitude(north, -20.0 + 2400.0 / 120, true, true), 3400.0, 1e-6);
    EXPECT_NEAR(map.getAltitude(north - 0.5 / 120, -20.0, true, true), 500.0, 1e-6);
}

TEST(HeightMap, The301stTileUnloadsTheFirst) {
    const TempDir dir;
    const auto latOf = [](int n) { return n / 30; };
    const auto lonOf = [](int n) { return n % 30; };
    for (int n = 0; n < 301; ++n) {
        writeFlatDted(dir, latOf(n), lonOf(n), 100 + n);
    }
    HeightMap map;
    quietScan(map, dir.path());
    const auto load = [&](int n) {
        leaveCell(map);
        return map.getAltitude(latOf(n) + 0.1, lonOf(n) + 0.1, true, false);
    };
    const auto loadedCount = [&] {
        int count = 0;
        for (int n = 0; n < 301; ++n) {
            count += isLoaded(map, latOf(n) + 0.1, lonOf(n) + 0.1) ? 1 : 0;
        }
        return count;
    };
    for (int n = 0; n < HeightMap::MAX_TILES_LOADED; ++n) {
        ASSERT_EQ(load(n), 100 + n);
    }
    load(0);  // loaded already: it stays the oldest
    EXPECT_EQ(loadedCount(), 300);
    EXPECT_EQ(load(300), 400);
    EXPECT_EQ(loadedCount(), 300);
    EXPECT_FALSE(isLoaded(map, 0.1, 0.1));
    EXPECT_EQ(load(0), 100);
    EXPECT_FALSE(isLoaded(map, 0.1, 1.1));
}

TEST(HeightMap, The16thLowResolutionTileUnloadsTheFirst) {
    const TempDir dir;
    const std::string archive = flatSrtmArchive(30);
    const auto latOf = [](int n) { return n < 9 ? 40 : -10; };
    const auto lonOf = [](int n) { return -180 + n % 9 * 40; };
    for (int n = 0; n < 16; ++n) {
        char name[32];
        std::snprintf(name, sizeof name, "%c%03dN%02d.SRTMGL30.zip", lonOf(n) < 0 ? 'W' : 'E',
                      std::abs(lonOf(n)), latOf(n) + 50);
        dir.write(name, archive);
    }
    HeightMap map;
    quietScan(map, dir.path());
    const auto loaded = [&](int n) { return isLoaded(map, latOf(n) + 0.1, lonOf(n) + 0.1, true); };
    for (int n = 0; n < 15; ++n) {
        ASSERT_EQ(map.getAltitude(latOf(n) + 0.1, lonOf(n) + 0.1, true, true), 30.0) << n;
    }
    EXPECT_TRUE(loaded(0));
    ASSERT_EQ(map.getAltitude(latOf(15) + 0.1, lonOf(15) + 0.1, true, true), 30.0);
    EXPECT_FALSE(loaded(0));
    EXPECT_TRUE(loaded(1));
    EXPECT_TRUE(loaded(15));
}

TEST(HeightMap, ATileLoadedAnewMovesToTheFront) {
    const TempDir dir;
    const std::string mended = dir.path("S10E000.SRTMGL3.hgt.zip");
    dir.write("S10E000.SRTMGL3.hgt.zip", "");  // fails to load, and is listed all the same
    for (int n = 0; n < 300; ++n) {
        writeFlatDted(dir, n / 30, n % 30, 1);
    }
    HeightMap map;
    quietScan(map, dir.path());
    EXPECT_EQ(map.getAltitude(-9.9, 0.1, true, false), 0.0);
    for (int n = 0; n < 299; ++n) {
        map.getAltitude(n / 30 + 0.1, n % 30 + 0.1, true, false);
    }
    std::filesystem::remove(mended);
    dir.write("S10E000.SRTMGL3.hgt.zip", flatSrtmArchive(9));
    EXPECT_EQ(map.getAltitude(-9.9, 0.1, true, false), 9.0);
    EXPECT_TRUE(isLoaded(map, 0.1, 0.1));  // no second entry pushed the oldest out
    map.getAltitude(299 / 30 + 0.1, 299 % 30 + 0.1, true, false);
    EXPECT_FALSE(isLoaded(map, 0.1, 0.1));
    EXPECT_TRUE(isLoaded(map, -9.9, 0.1));
}

}  // namespace
