// Tiles that are cut, lie or are no files at all: each leaves its cell without data, says what it
// must and keeps nothing open.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "support/Capture.h"
#include "support/TempDir.h"
#include "terrain/ScannedMap.h"
#include "terrain/TileFiles.h"

namespace {

using namespace OrlekTest;
using Orlek::Geodetic::HeightMap;

std::size_t openDescriptors() {
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(begin(all), end(all)));
}

std::string couldNotOpen(const std::string& path) {
    return "could not open data file <" + path + ">\n";
}

std::string goodDted() {
    return dtedFile(dtedLabelAt(45, 6), [](int, int) { return 700; });
}

class BadTiles : public testing::Test {
protected:
    BadTiles() : before(openDescriptors()) {}
    ~BadTiles() override { EXPECT_EQ(openDescriptors(), before); }

    /// What is printed beside the line of the listing.
    std::string scanned() {
        std::string lines = captureStdout([&] { scan(map, dir.path()); });
        const std::size_t start = lines.find("basePath");
        return lines.erase(start, lines.find('\n', start) + 1 - start);
    }
    Normal loaded(double lat = 45.1, double lon = 6.1) {
        leaveCell(map);
        return normalAt(map, lat, lon, true);
    }

    std::size_t before;
    TempDir dir;
    HeightMap map;
};

TEST_F(BadTiles, HeadersThatCannotBeReadAreNotRegistered) {
    DtedLabel lie = dtedLabelAt(45, 6);
    lie.numLat = "0000";
    for (const std::string& bytes :
         {std::string(), goodDted().substr(0, 79), goodDted().substr(0, 3427), dtedFile(lie, {})}) {
        const std::string path = dir.write("a.DT1", bytes);
        map = HeightMap();
        EXPECT_EQ(scanned(), couldNotOpen(path)) << bytes.size();
        EXPECT_EQ(loaded(), noTile);
    }
}

TEST_F(BadTiles, ShortFilesStayUnloadedAndAreNotTriedAgain) {
    const std::string good = goodDted();
    const std::string path = dir.path("a.DT1");
    for (const std::size_t size : {std::size_t{3428}, good.size() - 18, good.size() - 1}) {
        dir.write("a.DT1", good.substr(0, size));
        map = HeightMap();
        scanned();
        EXPECT_EQ(captureStdout([&] { EXPECT_EQ(loaded(), notLoaded); }), couldNotOpen(path));
        dir.write("a.DT1", good);
        EXPECT_EQ(captureStdout([&] { EXPECT_EQ(loaded(), notLoaded); }), "");
    }
}

TEST_F(BadTiles, AHeaderThatPromisesTooMuchIsNotBelieved) {
    std::string bytes = goodDted();
    bytes.replace(47, 8, "99999999");
    dir.write("a.DT1", bytes);
    scanned();
    captureStdout([&] { EXPECT_EQ(loaded(), notLoaded); });
}

TEST_F(BadTiles, AFileThatVanishesIsReportedOnce) {
    const std::string path = dir.write("a.DT1", goodDted());
    scanned();
    std::filesystem::remove(path);
    EXPECT_EQ(captureStdout([&] { EXPECT_EQ(loaded(), notLoaded); }), couldNotOpen(path));
    EXPECT_EQ(captureStdout([&] { EXPECT_EQ(loaded(), notLoaded); }), "");
}

TEST_F(BadTiles, TheHeaderIsReadAgainAtLoadTime) {
    dir.write("a.DT1", goodDted());
    scanned();
    DtedLabel denser = dtedLabelAt(45, 6);
    denser.numLon = "0004";
    dir.write("a.DT1", dtedFile(denser, [](int, int j) { return j * 100; }));
    EXPECT_DOUBLE_EQ(map.getAltitude(45.1, 6.75 - 1e-9, true, false), 300.0 - 4e-7);
}

TEST_F(BadTiles, PipesAndDirectoriesAreNotOpened) {
    ASSERT_EQ(mkfifo(dir.path("pipe.DT1").c_str(), 0600), 0);
    std::filesystem::create_directory(dir.path("folder.DT1"));
    std::filesystem::create_directory(dir.path("N45E006.SRTMGL3.hgt.zip"));
    EXPECT_EQ(scanned(), "");
    EXPECT_EQ(loaded(), noTile);

    const std::string path = dir.write("a.DT1", goodDted());
    map = HeightMap();
    scanned();
    std::filesystem::remove(path);
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(captureStdout([&] { EXPECT_EQ(loaded(), notLoaded); }), couldNotOpen(path));
}

TEST_F(BadTiles, ArchivesThatLieStayUnloadedInSilence) {
    const std::string samples = srtmSamples(1201, 1201, [](int, int) { return 12; });
    const std::string stream = storedDeflate(samples);
    const std::string good = archiveOf(samples);
    std::string notAnArchive = good;
    notAnArchive[0] = 'X';
    struct {
        const char* why;
        std::string bytes;
    } const cases[] = {
        {"empty", ""},
        {"no archive", notAnArchive},
        {"size of no tile", archiveOf(stream, samples.size() - 2)},
        {"stream shorter than the header says",
         archiveOf(storedDeflate(samples.substr(2)), samples.size())},
        {"stream longer than the header says",
         archiveOf(storedDeflate(samples + "xx"), samples.size())},
        {"stream without its end", archiveOf(stream.substr(0, stream.size() - 1), samples.size())},
        {"not deflated", archiveOf("\7garbage" + stream, samples.size())},
        {"cut", good.substr(0, good.size() / 2)},
        {"header cut", good.substr(0, 25)},
    };
    const std::string path = dir.path("N45E006.SRTMGL3.hgt.zip");
    dir.write("N45E006.SRTMGL3.hgt.zip", "");
    EXPECT_EQ(scanned(), "");
    for (const auto& c : cases) {
        dir.write("N45E006.SRTMGL3.hgt.zip", c.bytes);
        EXPECT_EQ(captureStdout([&] { EXPECT_EQ(loaded(), notLoaded) << c.why; }), "") << c.why;
    }
    std::filesystem::remove(path);
    EXPECT_EQ(captureStdout([&] { EXPECT_EQ(loaded(), notLoaded); }), "");
    // Tried again each time, and found good at last.
    dir.write("N45E006.SRTMGL3.hgt.zip", good);
    EXPECT_EQ(loaded(), flat);
    EXPECT_EQ(map.getAltitude(45.1, 6.1, false, false), 12.0);
}

TEST_F(BadTiles, ArchivesWithoutAPositionAreNotRegistered) {
    dir.write("fonts.zip", flatSrtmArchive(1));
    dir.write("a.zip", flatSrtmArchive(1));
    dir.write("N4.SRTMGL3.hgt.zip", flatSrtmArchive(1));
    EXPECT_EQ(scanned(), "");
    EXPECT_EQ(loaded(0.1, 0.1), noTile);
    EXPECT_EQ(normalAt(map, 0.1, 0.1, true, true), noTile);
}

}  // namespace
