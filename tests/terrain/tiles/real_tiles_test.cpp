// Real tiles against GDAL: every post, and heights and normals worked out from its posts elsewhere.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "support/Capture.h"
#include "support/DataDir.h"
#include "terrain/GdalPosts.h"
#include "terrain/ScannedMap.h"
#include "terrain/tiles/HeightTile.h"

namespace {

using Orlek::Detail::HeightTile;
using Orlek::Geodetic::HeightMap;
using OrlekTest::RuleTile;

struct RealTile {
    const char* file;
    const char* entry;  ///< inside the archive; empty for a DTED file
    int lat, lon, count;
};

constexpr RealTile realTiles[] = {
    {"N42E001.SRTMGL3.hgt.zip", "N42E001.hgt", 42, 1, 1201},
    {"N43E007.SRTMGL3.hgt.zip", "N43E007.hgt", 43, 7, 1201},
    {"N48W125.SRTMGL1.hgt.zip", "N48W125.hgt", 48, -125, 3601},
    {"N42E001.DT1", "", 42, 1, 1201},
};

class RealTiles : public testing::TestWithParam<RealTile> {
protected:
    void SetUp() override {
        if (OrlekTest::terrainDir().empty() || !OrlekTest::haveGdal()) {
            GTEST_SKIP() << "no real tiles or no gdal_translate: comparing with GDAL is left out";
        }
        const RealTile& real = GetParam();
        path = OrlekTest::terrainDir() + "/" + real.file;
        dted = real.entry[0] == '\0';
        rules = OrlekTest::tileFromGdal(dted ? path : "/vsizip/" + path + "/" + real.entry,
                                        real.lat, real.lon, real.count, dted);
        ASSERT_FALSE(rules.samples.empty()) << "GDAL cannot read " << path;
    }

    std::string path;
    bool dted = false;
    RuleTile rules;
};

TEST_P(RealTiles, EveryPostIsGdals) {
    HeightTile tile;
    ASSERT_TRUE(dted ? tile.openHeader(path) : tile.parseName(path));
    tile.load();
    ASSERT_TRUE(tile.loaded());
    long wrong = 0;
    for (int j = 0; j < rules.numLon; ++j) {
        for (int i = 0; i < rules.numLat; ++i) {
            const double lat = rules.latOrigin + i * rules.latSpacing;
            const double lon = rules.lonOrigin + j * rules.lonSpacing;
            double value = -1e9;
            tile.altitude(lat, lon, value);
            // Rounding puts a point a hair beside its post; the millimetre covers the steepest
            // cliff.
            wrong += std::fabs(value - rules.s(i, j)) > 0.001 ? 1 : 0;
        }
    }
    EXPECT_EQ(wrong, 0);
}

TEST_P(RealTiles, BetweenThePostsTheRulesHoldToTheLastBit) {
    const OrlekTest::TempDir dir;
    std::filesystem::create_symlink(path, dir.path(GetParam().file));
    HeightMap map;
    OrlekTest::captureStdout([&] { OrlekTest::scan(map, dir.path()); });
    std::mt19937 random(1);
    std::uniform_real_distribution<double> within(0.0, 0.9999);
    long highest = 0;
    for (int n = 0; n < 200000; ++n) {
        const double lat = rules.latOrigin + within(random);
        const double lon = rules.lonOrigin + within(random);
        const double metres = map.getAltitude(lat, lon, true, false);
        ASSERT_EQ(metres, *rules.altitude(lat, lon)) << lat << " " << lon;
        ASSERT_EQ(OrlekTest::normalAt(map, lat, lon, true), rules.normal(lat, lon))
            << lat << " " << lon;
        highest = std::max(highest, std::lround(metres));
    }
    EXPECT_GT(highest, 1000);  // these are mountains
}

std::string nameOf(const testing::TestParamInfo<RealTile>& info) {
    std::string name = info.param.file;
    std::erase(name, '.');
    return name;
}

INSTANTIATE_TEST_SUITE_P(AllFour, RealTiles, testing::ValuesIn(realTiles), nameOf);

}  // namespace
