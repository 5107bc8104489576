// Tiles that are cut, lie or are no files at all: each leaves its cell without data, says what it
// must and keeps nothing open.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "support/Capture.h"
#include "support/OpenFiles.h"
#include "support/TempDir.h"
#include "terrain/ScannedMap.h"
#include "terrain/TileFiles.h"

namespace {

using namespace OrlekTest;
using Orlek::Geodetic::HeightMap;

class BadTiles : public testing::Test {
protected:
    ~BadTiles() override { EXPECT_EQ(openFiles(), before); }

    /// What the scan of a fresh map prints beside the line of the listing.
    std::string scanned() {
        map = HeightMap();
        std::string lines = captureStdout([&] { scan(map, dir.path()); });
        const std::size_t start = lines.find("basePath");
        return lines.erase(start, lines.find('\n', start) + 1 - start);
    }
    Normal loaded(double lat = 45.1, double lon = 6.1) {
        leaveCell(map);
        return normalAt(map, lat, lon, true);
    }
    /// What an attempt to load prints that must fail.
    std::string failure() {
        return captureStdout([&] { EXPECT_EQ(loaded(), notLoaded); });
    }

    const std::ptrdiff_t before = openFiles();
    const TempDir dir;
    HeightMap map;
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
        EXPECT_EQ(loaded(), noTile);
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
    EXPECT_EQ(loaded(), noTile);
    EXPECT_EQ(loaded(0.1, 0.1), noTile);
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
    EXPECT_EQ(loaded(), flat) << "tried again each time, and found good at last";
    EXPECT_EQ(map.getAltitude(45.1, 6.1, false, false), 12.0);
}

}  // namespace
