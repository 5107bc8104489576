// Archives that orlek-tiles writes: read by the library and by others, whole or not there.
#include "support/Capture.h"
#include "terrain/ScannedMap.h"
#include "terrain/TileFiles.h"
#include "tools/ToolRun.h"

namespace {

using namespace OrlekTest;

std::string rawTile() {
    return srtmSamples(1201, 1201, [](int row, int column) { return row + column; });
}

TEST(TilesPack, MakesArchivesThatTheLibraryAndOthersRead) {
    const TempDir dir;
    const std::string raw = dir.write("N45E006.SRTMGL3.hgt", rawTile());
    const ToolRun packed = runTiles("pack --out=" + dir.path("a/b") + " " + raw);
    EXPECT_EQ(packed.code, 0) << packed.err;
    const std::string archive = dir.path("a/b/N45E006.SRTMGL3.hgt.zip");
    EXPECT_EQ(packed.out, archive + "\n");
    Orlek::Geodetic::HeightMap map;
    captureStdout([&] { scan(map, dir.path()); });
    EXPECT_EQ(map.getAltitude(45.0, 6.0, true, false), 1200.0);
    EXPECT_EQ(runTiles("check " + dir.path("a")).code, 0);
    EXPECT_EQ(shell("python3 -m zipfile -t " + archive).code, 0);
    EXPECT_EQ(shell("cd " + dir.path() + " && bsdtar -xOf " + archive + " | cmp - " + raw).code, 0);
}

TEST(TilesPack, ReplacesOnlyWhenTold) {
    const TempDir dir;
    const std::string raw = dir.write("N45E006.hgt", rawTile());
    const std::string archive = dir.write("N45E006.hgt.zip", "mine");
    EXPECT_EQ(runTiles("pack " + raw).code, 1);
    EXPECT_EQ(wholeText(archive), "mine");
    EXPECT_EQ(runTiles("pack --force " + raw).code, 0);
    const std::string whole = wholeText(archive);
    EXPECT_GT(whole.size(), 1000U);
    const std::string other = dir.write("other/N45E006.hgt", rawTile());
    EXPECT_EQ(runTiles("pack --force --out " + dir.path() + " " + raw + " " + other).code, 1)
        << "two files would have one archive";
    // A disk that is full: what was there stays, and nothing is left beside it.
    dir.write("N45E006.hgt", srtmSamples(1201, 1201, [](int, int) { return std::rand(); }));
    EXPECT_EQ(shell("trap '' XFSZ; ulimit -f 8; $T pack --force " + raw).code, 1);
    EXPECT_EQ(wholeText(archive), whole);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 3);
}

TEST(TilesPack, RefusesWhatTheLibraryWouldNotRead) {
    const TempDir dir;
    const std::string whole = rawTile();
    const std::pair<std::string, const char*> rows[] = {
        {dir.write("tile.hgt", whole), "wrong name"},
        {dir.write("N95E006.hgt", whole), "no such cell"},
        {dir.write("W020N90.SRTMGL30.dem", whole), "wrong name"},
        {dir.write("N45E006.hgt", whole.substr(2)), "size not in the table"},
        {dir.write("N46E006.hgt", ""), "size not in the table"},
        {dir.path("N47E006.hgt"), "unreadable"},
        {dir.path(), "unreadable"},
    };
    std::filesystem::resize_file(dir.path("N46E006.hgt"), std::uintmax_t{1} << 40U);
    for (const auto& [path, reason] : rows) {
        const ToolRun run = runTiles("pack " + path);
        EXPECT_EQ(run.code, 1) << path;
        EXPECT_NE(run.err.find(": " + std::string(reason) + ": "), std::string::npos) << run.err;
        EXPECT_FALSE(std::filesystem::exists(path + ".zip"));
    }
}

}  // namespace
