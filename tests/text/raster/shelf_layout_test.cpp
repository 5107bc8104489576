#include "text/raster/ShelfLayout.h"

#include <gtest/gtest.h>

namespace Orlek::Detail {
namespace {

constexpr ShelfRecipe narrow{.shelfWidth = 256, .gap = 3, .padding = 0};
constexpr ShelfRecipe padded{.shelfWidth = 1024, .gap = 28, .padding = 14};

TEST(ShelfLayout, RoundsUpToPowersOfTwoUpTo4096) {
    struct {
        int n;
        int power;
    } const cases[] = {{-5, 1}, {0, 1},       {1, 1},       {2, 2},
                       {3, 4},  {2048, 2048}, {2049, 4096}, {100000, 4096}};
    for (const auto& expected : cases) {
        EXPECT_EQ(nextPower2(expected.n), expected.power) << expected.n;
    }
}

TEST(ShelfLayout, OneShelfIsAsWideAsItsGlyphsNeed) {
    ShelfLayout layout(narrow);
    layout.place(60, 9);
    layout.place(5, 17);
    EXPECT_EQ(layout.cell(1).x, 63);
    EXPECT_EQ(layout.atlasWidth(), 128);  // 71 columns
    EXPECT_EQ(layout.atlasHeight(), 32);  // 17 rows
}

TEST(ShelfLayout, AGlyphThatWouldReachTheEndBeginsTheNextShelf) {
    ShelfLayout layout(narrow);
    layout.place(200, 10);  // to 203
    layout.place(49, 12);   // 203 + 49 + 3 = 255 stays
    layout.place(252, 11);  // next shelf, ends at 255
    layout.place(253, 11);  // needs 256 even on a shelf of its own
    layout.place(1, 11);
    EXPECT_EQ(layout.cell(1).shelf, 0);
    EXPECT_EQ(layout.cell(2).shelf, 1);
    EXPECT_EQ(layout.cell(2).x, 0);
    EXPECT_EQ(layout.cell(3).shelf, 2);
    EXPECT_EQ(layout.cell(4).shelf, 3);
    EXPECT_EQ(layout.shelfStart(3), 36);
    EXPECT_EQ(layout.atlasWidth(), 256);
    EXPECT_EQ(layout.atlasHeight(), 64);  // 4 shelves of 12 rows
}

TEST(ShelfLayout, AFirstGlyphWiderThanTheShelfLeavesShelfZeroEmpty) {
    ShelfLayout layout(narrow);
    layout.place(300, 10);
    EXPECT_EQ(layout.cell(0).shelf, 1);
    EXPECT_EQ(layout.cell(0).x, 0);
    EXPECT_EQ(layout.atlasHeight(), 32);  // two shelves of 10 rows
}

TEST(ShelfLayout, PaddingSurroundsEveryGlyph) {
    ShelfLayout layout(padded);
    layout.place(900, 40);  // 14 + 900 + 28 = 942
    layout.place(53, 50);   // 942 + 53 + 28 = 1023 stays
    layout.place(1, 50);
    EXPECT_EQ(layout.cell(0).x, 14);
    EXPECT_EQ(layout.cell(1).x, 942);
    EXPECT_EQ(layout.cell(1).shelf, 0);
    EXPECT_EQ(layout.cell(2).x, 14);
    EXPECT_EQ(layout.shelfStart(1), 64);
    EXPECT_EQ(layout.atlasWidth(), 1024);
    EXPECT_EQ(layout.atlasHeight(), 256);  // 2 x (50 + 14) + 14 = 142 rows
}

}  // namespace
}  // namespace Orlek::Detail
