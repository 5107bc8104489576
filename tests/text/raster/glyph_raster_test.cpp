#include "text/raster/GlyphRaster.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "text/BitmapFont.h"
#include "text/FreeTypeReference.h"

namespace Orlek::Detail {
namespace {

constexpr ShelfRecipe recipe{.shelfWidth = 256, .gap = 3, .padding = 0};

struct BuiltAtlas {
    GlyphAtlas atlas;
    std::array<OpenGL::GlyphInfo, slotCount> glyphs;
    int maxHeight = 0;
};

BuiltAtlas build(const std::string& bytes, int pixelSize) {
    static FT_LibraryRec_* const library = openFreeType();
    BuiltAtlas built;
    FontFace face(library, bytes.data(), static_cast<int>(bytes.size()));
    EXPECT_EQ(face.error(), 0);
    EXPECT_TRUE(face.setPixelHeight(pixelSize));
    const ShelfLayout layout = layoutGlyphs(face, recipe);
    built.maxHeight = layout.maxHeight();
    EXPECT_TRUE(allocateAtlas(layout, built.atlas));
    rasterGlyphs(face, layout, built.atlas, built.glyphs);
    makeQuads(built.glyphs, 0);
    return built;
}

int pixelOf(float share, int size) {
    const float pixel = share * static_cast<float>(size);
    EXPECT_EQ(pixel, std::round(pixel));
    return static_cast<int>(pixel);
}

/// Compares the rectangle of a glyph with FreeType's own bitmap and wipes it from the atlas.
void expectGlyph(BuiltAtlas& built, std::size_t slot, const OrlekTest::ReferenceGlyph& expected) {
    const OpenGL::GlyphInfo& glyph = built.glyphs[slot];
    ASSERT_EQ(glyph.width, static_cast<float>(expected.width));
    ASSERT_EQ(glyph.height, static_cast<float>(expected.rows));
    EXPECT_EQ(glyph.top, static_cast<float>(expected.top));
    EXPECT_EQ(glyph.bearing.x, static_cast<float>(expected.left));
    EXPECT_EQ(glyph.advance, static_cast<float>(expected.advance));
    const int x = pixelOf(glyph.s0, built.atlas.width);
    const int y = pixelOf(glyph.t0, built.atlas.height);
    EXPECT_EQ(pixelOf(glyph.s1, built.atlas.width), x + expected.width);
    EXPECT_EQ(pixelOf(glyph.t1, built.atlas.height), y + expected.rows);
    for (int r = 0; r < expected.rows; ++r) {
        for (int c = 0; c < expected.width; ++c) {
            std::uint8_t& pixel = built.atlas.pixels.at(
                static_cast<std::size_t>((y + r) * built.atlas.width + x + c));
            ASSERT_EQ(pixel, expected.at(expected.rows - 1 - r, c)) << r << ' ' << c;
            pixel = 0;
        }
    }
}

TEST(GlyphRaster, HoldsEveryGlyphAsFreeTypeRendersItAndNothingElse) {
    const std::string bytes = OrlekTest::readFont(OrlekTest::sansFont);
    for (const int pixelSize : {1, 7, 12, 16, 33, 80}) {
        SCOPED_TRACE(pixelSize);
        const OrlekTest::ReferenceFont reference(OrlekTest::sansFont, pixelSize);
        BuiltAtlas built = build(bytes, pixelSize);
        EXPECT_EQ(built.maxHeight, reference.lineHeight());
        for (std::size_t slot = 0; slot < slotCount; ++slot) {
            SCOPED_TRACE(characterOf(slot));
            expectGlyph(built, slot, reference.glyph(characterOf(slot)));
        }
        EXPECT_EQ(built.atlas.pixels, std::vector<std::uint8_t>(built.atlas.pixels.size(), 0));
    }
}

TEST(GlyphRaster, CutsGlyphsOffAtTheAtlasInsteadOfOverwriting) {
    const BuiltAtlas built = build(OrlekTest::readFont(OrlekTest::sansFont), 256);
    EXPECT_EQ(built.atlas.width, 256);
    EXPECT_EQ(built.atlas.height, 4096);
    int missing = 0;
    for (const OpenGL::GlyphInfo& glyph : built.glyphs) {
        EXPECT_LE(glyph.s1, 1.0F);
        EXPECT_TRUE(glyph.height == 0.0F || glyph.t1 <= 1.0F);
        EXPECT_GT(glyph.advance, 0.0F);
        missing += glyph.height == 0.0F ? 1 : 0;
    }
    EXPECT_GT(missing, 100);
    EXPECT_GT(built.glyphs[slotOf('!')].height, 180.0F);
}

TEST(GlyphRaster, DrawsBitmapFonts) {
    const BuiltAtlas built = build(OrlekTest::bitmapFont(), 4);
    const OpenGL::GlyphInfo& letter = built.glyphs[slotOf('j')];
    EXPECT_EQ(built.maxHeight, 4);
    EXPECT_EQ(built.atlas.height, 16);  // the gaps alone fill three shelves
    EXPECT_EQ(letter.top, 3.0F);
    ASSERT_EQ(letter.vertices.size(), 4U);
    EXPECT_EQ(letter.vertices[0].y, -1.0F);
    EXPECT_EQ(letter.vertices[2].x, 2.0F);
    const int tail = pixelOf(letter.t0, built.atlas.height) * built.atlas.width +
                     pixelOf(letter.s0, built.atlas.width);
    EXPECT_EQ(built.atlas.pixels.at(static_cast<std::size_t>(tail)), 255);
    EXPECT_EQ(built.atlas.pixels.at(static_cast<std::size_t>(tail + 1)), 0);
}

}  // namespace
}  // namespace Orlek::Detail
