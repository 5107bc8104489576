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

// The rules themselves, on ground whose answers are known.
TEST(TileSurface, GroundOfKnownShape) {
    const RuleTile bumps{0, 0, 1, 1, 3, 3, {1, 2, 4, 8, 16, 32, 64, 128, 256}};
    for (const auto& [i, j, value] : {std::tuple{1, -1, -12.0}, {3, 1, 48.0}, {-1, 3, 112.0}}) {
        EXPECT_EQ(surfaceOf(bumps).sampleOrExtrapolate(i, j), value) << i << " " << j;
    }
    // Rising by 1000 m a post to the east; the last line is refused, the last row is not.
    RuleTile slope{0.0, 6.0, 0.25, 0.25, 5, 5, {}};
    for (int j = 0; j < 5; ++j) {
        slope.samples.insert(slope.samples.end(), 5, static_cast<std::int16_t>(j * 1000));
    }
    std::array<unsigned char, 3> normal{};
    const auto normalOf = [&](double lat, double lon) {
        return surfaceOf(slope).normal(lat, lon, normal[0], normal[1], normal[2]);
    };
    EXPECT_FALSE(normalOf(0.3, 7.0));
    EXPECT_TRUE(normalOf(1.0, 6.1));
    ASSERT_TRUE(normalOf(0.5, 6.5));
    const double rise = 1000 / (0.25 * 60 * 1852);
    EXPECT_EQ(normal[0], static_cast<int>((1 - rise / std::sqrt(rise * rise + 1)) * 127.5));
    EXPECT_EQ(normal[1], 127);
}

}  // namespace
