// Keys, file names and DTED header labels.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "terrain/TileFiles.h"
#include "terrain/tiles/DtedHeader.h"
#include "terrain/tiles/TileKey.h"
#include "terrain/tiles/TileName.h"

namespace {

using namespace Orlek::Detail;
using OrlekTest::DtedLabel;

TEST(TileKeys, OfPointsAndOriginsAgree) {
    struct {
        double lat, lon;
        TileKey key;
    } const cases[] = {
        {45.0, 6.0, 0x008700BA},
        {44.9999995, 6.0, 0x008700BA},  // within the millionth
                                        // of a degree
        {44.999998, 6.0, 0x008600BA},
        {-0.5, 0.0, 89U << 16U | 180U},
        {-90.0, -180.0, 0},
        {90.0, 180.0, 180U << 16U | 360U},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(queryKey(c.lat, c.lon), c.key) << c.lat << " " << c.lon;
    }
    EXPECT_EQ(originKey(45.0, 6.0), 0x008700BAU);
    EXPECT_EQ(originKey(-1.0, -1.0), 89U << 16U | 179U);
    EXPECT_EQ(originKey(36.0 + 43.0 / 60 + 57.0 / 3600, -85.0), 126U << 16U | 95U);
}

TEST(TileKeys, OffTheGlobeIsNoTile) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    for (const double bad : {nan, inf, -inf, 1e300, 180.0000001}) {
        EXPECT_EQ(queryKey(bad, 0.0), noTileKey) << bad;
        EXPECT_EQ(queryKey(0.0, bad), noTileKey) << bad;
    }
    EXPECT_EQ(queryKey(-90.5, 0.0), noTileKey);
    EXPECT_FALSE(DegreeCell(noTileKey).holds(0.0, 0.0));
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
    EXPECT_EQ(lowResKey(queryKey(45.0, 10.0)), originKey(40.0, -20.0));
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
    struct {
        const char* path;
        double lat, lon;
        bool lowRes;
    } const cases[] = {
        {"a/N45E006.SRTMGL1.hgt.zip", 45, 6, false},
        {"a.SRTMGL30/n45w006.SRTMGL3.hgt.zip", 45, -6, false},  // the folder's name does not count
        {"s01E006.SRTMGL3.hgt.zip", -1, 6, false},
        {"W020N90.SRTMGL30.dem.zip", 40, -20, true},
        {"e140s10.SRTMGL30.zip", -60, 140, true},
        {"N43E007.hgt.zip", 43, 7, false},
        {"N43E007.zip", 43, 7, false},
        {"N43E007_v3.SRTMUS1.zip", 43, 7, false},
    };
    for (const auto& c : cases) {
        const auto name = parseTileName(c.path);
        ASSERT_TRUE(name) << c.path;
        EXPECT_EQ(name->latOrigin, c.lat) << c.path;
        EXPECT_EQ(name->lonOrigin, c.lon) << c.path;
        EXPECT_EQ(name->lowRes, c.lowRes) << c.path;
    }
}

TEST(TileNames, WithoutAWholeCornerAreNone) {
    for (const char* path :
         {"", "a.zip", "N45E06", "directory/N4.zip", "readme.SRTMGL1.zip", "N4xE006.SRTMGL1.zip",
          "N45E0-6.hgt.zip", "X45E006.hgt.zip", "W020N90.hgt.zip", "N45E006.SRTMGL30.zip",
          "N43E007/", "N43E007.hgt.zip/fonts.zip"}) {
        EXPECT_FALSE(parseTileName(path)) << path;
    }
}

TEST(DtedHeaders, FieldsFollowAtoi) {
    DtedLabel label;
    label.lat = "0364357N";
    label.lon = "0842448W";
    label.latInterval = "  30";
    label.lonInterval = "+45x";
    label.numLat = "1201";
    label.numLon = "403 ";
    const auto grid = parseDtedHeader(label.text());
    ASSERT_TRUE(grid);
    EXPECT_EQ(grid->latOrigin, 36 + 43 / 60.0 + 57 / 3600.0);
    EXPECT_EQ(grid->lonOrigin, -(84 + 24 / 60.0 + 48 / 3600.0));
    EXPECT_EQ(grid->latSpacing, 30 / 36000.0);
    EXPECT_EQ(grid->lonSpacing, 45 / 36000.0);
    EXPECT_EQ(grid->numLat, 1201U);
    EXPECT_EQ(grid->numLon, 403U);
}

TEST(DtedHeaders, OnlyUpperCaseHemispheresNegate) {
    DtedLabel label;
    label.lat = "0100000s";
    label.lon = "0100000w";
    EXPECT_EQ(parseDtedHeader(label.text())->latOrigin, 10.0);
    EXPECT_EQ(parseDtedHeader(label.text())->lonOrigin, 10.0);
    label.lat = "0100000S";
    EXPECT_EQ(parseDtedHeader(label.text())->latOrigin, -10.0);
}

TEST(DtedHeaders, LiesAreRefused) {
    const DtedLabel good;
    ASSERT_TRUE(parseDtedHeader(good.text()));
    EXPECT_FALSE(parseDtedHeader(good.text().substr(0, 79)));
    for (std::string DtedLabel::*field : {&DtedLabel::lonInterval, &DtedLabel::latInterval,
                                          &DtedLabel::numLon, &DtedLabel::numLat}) {
        for (const char* lie : {"0000", "-003", "    ", "abcd"}) {
            DtedLabel bad = good;
            bad.*field = lie;
            EXPECT_FALSE(parseDtedHeader(bad.text())) << lie;
        }
    }
    DtedLabel single = good;
    single.numLat = "0001";
    EXPECT_FALSE(parseDtedHeader(single.text()));
    single.numLat = "0002";
    EXPECT_TRUE(parseDtedHeader(single.text()));
}

}  // namespace
