// Real tiles against GDAL: heights and normals, worked out from its posts.
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "support/Capture.h"
#include "support/DataDir.h"
#include "terrain/GdalPosts.h"
#include "terrain/ScannedMap.h"

namespace {

using namespace OrlekTest;
using Orlek::Geodetic::HeightMap;

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

TEST(RealTiles, AreThoseThatTheRulesMakeOfGdalsPosts) {
    if (terrainDir().empty() || !haveGdal()) {
        GTEST_SKIP() << "no real tiles or no gdal_translate: comparing with GDAL is left out";
    }
    for (const RealTile& real : realTiles) {
        SCOPED_TRACE(real.file);
        const std::string path = terrainDir() + "/" + real.file;
        const bool dted = real.entry[0] == '\0';
        const RuleTile rules = tileFromGdal(dted ? path : "/vsizip/" + path + "/" + real.entry,
                                            real.lat, real.lon, real.count, dted);
        ASSERT_FALSE(rules.samples.empty()) << "GDAL cannot read " << path;
        const TempDir dir;
        std::filesystem::create_symlink(path, dir.path(real.file));
        HeightMap map;
        captureStdout([&] { scan(map, dir.path()); });
        std::mt19937 random(1);
        std::uniform_real_distribution<double> within(0.0, 0.9999);
        long highest = 0;
        for (int n = 0; n < 200000; ++n) {
            const double lat = rules.latOrigin + within(random);
            const double lon = rules.lonOrigin + within(random);
            const double metres = map.getAltitude(lat, lon, true, false);
            ASSERT_EQ(metres, *rules.altitude(lat, lon)) << lat << " " << lon;
            ASSERT_EQ(normalAt(map, lat, lon, true), rules.normal(lat, lon)) << lat << " " << lon;
            highest = std::max(highest, std::lround(metres));
        }
        EXPECT_GT(highest, 1000);  // these are mountains
    }
}

}  // namespace
