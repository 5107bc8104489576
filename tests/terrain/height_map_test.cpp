// Choosing, loading and unloading tiles through the interface. Tiles that are cut, lie or are no
// files at all leave their cell without data, say what they must and keep nothing open.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <limits>

#include "support/Capture.h"
#include "support/OpenFiles.h"
#include "support/TempDir.h"
#include "terrain/ScannedMap.h"
#include "terrain/TileFiles.h"

namespace {

using namespace OrlekTest;
using Orlek::Geodetic::HeightMap;

class HeightMapTest : public testing::Test {
protected:
    ~HeightMapTest() override { EXPECT_EQ(openFiles(), before); }

    /// What the scan of a fresh map prints.
    std::string scanned(const std::string& path) {
        map = HeightMap();
        return captureStdout([&] { scan(map, path); });
    }
    /// That without the line of the listing.
    std::string scanned() {
        std::string lines = scanned(dir.path());
        const std::size_t start = lines.find("basePath");
        return lines.erase(start, lines.find('\n', start) + 1 - start);
    }
    double loaded(double lat, double lon, bool lowRes = false) {
        return map.getAltitude(lat, lon, true, lowRes);
    }

    const std::ptrdiff_t before = openFiles();
    const TempDir dir;
    HeightMap map;
};

TEST_F(HeightMapTest, IsNotReadyBeforeTheScan) {
    Normal n{};
    EXPECT_EQ(loaded(45, 6), 0.0);
    EXPECT_FALSE(map.getNormal(45, 6, true, false, n[0], n[1], n[2]));
    EXPECT_EQ(n, noTile);
}

TEST_F(HeightMapTest, PrintsWhatItFinds) {
    const std::string tile = writeFlatDted(dir, -1, 6, 5);
    for (const char* name : {"notes.txt", "none", "lower.dt1"}) {
        dir.write(name, "");
    }
    EXPECT_EQ(scanned(dir.path()), "basePath <" + dir.path() + "> size 4\nread DT File <" + tile +
                                       "> -1 6 0x5900ba size 0\n");
    EXPECT_EQ(normalAt(map, -0.9, 6.1, true), flat);
}

TEST_F(HeightMapTest, OfAMissingDirectoryIsReadyWithoutTiles) {
    const std::string missing = dir.path("missing");
    EXPECT_EQ(scanned(missing), "Property::readAllFiles: could not open path <" + missing +
                                    "\\*>\nbasePath <" + missing + "> size 0\n");
    EXPECT_EQ(loaded(45, 6), 0.0);
    EXPECT_EQ(normalAt(map, 45, 6, true), noTile);
}

TEST_F(HeightMapTest, InterpolatesFromTheCornersCell) {
    dir.write("a.DT1", dtedFile(dtedLabelAt(45, 6), [](int i, int j) { return 100 * i + 10 * j; }));
    scanned();
    EXPECT_DOUBLE_EQ(loaded(45.125, 6.125), 55.0);
    // A hair south of the tile still is in its cell; the first row is continued.
    EXPECT_NEAR(loaded(44.9999995, 6.0), -0.0002, 1e-9);
    // Beyond the posts, which end at 45.5 and 6.5.
    EXPECT_EQ(loaded(45.9, 6.1), 0.0);
    EXPECT_EQ(normalAt(map, 45.9, 6.1, true), notLoaded);
}

TEST_F(HeightMapTest, ACellIsLookedUpOnlyWhenEntered) {
    writeFlatDted(dir, 45, 6, 700);
    writeFlatDted(dir, 45, 7, 800);
    scanned();
    EXPECT_EQ(map.getAltitude(45.1, 6.1, false, false), 0.0);
    EXPECT_EQ(normalAt(map, 45.1, 6.1, false), notLoaded);
    EXPECT_EQ(loaded(45.1, 6.1), 0.0) << "the key has not changed: load comes too late";
    EXPECT_EQ(loaded(45.1, 7.1), 800.0);
    EXPECT_EQ(loaded(45.1, 6.1), 700.0);
    EXPECT_EQ(map.getAltitude(45.1, 7.1, false, false), 800.0);
}

TEST_F(HeightMapTest, OffTheGlobeThereIsNoTile) {
    writeFlatDted(dir, -90, -180, 700);  // the cell that wrong coordinates would fall into
    writeFlatDted(dir, 0, 0, 700);
    dir.write("S92W182.SRTMGL1.hgt.zip", flatSrtmArchive(700));  // its key is that of no tile
    scanned();
    EXPECT_EQ(loaded(-89.9, -179.9), 700.0);
    constexpr double inf = std::numeric_limits<double>::infinity();
    for (const double bad : {inf - inf, inf, -inf, 1e300, -1e300, -180.1, 4294967296.5}) {
        for (const bool lowRes : {false, true}) {
            EXPECT_EQ(loaded(bad, -179.9, lowRes), 0.0) << bad;
            EXPECT_EQ(loaded(0.1, bad, lowRes), 0.0) << bad;
            EXPECT_EQ(normalAt(map, bad, bad, true, lowRes), noTile) << bad;
        }
    }
    EXPECT_EQ(loaded(0.1, 0.1), 700.0);
}

TEST_F(HeightMapTest, HighResolutionGoesBeforeLow) {
    // The grid goes by size alone, so a 3 arc second grid serves as a small low-resolution tile.
    dir.write("W020N90.SRTMGL30.dem.zip", flatSrtmArchive(30));
    writeFlatDted(dir, 40, -20, 700);
    scanned();
    EXPECT_EQ(loaded(40.1, -19.9, true), 30.0);
    EXPECT_EQ(map.getAltitude(40.1, -19.9, false, false), 0.0) << "there, though not loaded";
    leaveCell(map);
    EXPECT_EQ(loaded(40.1, -19.9), 700.0);
    // The neighbouring cell has low resolution only, and this point lies outside its posts.
    EXPECT_EQ(normalAt(map, 41.5, -19.9, true), notLoaded);
}

TEST_F(HeightMapTest, LowResolutionLayoutPutsTheFirstRowNorth) {
    const auto elevation = [](int row, int column) { return row == 0 ? 1000 + column : 0; };
    dir.write("W020N90.SRTMGL30.dem.zip", archiveOf(srtmSamples(4800, 6000, elevation)));
    scanned();
    const double north = 40.0 + 5999.0 / 120;
    EXPECT_NEAR(loaded(north, -20.0 + 2400.0 / 120, true), 3400.0, 1e-6);
    EXPECT_NEAR(loaded(north - 0.5 / 120, -20.0, true), 500.0, 1e-6);
}

TEST_F(HeightMapTest, The301stTileUnloadsTheFirst) {
    const auto load = [&](int n) {
        leaveCell(map);
        return loaded(n / 30 + 0.1, n % 30 + 0.1);
    };
    const auto stillLoaded = [&](int n) { return isLoaded(map, n / 30 + 0.1, n % 30 + 0.1); };
    for (int n = 0; n < 301; ++n) {
        writeFlatDted(dir, n / 30, n % 30, 100 + n);
    }
    dir.write("S10E000.SRTMGL3.hgt.zip", "");
    scanned();
    EXPECT_EQ(loaded(-9.9, 0.1), 0.0);  // fails to load, and is listed all the same
    for (int n = 0; n < 299; ++n) {
        ASSERT_EQ(load(n), 100 + n);
    }
    load(0);  // loaded already: it stays the oldest of the good ones
    dir.write("S10E000.SRTMGL3.hgt.zip", flatSrtmArchive(9));
    leaveCell(map);
    EXPECT_EQ(loaded(-9.9, 0.1), 9.0);
    EXPECT_TRUE(stillLoaded(0)) << "loaded anew it moved to the front: there is no second entry";
    EXPECT_EQ(load(299), 399);
    EXPECT_FALSE(stillLoaded(0));
    EXPECT_TRUE(stillLoaded(1));
    EXPECT_EQ(load(0), 100);
    EXPECT_FALSE(stillLoaded(1));
    EXPECT_TRUE(stillLoaded(2));
    EXPECT_TRUE(isLoaded(map, -9.9, 0.1));
}

TEST_F(HeightMapTest, The16thLowResolutionTileUnloadsTheFirst) {
    const std::string archive = flatSrtmArchive(30);
    const auto lat = [](int n) { return n < 9 ? 40 : -10; };
    const auto lon = [](int n) { return -180 + n % 9 * 40; };
    for (int n = 0; n < 16; ++n) {
        char name[64];
        std::snprintf(name, sizeof name, "%c%03dN%02d.SRTMGL30.zip", lon(n) < 0 ? 'W' : 'E',
                      std::abs(lon(n)), lat(n) + 50);
        dir.write(name, archive);
    }
    scanned();
    const auto stillLoaded = [&](int n) { return isLoaded(map, lat(n) + 0.1, lon(n) + 0.1, true); };
    for (int n = 0; n < 16; ++n) {
        EXPECT_TRUE(n == 0 || stillLoaded(0)) << n;
        ASSERT_EQ(loaded(lat(n) + 0.1, lon(n) + 0.1, true), 30.0) << n;
    }
    EXPECT_FALSE(stillLoaded(0));
    EXPECT_TRUE(stillLoaded(1));
}

class BadTiles : public HeightMapTest {
protected:
    Normal normal(double lat = 45.1, double lon = 6.1) {
        leaveCell(map);
        return normalAt(map, lat, lon, true);
    }
    /// What an attempt to load prints that must fail.
    std::string failure() {
        return captureStdout([&] { EXPECT_EQ(normal(), notLoaded); });
    }

