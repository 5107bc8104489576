// The transform beside a plain reading of its rules, byte by byte.
#include "text/raster/DistanceField.h"

#include <gtest/gtest.h>

#include <functional>
#include <random>

#include "text/FreeTypeReference.h"
#include "text/raster/DistanceFieldLetter.h"
#include "text/raster/FieldAtlas.h"

namespace Orlek::Detail {
namespace {

using OrlekTest::DistanceFieldLetter;
using Bytes = std::vector<std::uint8_t>;

/// An image with rows longer than its width; what lies behind them belongs to others.
struct Image {
    int width;
    int height;
    int stride;
    Bytes bytes;

    Image(int columns, int rows, const std::function<int(int, int)>& value)
        : width(columns),
          height(rows),
          stride(columns + 5),
          bytes(static_cast<std::size_t>(stride * rows), 0xA5) {
        for (int y = 0; y < rows; ++y) {
            for (int x = 0; x < columns; ++x) {
                bytes[static_cast<std::size_t>(y * stride + x)] =
                    static_cast<std::uint8_t>(value(x, y));
            }
        }
    }

    Bytes field(float radius) const {
        const auto columns = static_cast<std::size_t>(width);
        const auto rows = static_cast<std::size_t>(height);
        Bytes out(columns * rows);
        std::vector<float> work(fieldWorkFloats * out.size(), -1.0F);
        buildDistanceField({bytes.data(), columns, rows, static_cast<std::size_t>(stride)}, radius,
                           out.data(), columns, work);
        return out;
    }
};

int mixed(int x, int y) {
    return (x * 7919 + y * 104729 + x * y * 31) % 256;
}

TEST(DistanceField, EqualsThePlainTransformOnMadeImages) {
    std::mt19937 random(4711);
    const auto chance = [&](unsigned of) { return random() % of == 0; };
    const struct {
        const char* what;
        std::function<int(int, int)> value;
    } rows[] = {
        {"empty", [](int, int) { return 0; }},
        {"full", [](int, int) { return 255; }},
        {"one pixel", [](int x, int y) { return x == 3 && y == 2 ? 255 : 0; }},
        {"one grey pixel", [](int x, int y) { return x == 3 && y == 2 ? 90 : 0; }},
        {"corners", [](int x, int y) { return x < 2 && y < 2 ? 255 : 0; }},
        {"frame", [](int x, int y) { return x == 0 || y == 0 ? 255 : 0; }},
        {"chess", [](int x, int y) { return (x + y) % 2 * 255; }},
        {"blocks", [](int x, int y) { return (x / 6 + y / 6) % 2 * 255; }},
        {"slope", [](int x, int y) { return std::min(255, x * 3 + y); }},
        {"steep", [](int x, int y) { return std::clamp(128 + (x - 2 * y) * 60, 0, 255); }},
        {"disc, which the limit of ten iterations ends",
         [](int x, int y) {
             return std::clamp(((x - 130) * (x - 130) + (y - 150) * (y - 150) - 3600) * 2, 0, 255);
         }},
        {"pattern", mixed},
        {"threshold", [](int x, int y) { return mixed(x, y) > 200 ? 255 : 0; }},
        {"noise", [&](int, int) { return static_cast<int>(random() % 256); }},
        {"dust", [&](int, int) { return chance(200) ? static_cast<int>(random() % 256) : 0; }},
        {"holes", [&](int, int) { return chance(150) ? static_cast<int>(random() % 256) : 255; }},
    };
    const std::pair<int, int> sizes[] = {{0, 0}, {1, 9}, {9, 1},  {2, 2},  {3, 3},   {5, 4},
                                         {6, 7}, {7, 6}, {66, 3}, {3, 66}, {97, 71}, {262, 301}};
    for (const auto& row : rows) {
        for (const auto& [width, height] : sizes) {
            const Image image(width, height, row.value);
            DistanceFieldLetter letter(image.bytes.data(), width, height, image.stride);
            for (const float radius : {8.0F, 100.0F}) {
                ASSERT_EQ(image.field(radius), letter.field(radius))
                    << row.what << ' ' << width << " x " << height;
            }
        }
    }
}

TEST(DistanceField, ReplacesTheAtlasOfAFontInPlace) {
    const std::string bytes = OrlekTest::wholeText(OrlekTest::sansFont);
    static FT_LibraryRec_* const library = openFreeType();
    FontFace face(library, bytes.data(), static_cast<int>(bytes.size()));
    GlyphAtlas plain;
    GlyphAtlas field;
    GlyphSet glyphs;
    ASSERT_TRUE(buildAtlas(face, 50, {1024, 28, 14}, plain, glyphs));
    ASSERT_TRUE(buildFieldAtlas(face, field, glyphs));
    DistanceFieldLetter letter(plain.pixels.data(), plain.width, plain.height, plain.width);
    EXPECT_EQ(plain.width, 1024);
    EXPECT_TRUE(field.pixels == letter.field(8.0F));
}

TEST(DistanceField, FallsFromTheEdgeToTheRadius) {
    const Image image(60, 9, [](int x, int) { return x < 30 ? 255 : x == 30 ? 128 : 0; });
    const Bytes field = image.field(8.0F);
    const std::size_t middle = 4 * 60;
    EXPECT_EQ(field[middle + 21], 255);  // 9 pixels inside
    EXPECT_EQ(field[middle + 30], 127);  // on the edge, within rounding
    EXPECT_EQ(field[middle + 34], 63);   // 4 pixels outside
    EXPECT_EQ(field[middle + 39], 0);
}

}  // namespace
}  // namespace Orlek::Detail
