// Which tiles stay loaded, and how often their files are read.
#include "terrain/tiles/TileSet.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "terrain/TileFiles.h"

namespace {

using namespace OrlekTest;
using Orlek::Detail::HeightTile;
using Orlek::Detail::TileKey;
using Orlek::Detail::TileMap;
using Orlek::Detail::TileSet;

/// How many bytes this process has read so far.
long bytesRead() {
    std::ifstream counts("/proc/self/io");
    std::string name;
    long bytes = -1;
    counts >> name >> bytes;
    return bytes;
}

TEST(HeightTile, ADamagedArchiveIsReadOnceUntilItChanges) {
    const TempDir dir;
    const std::string samples = srtmSamples(1201, 1201, [](int, int) { return 12; });
    const std::string whole = archiveOf(samples);
    const std::string damaged = archiveOf(storedDeflate(samples.substr(1)), samples.size());
    HeightTile tile;
    ASSERT_TRUE(tile.parseName(dir.write("N45E006.SRTMGL3.hgt.zip", damaged)));
    const auto readByLoading = [&] {
        const long before = bytesRead();
        tile.load();
        return bytesRead() - before;
    };
    const long first = readByLoading();
    EXPECT_EQ(tile.fault(), Orlek::Detail::ReadFault::damaged);
    EXPECT_LT(readByLoading(), first / 4);
    EXPECT_EQ(tile.fault(), Orlek::Detail::ReadFault::damaged);
    dir.write("N45E006.SRTMGL3.hgt.zip", whole);
    tile.load();
    EXPECT_TRUE(tile.loaded());
}

/// Registers a tile at 45 degrees north, in place of an earlier one.
std::shared_ptr<HeightTile> added(TileMap& tiles, const TempDir& dir, int lon) {
    auto tile = std::make_shared<HeightTile>();
    EXPECT_TRUE(tile->openHeader(writeFlatDted(dir, 45, lon, 100)));
    return tiles[tile->key()] = tile;
}

// A scan that finds a tile again makes a new object of it. Without the old one given up, each scan
// would cost as much memory as the tiles in use take.
TEST(TileSet, TilesThatWereReplacedAreGivenUpWhenTheCurrentOneChanges) {
    const TempDir dir;
    TileMap tiles;
    const auto add = [&](int lon) { return added(tiles, dir, lon); };
    const std::weak_ptr<HeightTile> replaced = add(6);
    const std::weak_ptr<HeightTile> current = add(7);
    const std::weak_ptr<HeightTile> kept = add(8);
    TileSet set(300);
    for (const auto& tile : {kept, replaced, current}) {
        EXPECT_TRUE(set.select(tiles, tile.lock()->key(), true));
    }
    const TileKey key = add(6)->key();
    add(7);
    set.keepOnly(tiles);
    EXPECT_TRUE(replaced.expired());
    ASSERT_FALSE(current.expired());
    EXPECT_TRUE(current.lock()->loaded());
    EXPECT_TRUE(set.select(tiles, key, true));
    EXPECT_TRUE(current.expired());
    EXPECT_TRUE(tiles.at(key)->loaded() && kept.lock()->loaded());
}

TEST(TileSet, TilesThatACopyLoadedCountOnceTheyAreUsed) {
    const TempDir dir;
    TileMap tiles;
    const auto first = added(tiles, dir, 6);
    const auto second = added(tiles, dir, 7);
    TileSet set(1);
    for (const auto& tile : {first, second}) {
        TileSet(set).select(tiles, tile->key(), true);
    }
    ASSERT_TRUE(first->loaded() && second->loaded());
    EXPECT_TRUE(set.select(tiles, first->key(), false));
    EXPECT_TRUE(set.select(tiles, second->key(), false));
    EXPECT_FALSE(first->loaded());
    EXPECT_TRUE(second->loaded());
}

TEST(TileSet, ATileWhoseFileWasExchangedStillCounts) {
    const TempDir dir;
    TileMap tiles;
    const auto exchanged = added(tiles, dir, 6);
    const auto other = added(tiles, dir, 7);
    std::filesystem::rename(writeFlatDted(dir, 51, 9, 100), dir.path("45/6.DT1"));
    TileSet set(1);
    EXPECT_TRUE(set.select(tiles, tiles.begin()->first, true));
    ASSERT_TRUE(exchanged->loaded());
    set.keepOnly(tiles);
    EXPECT_TRUE(set.select(tiles, other->key(), true));
    EXPECT_FALSE(exchanged->loaded());
}

}  // namespace