    const std::string path = dir.path("a.DT1");
    const std::string couldNotOpen = "could not open data file <" + path + ">\n";
    const std::string good = dtedFile(dtedLabelAt(45, 6), [](int, int) { return 700; });
};

TEST_F(BadTiles, HeadersThatCannotBeReadAreNotRegistered) {
    DtedLabel lie = dtedLabelAt(45, 6);
    lie.numLat = "0000";
    for (const std::string& bytes :
         {std::string(), good.substr(0, 79), good.substr(0, 3427), dtedFile(lie, {})}) {
        dir.write("a.DT1", bytes);
        EXPECT_EQ(scanned(), couldNotOpen) << bytes.size();
        EXPECT_EQ(normal(), noTile);
    }
}

TEST_F(BadTiles, FilesThatFailToLoadAreReportedOnce) {
    std::string huge = good;
    huge.replace(47, 8, "99999999");
    const std::function<void()> damages[] = {
        [&] { dir.write("a.DT1", good.substr(0, 3428)); },              // no record
        [&] { dir.write("a.DT1", good.substr(0, good.size() - 18)); },  // a record missing
        [&] { dir.write("a.DT1", good.substr(0, good.size() - 1)); },   // a byte missing
        [&] { dir.write("a.DT1", huge); },  // counts that promise gigabytes
        [&] { std::filesystem::remove(path); },
        [&] {
            std::filesystem::remove(path);
            ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
        },
    };
    for (const auto& damage : damages) {
        dir.write("a.DT1", good);
        scanned();
        damage();
        EXPECT_EQ(failure(), couldNotOpen);
        std::filesystem::remove(path);
        dir.write("a.DT1", good);
        EXPECT_EQ(failure(), "") << "not tried again";
    }
}

TEST_F(BadTiles, TheHeaderIsReadAgainAtLoadTime) {
    dir.write("a.DT1", good);
    scanned();
    DtedLabel denser = dtedLabelAt(45, 6);
    denser.numLon = "0004";
    dir.write("a.DT1", dtedFile(denser, [](int, int j) { return j * 100; }));
    EXPECT_DOUBLE_EQ(map.getAltitude(45.1, 6.75 - 1e-9, true, false), 300.0 - 4e-7);
}

TEST_F(BadTiles, WhatIsNoTileIsNotRegistered) {
    ASSERT_EQ(mkfifo(dir.path("pipe.DT1").c_str(), 0600), 0);
    std::filesystem::create_directory(dir.path("folder.DT1"));
    std::filesystem::create_directory(dir.path("N45E006.SRTMGL3.hgt.zip"));
    dir.write("fonts.zip", "");
    dir.write("N4.SRTMGL3.hgt.zip", "");
    EXPECT_EQ(scanned(), "");
    EXPECT_EQ(normal(), noTile);
    EXPECT_EQ(normal(0.1, 0.1), noTile);
    EXPECT_EQ(normalAt(map, 0.1, 0.1, true, true), noTile);
}

TEST_F(BadTiles, ArchivesThatLieStayUnloadedInSilence) {
    const char* const name = "N45E006.SRTMGL3.hgt.zip";
    const std::string samples = srtmSamples(1201, 1201, [](int, int) { return 12; });
    const std::string stream = storedDeflate(samples);
    const std::string whole = archiveOf(samples);
    const std::pair<const char*, std::string> cases[] = {
        {"empty", ""},
        {"no archive", "X" + whole.substr(1)},
        {"size of no tile", archiveOf(stream, samples.size() - 2)},
        {"shorter than the header says",
         archiveOf(storedDeflate(samples.substr(1)), samples.size())},
        {"longer than the header says", archiveOf(storedDeflate(samples + "x"), samples.size())},
        {"stream without its end", archiveOf(stream.substr(0, stream.size() - 1), samples.size())},
        {"not deflated", archiveOf("\7garbage" + stream, samples.size())},
        {"cut", whole.substr(0, whole.size() / 2)},
        {"header cut", whole.substr(0, 25)},
    };
    dir.write(name, "");
    EXPECT_EQ(scanned(), "");
    for (const auto& [why, bytes] : cases) {
        dir.write(name, bytes);
        EXPECT_EQ(failure(), "") << why;
    }
    std::filesystem::remove(dir.path(name));
    EXPECT_EQ(failure(), "");
    dir.write(name, whole);
    EXPECT_EQ(normal(), flat) << "tried again each time, and found good at last";
    EXPECT_EQ(map.getAltitude(45.1, 6.1, false, false), 12.0);
}

}  // namespace
