// The built-in stroke characters: their form, and that no two look alike. How sets are read.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "text/layout/BuiltInStrokeSet.h"
#include "text/layout/StrokeBatch.h"
#include "text/layout/StrokeCharacters.h"

namespace {

using namespace Orlek;
using OpenGL::CHARDEF_STRUCT;
using OpenGL::CHARSET_STRUCT;

using Row = std::vector<std::vector<float>>;

/// The records of each character of the built-in set, read with nothing but the rule of type 3.
std::vector<Row> characters() {
    const CHARSET_STRUCT& set = Detail::builtInStrokeSet();
    std::vector<Row> all(1);
    for (const CHARDEF_STRUCT* r = set.records; all.size() <= set.count; ++r) {
        all.back().push_back({r->x, r->y, static_cast<float>(r->type)});
        if (r->type == 3) {
            all.emplace_back();
        }
    }
    all.pop_back();
    return all;
}

bool isBox(std::size_t code) {
    return code == 9 || code == 10 || code == 13 || code == 24 || code == 127;
}

TEST(StrokeSet, HasTheMeasuresAndRowsThatOthersRelyOn) {
    const CHARSET_STRUCT& set = Detail::builtInStrokeSet();
    EXPECT_EQ(set.unused[0], 12884);
    EXPECT_EQ(set.unused[1], 0);
    EXPECT_EQ(set.count, 128U);
    EXPECT_EQ(std::vector<float>(set.metrics, set.metrics + 6),
              (std::vector<float>{20.538441F, 8.924760F, 0.0F, 4.564100F, 4.195400F, 3.0F}));
    EXPECT_EQ(set.advance, 13.120160F);
    const auto all = characters();
    ASSERT_EQ(all.size(), 128U);
    EXPECT_EQ(all[32], (Row{{0, 0, 1}, {0, 0, 3}}));
    EXPECT_EQ(all[33], (Row{{4.462380F, -2.282048F, 1},
                            {4.462380F, 0, 2},
                            {4.462380F, 4.564097F, 1},
                            {4.462380F, 13.692291F, 3}}));
    EXPECT_EQ(all[65], (Row{{0, 0, 1},
                            {0, 11.410242F, 1},
                            {2.231190F, 13.692291F, 1},
                            {6.693570F, 13.692291F, 1},
                            {8.924760F, 11.410242F, 1},
                            {8.924760F, 0, 2},
                            {0, 6.846146F, 1},
                            {8.924760F, 6.846146F, 3}}));
    const Row box{{0, 0, 1}, {8.9F, 0, 1}, {8.9F, 20, 1}, {0, 20, 1}, {0, 0, 3}};
    for (const std::size_t code : {9U, 10U, 13U, 24U, 127U}) {
        EXPECT_EQ(all[code], box) << code;
    }
}

TEST(StrokeSet, KeepsItsForm) {
    std::size_t records = 0;
    std::size_t strokes = 0;
    int onGrid = 0;
    const auto all = characters();
    for (std::size_t code = 0; code < all.size(); ++code) {
        EXPECT_GE(all[code].size(), 2U) << code;
        EXPECT_LE(all[code].size(), 16U) << code;
        records += all[code].size();
        float type = 2.0F;
        for (const auto& r : all[code]) {
            EXPECT_TRUE(type != 2.0F || r[2] == 1.0F) << code << ": a stroke of one point";
            type = r[2];
            EXPECT_TRUE(type == 1.0F || type == 2.0F || type == 3.0F) << code;
            strokes += type == 1.0F ? 0 : 1;
            const bool inside =
                r[0] >= 0.0F && r[0] <= 11.155950F && r[1] >= -4.564097F && r[1] <= 15.974339F;
            EXPECT_TRUE(inside || isBox(code)) << code;
            const float column = r[0] / 2.231190F;
            const float row = r[1] / 2.282048F;
            onGrid +=
                std::abs(column - std::round(column)) + std::abs(row - std::round(row)) < 1e-4F;
        }
    }
    EXPECT_EQ(records, 843U);
    EXPECT_EQ(strokes, 204U);
    EXPECT_GT(onGrid, 500);
    const CHARDEF_STRUCT& last = Detail::builtInStrokeSet().records[843];
    EXPECT_TRUE(last.x == 0.0F && last.y == 0.0F && last.type == 0);
}

/// Lowest and highest coordinate of a character: 0 for x, 1 for y.
std::pair<float, float> extent(const Row& row, std::size_t axis) {
    const auto [low, high] = std::minmax_element(
        row.begin(), row.end(), [axis](auto& a, auto& b) { return a[axis] < b[axis]; });
    return {(*low)[axis], (*high)[axis]};
}

TEST(StrokeSet, KeepsTheLinesOfTheAlphabet) {
    const auto all = characters();
    const auto expectHeights = [&](const std::string& codes, float low, float high) {
        for (const char code : codes) {
            const auto heights = extent(all[static_cast<std::size_t>(code)], 1);
            EXPECT_EQ(heights, std::pair(low, high)) << code;
        }
    };
    const float capital = 13.692291F;
    const float small = 9.128194F;
    const float hanging = -4.564097F;
    expectHeights("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789bdfhiklt", 0.0F, capital);
    expectHeights("acemnorsuvwxz", 0.0F, small);
    expectHeights("gpqy", hanging, small);
    expectHeights("j", hanging, capital);
    for (const char code : std::string("ABCDEFGHKLMNOPQRSTUVWXYZ02456789")) {
        EXPECT_EQ(extent(all[static_cast<std::size_t>(code)], 0), std::pair(0.0F, 8.924760F))
            << code;
    }
}

/// The straight pieces of a character, whatever the order and direction in which it is drawn.
std::set<std::vector<float>> pieces(const Row& row) {
    std::set<std::vector<float>> result;
    for (std::size_t i = 0; i + 1 < row.size(); ++i) {
        if (row[i][2] == 1.0F) {
            const std::vector<float> a{row[i][0], row[i][1]};
            const std::vector<float> b{row[i + 1][0], row[i + 1][1]};
            const auto& first = std::min(a, b);
            const auto& second = std::max(a, b);
            result.insert({first[0], first[1], second[0], second[1]});
        }
    }
    return result;
}

TEST(StrokeSet, DrawsEachCharacterDifferently) {
    const auto all = characters();
    std::set<std::set<std::vector<float>>> seen;
    int compared = 0;
    for (std::size_t code = 1; code < all.size(); ++code) {
        if (!isBox(code)) {
            EXPECT_TRUE(seen.insert(pieces(all[code])).second) << code;
            ++compared;
        }
    }
    EXPECT_EQ(compared, 122);
    const auto zero = pieces(all['0']);
    const auto letter = pieces(all['O']);
    EXPECT_TRUE(std::ranges::includes(zero, letter)) << "a zero is an O with a slash";
    EXPECT_EQ(zero.size(), letter.size() + 1);
}

std::size_t strokesOf(const Detail::StrokeCharacters& characters, int code) {
    return characters.strokes(static_cast<char>(code)).size();
}

TEST(StrokeCharacters, ReadAsManyCharactersAsThereAre) {
    CHARDEF_STRUCT records[] = {{9, 9, 0}, {0, 0, 1},  {1, 2, 2}, {7, 7, 4}, {3, 4, 1},
                                {5, 6, 1}, {7, 8, -1}, {9, 0, 3}, {0, 0, 1}, {0, 1, 3}};
    CHARSET_STRUCT set{{0, 0}, 2, {}, 2.5F, records};
    const Detail::StrokeCharacters two(set);
    EXPECT_EQ(two.points().size(), 7U);
    EXPECT_EQ(two.advance(), 2.5F);
    ASSERT_EQ(strokesOf(two, 0), 2U);
    EXPECT_EQ(two.strokes('\0')[1].start, 2U);
    EXPECT_EQ(two.strokes('\0')[1].count, 3U);
    EXPECT_EQ(strokesOf(two, 1), 1U);
    EXPECT_EQ(strokesOf(two, 2) + strokesOf(two, 127), 0U);
    set.count = 0;
    EXPECT_TRUE(Detail::StrokeCharacters(set).points().empty());
    set = {{0, 0}, 2, {}, 1.0F, nullptr};
    EXPECT_TRUE(Detail::StrokeCharacters(set).points().empty());
}

TEST(StrokeCharacters, StopAtTheLastCodeAndAtTheMostRecords) {
    const std::vector<CHARDEF_STRUCT> points(129, {1, 1, 3});
    CHARSET_STRUCT set{{0, 0}, 0xFFFFFFFFU, {}, 1.0F, points.data()};
    const Detail::StrokeCharacters all(set);
    EXPECT_EQ(all.points().size(), 128U);
    EXPECT_EQ(strokesOf(all, 127), 1U);
    const std::vector<CHARDEF_STRUCT> endless(Detail::StrokeCharacters::mostRecords, {1, 1, 1});
    set.records = endless.data();
    const Detail::StrokeCharacters none(set);
    EXPECT_EQ(none.points().size(), endless.size());
    EXPECT_EQ(strokesOf(none, 0), 0U);
}

TEST(StrokeBatch, PlacesPointsByTheFormula) {
    CHARDEF_STRUCT records[] = {{1, 2, 1}, {3, 4, 3}};
    CHARSET_STRUCT set{{0, 0}, 1, {}, 10.0F, records};
    const Detail::StrokeCharacters characters(set);
    const std::string text("\0\xff\x01\0", 4);
    EXPECT_EQ(Detail::strokeScale(15.970000267028809), 1.0);
    const auto offset = Detail::strokeOffset(8, characters, text);
    EXPECT_EQ(offset.x, -40.0F);
    EXPECT_EQ(offset.y, 0.0F);
    EXPECT_EQ(Detail::strokeOffset(4, characters, text).y, -7.985F);
    std::vector<Math::Vector3<float>> vertices(1);
    std::vector<std::uint32_t> indices{0};
    // Twice the size, then a quarter turn and a shift: x' = 5 - y, y' = 6 + x.
    Detail::appendStrokes(vertices, indices, characters, text,
                          {2.0, offset, {{0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1}}}, 99);
    EXPECT_EQ(indices, (std::vector<std::uint32_t>{0, 1, 2, 99, 3, 4, 99}));
    ASSERT_EQ(vertices.size(), 5U);
    EXPECT_EQ(vertices[1].x, 1.0F);
    EXPECT_EQ(vertices[1].y, -72.0F);
    EXPECT_EQ(vertices[1].z, 7.0F);
    EXPECT_EQ(vertices[4].x, -3.0F);
    EXPECT_EQ(vertices[4].y, -28.0F);  // the second pen stands two advances further
}

}  // namespace
