#include "text/raster/ShelfLayout.h"

#include <gtest/gtest.h>

#include <utility>

namespace Orlek::Detail {
namespace {

constexpr ShelfRecipe narrow{.shelfWidth = 256, .gap = 3, .padding = 0};
constexpr ShelfRecipe padded{.shelfWidth = 1024, .gap = 28, .padding = 14};

TEST(ShelfLayout, RoundsUpToPowersOfTwoUpTo4096) {
    const std::pair<int, int> rows[] = {{-5, 1},      {0, 1},       {1, 1},        {3, 4},
                                        {2048, 2048}, {2049, 4096}, {100000, 4096}};
    for (const auto& [n, power] : rows) {
        EXPECT_EQ(nextPower2(n), power) << n;
    }
}

TEST(ShelfLayout, AGlyphThatWouldReachTheEndBeginsTheNextShelf) {
    using Pairs = std::vector<std::pair<int, int>>;
    const struct {
        const char* what;
        const ShelfRecipe& recipe;
        Pairs sizes, places;  // column and shelf
        std::pair<int, int> atlas;
    } rows[] = {
        // 71 columns of 17 rows
        {"one shelf", narrow, {{60, 9}, {5, 17}}, {{0, 0}, {63, 0}}, {128, 32}},
        // 203 + 49 + 3 = 255 stays; 253 needs 256 even on a shelf of its own; 4 shelves of 12 rows
        {"four shelves",
         narrow,
         {{200, 10}, {49, 12}, {252, 11}, {253, 11}, {1, 11}},
         {{0, 0}, {203, 0}, {0, 1}, {0, 2}, {0, 3}},
         {256, 64}},
        {"just too wide", narrow, {{200, 10}, {50, 10}}, {{0, 0}, {0, 1}}, {256, 32}},
        // a first glyph wider than the shelf leaves shelf 0 empty: two of 10 rows
        {"too wide", narrow, {{300, 10}}, {{0, 1}}, {256, 32}},
        // 942 + 53 + 28 = 1023 stays; 2 x (50 + 14) + 14 = 142 rows
        {"padded",
         padded,
         {{900, 40}, {53, 50}, {1, 50}},
         {{14, 0}, {942, 0}, {14, 1}},
         {1024, 256}},
    };
    for (const auto& row : rows) {
        ShelfLayout layout(row.recipe);
        for (const auto& [width, height] : row.sizes) {
            layout.place(width, height);
        }
        for (std::size_t i = 0; i < row.places.size(); ++i) {
            const ShelfLayout::Cell cell = layout.cell(i);
            EXPECT_EQ(std::pair(cell.x, cell.shelf), row.places[i]) << row.what << ' ' << i;
        }
        EXPECT_EQ(std::pair(layout.atlasWidth(), layout.atlasHeight()), row.atlas) << row.what;
    }
}

}  // namespace
}  // namespace Orlek::Detail
