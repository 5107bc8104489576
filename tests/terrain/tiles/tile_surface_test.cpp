// Heights and normals between the posts, bit for bit against the rules.
#include "terrain/tiles/TileSurface.h"

#include <gtest/gtest.h>

#include <bit>
#include <random>

#include "terrain/TerrainRules.h"

namespace {

using Orlek::Detail::TileGrid;
using Orlek::Detail::TileSurface;
using OrlekTest::RuleTile;

RuleTile randomTile(int numLat, int numLon, int relief) {
    std::mt19937 random(5);
    std::uniform_int_distribution<int> elevation(-relief, relief);
    RuleTile tile{45.0, -7.0, 1.0 / 1200, 1.0 / 600, numLat, numLon, {}};
    for (int n = 0; n < numLat * numLon; ++n) {
        tile.samples.push_back(static_cast<std::int16_t>(elevation(random)));
    }
    return tile;
}

TileSurface surfaceOf(const RuleTile& tile) {
    return {
        TileGrid{tile.latOrigin, tile.lonOrigin, tile.latSpacing, tile.lonSpacing,
                 static_cast<std::uint32_t>(tile.numLat), static_cast<std::uint32_t>(tile.numLon)},
        tile.samples.data()};
}

void expectSame(const RuleTile& tile, double u, double v) {
    const TileSurface surface = surfaceOf(tile);
    const double lat = tile.latOrigin + u * tile.latSpacing;
    const double lon = tile.lonOrigin + v * tile.lonSpacing;
    double value = -12345.0;
    const bool inside = surface.altitude(lat, lon, value);
    const auto expected = tile.altitude(lat, lon);
    ASSERT_EQ(inside, expected.has_value()) << u << " " << v;
    ASSERT_EQ(std::bit_cast<std::uint64_t>(value),
              std::bit_cast<std::uint64_t>(expected.value_or(-12345.0)))
        << u << " " << v;
    std::array<unsigned char, 3> normal{1, 2, 3};
    const bool accepted = surface.normal(lat, lon, normal[0], normal[1], normal[2]);
    ASSERT_EQ(normal, tile.normal(lat, lon)) << u << " " << v;
    ASSERT_EQ(accepted, normal != (std::array<unsigned char, 3>{0, 0, 0}));
}

TEST(TileSurface, EqualsTheRulesToTheLastBit) {
    std::mt19937 random(3);
    // From gentle to steep, and from the smallest grid (all edge) to one with an inside.
    for (const auto& [numLat, numLon, relief] :
         {std::tuple{2, 2, 9000}, {3, 5, 300}, {4, 4, 1}, {40, 23, 30}, {40, 23, 32000}}) {
        const RuleTile tile = randomTile(numLat, numLon, relief);
        std::uniform_real_distribution<double> u(-1.5, numLat + 0.5);
        std::uniform_real_distribution<double> v(-1.5, numLon + 0.5);
        for (int n = 0; n < 20000; ++n) {
            ASSERT_NO_FATAL_FAILURE(expectSame(tile, u(random), v(random)));
        }
        for (int i = -1; i <= numLat; ++i) {
            for (int j = -1; j <= numLon; ++j) {
                ASSERT_NO_FATAL_FAILURE(expectSame(tile, i, j));
            }
        }
    }
}

TEST(TileSurface, ContinuesOutsideAlongTheNearestSamples) {
    const RuleTile tile{0, 0, 1, 1, 3, 3, {1, 2, 4, 8, 16, 32, 64, 128, 256}};
    const TileSurface surface = surfaceOf(tile);
    struct {
        int i, j;
        double value;
    } const cases[] = {
        {1, 1, 16},    {1, -1, -12}, {1, 3, 240},  {-1, 1, 0},  {3, 1, 48},
        {-1, -1, -14}, {3, 3, 496},  {-1, 3, 112}, {3, -1, -8},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(surface.sampleOrExtrapolate(c.i, c.j), c.value) << c.i << " " << c.j;
    }
}

TEST(TileSurface, FlatGroundFacesUp) {
    const RuleTile tile{45.0, 6.0, 0.25, 0.25, 3, 3, std::vector<std::int16_t>(9, 1234)};
    const TileSurface surface = surfaceOf(tile);
    unsigned char x = 0;
    unsigned char y = 0;
    unsigned char z = 0;
    EXPECT_TRUE(surface.normal(45.3, 6.1, x, y, z));
    EXPECT_EQ((std::array{x, y, z}), (std::array<unsigned char, 3>{127, 127, 255}));
    // The last line is refused, the last row is not.
    EXPECT_TRUE(surface.normal(45.5, 6.1, x, y, z));
    EXPECT_FALSE(surface.normal(45.3, 6.5, x, y, z));
}

TEST(TileSurface, SlopesFaceAway) {
    // Rising to the east by 45 degrees, measured with the spacing along latitude.
    const double step = 0.25 * 60 * 1852;
    RuleTile tile{0.0, 6.0, 0.25, 0.25, 5, 5, {}};
    for (int j = 0; j < 5; ++j) {
        tile.samples.insert(tile.samples.end(), 5, static_cast<std::int16_t>(j * 1000));
    }
    unsigned char x = 0;
    unsigned char y = 0;
    unsigned char z = 0;
    ASSERT_TRUE(surfaceOf(tile).normal(0.5, 6.5, x, y, z));
    const double slope = 1000 / step;
    EXPECT_EQ(x, static_cast<int>((1 - slope / std::sqrt(slope * slope + 1)) * 127.5));
    EXPECT_EQ(y, 127);
}

}  // namespace
