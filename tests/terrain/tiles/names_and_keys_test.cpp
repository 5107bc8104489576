// Keys and file names of tiles.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

#include "terrain/tiles/TileKey.h"
#include "terrain/tiles/TileName.h"

namespace {

using namespace Orlek::Detail;

TEST(TileKeys, OfPoints) {
    struct {
        double lat, lon;
        TileKey key;
    } const cases[] = {
        {45.0, 6.0, 0x008700BA},           {44.9999995, 6.0, 0x008700BA},  // within a millionth
        {44.999998, 6.0, 0x008600BA},      {-0.5, 0.0, 89U << 16U | 180U}, {-90.0, -180.0, 0},
        {90.0, 180.0, 180U << 16U | 360U}, {0.0, 180.0000001, noTileKey},  {-90.5, 0.0, noTileKey},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(queryKey(c.lat, c.lon), c.key) << c.lat << " " << c.lon;
    }
    EXPECT_EQ(originKey(-1.0, -1.0), 89U << 16U | 179U);
    EXPECT_EQ(originKey(36.0 + 43.0 / 60 + 57.0 / 3600, -85.0), 126U << 16U | 95U);
}

// The quick test of a cell must agree with the key, at its borders to the last bit.
TEST(TileKey, ACellHoldsThePointsOfItsKey) {
    for (const double side : {-89.0, -0.0, 1.0, 45.0, 89.0}) {
        const TileKey key = originKey(side, side);
        for (const double border : {side - keyTolerance, side + 1.0 - keyTolerance}) {
            double lat = border - 8 * std::abs(border) * std::numeric_limits<double>::epsilon();
            for (int step = 0; step < 40; ++step, lat = std::nextafter(lat, 100.0)) {
                for (const double lon : {side, side + 0.5, side + 1.0}) {
                    EXPECT_EQ(DegreeCell(key).holds(lat, lon), queryKey(lat, lon) == key) << lat;
                    EXPECT_EQ(DegreeCell(key).holds(lon, lat), queryKey(lon, lat) == key) << lat;
                }
            }
        }
    }
    EXPECT_FALSE(DegreeCell(queryKey(0.0, 180.0)).holds(0.0, 180.5));
    EXPECT_FALSE(DegreeCell(queryKey(-90.0, 0.0)).holds(-90.5, 0.0));
    EXPECT_EQ(lowResKey(noTileKey), noTileKey);
}

TEST(TileKeys, LowResolutionSnapsToItsCells) {
    EXPECT_EQ(lowResKey(queryKey(45.0, 10.0)), 0x008200A0U);
    struct {
        double lat, lon, latOrigin, lonOrigin;
    } const cases[] = {
        {-60.0, -180.0, -60, -180}, {-10.000002, -140.00001, -60, -180},
        {-10.0, -140.0, -10, -140}, {39.9999, 139.9, -10, 100},
        {40.0, 140.0, 40, 140},     {89.9, 179.9, 40, 140},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(lowResKey(queryKey(c.lat, c.lon)), originKey(c.latOrigin, c.lonOrigin))
            << c.lat << " " << c.lon;
    }
    // South of the cells the index wraps round in 16 bits and meets no tile.
    EXPECT_EQ(lowResKey(queryKey(-80.0, 0.0)) >> 16U, 65530U);
}

TEST(TileNames, GiveTheSouthWestCorner) {
    const std::tuple<const char*, double, double, bool> cases[] = {
        {"a/N45E006.SRTMGL1.hgt.zip", 45, 6, false},
        {"a.SRTMGL30/n45w006.SRTMGL3.hgt.zip", 45, -6, false},  // the folder does not count
        {"s01E006.SRTMGL3.hgt.zip", -1, 6, false},
        {"W020N90.SRTMGL30.dem.zip", 40, -20, true},
        {"e140s10.SRTMGL30.zip", -60, 140, true},
        {"N43E007.hgt.zip", 43, 7, false},
        {"N43E007_v3.SRTMUS1.zip", 43, 7, false},
    };
    for (const auto& c : cases) {
        const auto name = parseTileName(std::get<0>(c));
        ASSERT_TRUE(name) << std::get<0>(c);
        EXPECT_EQ(std::tuple(std::get<0>(c), name->latOrigin, name->lonOrigin, name->lowRes), c);
    }
    for (const char* path :
         {"", "N45E06", "directory/N4.zip", "readme.SRTMGL1.zip", "N4xE006.SRTMGL1.zip",
          "N45E0-6.hgt.zip", "X45E006.hgt.zip", "W020N90.hgt.zip", "N45E006.SRTMGL30.zip",
          "N43E007.hgt.zip/fonts.zip"}) {
        EXPECT_FALSE(parseTileName(path)) << path;
    }
}

}  // namespace
