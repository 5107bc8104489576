// The built-in stroke characters: their form, and that no two look alike. How sets are read.
#include <gtest/gtest.h>

#include <algorithm>
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
    std::vector<Row> all(set.count);
    const CHARDEF_STRUCT* r = set.records;
    for (Row& row : all) {
        do {
            row.push_back({r->x, r->y, static_cast<float>(r->type)});
        } while (r++->type != 3);
    }
    EXPECT_EQ(r - set.records, 843);
    EXPECT_TRUE(r->x == 0.0F && r->y == 0.0F && r->type == 0) << "the end of the table";
    return all;
}

const std::set<std::size_t> boxes{9, 10, 13, 24, 127};

TEST(StrokeSet, HasTheMeasuresAndRowsThatOthersRelyOn) {
    const CHARSET_STRUCT& set = Detail::builtInStrokeSet();
    EXPECT_EQ(set.unused[0], 12884);
    EXPECT_EQ(set.unused[1], 0);
    EXPECT_EQ(set.count, 128U);
    EXPECT_EQ(std::vector<float>(set.metrics, set.metrics + 6),
              (std::vector<float>{20.538441F, 8.924760F, 0.0F, 4.564100F, 4.195400F, 3.0F}));
    EXPECT_EQ(set.advance, 13.120160F);
    const auto all = characters();
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
    for (const std::size_t code : boxes) {
        EXPECT_EQ(all[code], (Row{{0, 0, 1}, {8.9F, 0, 1}, {8.9F, 20, 1}, {0, 20, 1}, {0, 0, 3}}));
    }
}

TEST(StrokeSet, KeepsItsForm) {
    std::size_t strokes = 0;
    const auto all = characters();
    for (std::size_t code = 0; code < all.size(); ++code) {
        EXPECT_LE(all[code].size(), 16U) << code;
        float type = 2.0F;
        for (const auto& r : all[code]) {
            EXPECT_TRUE(type != 2.0F || r[2] == 1.0F) << code << ": a stroke of one point";
            type = r[2];
            EXPECT_TRUE(type == 1.0F || type == 2.0F || type == 3.0F) << code;
            strokes += type == 1.0F ? 0 : 1;
            const bool inside =
                r[0] >= 0.0F && r[0] <= 11.155950F && r[1] >= -4.564097F && r[1] <= 15.974339F;
            EXPECT_TRUE(inside || boxes.contains(code)) << code;
        }
    }
    EXPECT_EQ(strokes, 204U);
}

TEST(StrokeSet, KeepsTheLinesOfTheAlphabet) {
    const auto all = characters();
    const float capital = 13.692291F;
    const float small = 9.128194F;
    const float hanging = -4.564097F;
    const struct {
        std::string codes;
        std::size_t axis;
        float low, high;
    } rows[] = {
        {"ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789bdfhiklt", 1, 0.0F, capital},
        {"acemnorsuvwxz", 1, 0.0F, small},
        {"gpqy", 1, hanging, small},
        {"j", 1, hanging, capital},
        {"ABCDEFGHKLMNOPQRSTUVWXYZ02456789", 0, 0.0F, 8.924760F},
    };
    for (const auto& row : rows) {
        for (const char code : row.codes) {
            const auto [low, high] =
                std::ranges::minmax(all[static_cast<std::size_t>(code)], {},
                                    [&](const std::vector<float>& r) { return r[row.axis]; });
            EXPECT_EQ(std::pair(low[row.axis], high[row.axis]), std::pair(row.low, row.high))
                << code;
        }
    }
}

/// The straight pieces of a character, whatever the order and direction in which it is drawn.
using Piece = std::set<std::pair<float, float>>;
std::set<Piece> pieces(const Row& row) {
    std::set<Piece> result;
    for (std::size_t i = 0; i + 1 < row.size(); ++i) {
        if (row[i][2] == 1.0F) {
            result.insert(Piece{{row[i][0], row[i][1]}, {row[i + 1][0], row[i + 1][1]}});
        }
    }
    return result;
}

TEST(StrokeSet, DrawsEachCharacterDifferently) {
    const auto all = characters();
    std::set<std::set<Piece>> seen;
    for (std::size_t code = 1; code < all.size(); ++code) {
        EXPECT_TRUE(boxes.contains(code) || seen.insert(pieces(all[code])).second) << code;
    }
    EXPECT_EQ(seen.size(), 122U);
    const auto zero = pieces(all['0']);
    const auto letter = pieces(all['O']);
    EXPECT_TRUE(std::ranges::includes(zero, letter)) << "a zero is an O with a slash";
    EXPECT_EQ(zero.size(), letter.size() + 1);
}

std::size_t strokesOf(const Detail::StrokeCharacters& characters, int code) {
    return characters.strokes(static_cast<char>(code)).size();
}

TEST(StrokeCharacters, ReadAsManyCharactersAsThereAre) {
    const CHARDEF_STRUCT records[] = {{9, 9, 0}, {0, 0, 1},  {1, 2, 2}, {7, 7, 4}, {3, 4, 1},
                                      {5, 6, 1}, {7, 8, -1}, {9, 0, 3}, {0, 0, 1}, {0, 1, 3}};
    const Detail::StrokeCharacters two({{0, 0}, 2, {}, 2.5F, records});
    EXPECT_EQ(two.points().size(), 7U);
    EXPECT_EQ(two.advance(), 2.5F);
    ASSERT_EQ(strokesOf(two, 0), 2U);
    EXPECT_EQ(two.strokes('\0')[1].start, 2U);
    EXPECT_EQ(two.strokes('\0')[1].count, 3U);
    EXPECT_EQ(strokesOf(two, 1), 1U);
    EXPECT_EQ(strokesOf(two, 2) + strokesOf(two, 127), 0U);
    for (const CHARSET_STRUCT& set :
         {CHARSET_STRUCT{{0, 0}, 0, {}, 1, records}, {{0, 0}, 2, {}, 1, nullptr}}) {
        EXPECT_TRUE(Detail::StrokeCharacters(set).points().empty());
    }
    // The last code and the most records end the reading.
    const std::vector<CHARDEF_STRUCT> points(129, {1, 1, 3});
    const Detail::StrokeCharacters all({{0, 0}, 0xFFFFFFFFU, {}, 1.0F, points.data()});
    EXPECT_EQ(all.points().size(), 128U);
    EXPECT_EQ(strokesOf(all, 127), 1U);
    const std::vector<CHARDEF_STRUCT> endless(Detail::StrokeCharacters::mostRecords, {1, 1, 1});
    const Detail::StrokeCharacters none({{0, 0}, 128, {}, 1.0F, endless.data()});
    EXPECT_EQ(none.points().size(), endless.size());
    EXPECT_EQ(strokesOf(none, 0), 0U);
}

TEST(StrokeBatch, PlacesPointsByTheFormula) {
    const CHARDEF_STRUCT records[] = {{1, 2, 1}, {3, 4, 3}};
    const Detail::StrokeCharacters characters({{0, 0}, 1, {}, 10.0F, records});
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
