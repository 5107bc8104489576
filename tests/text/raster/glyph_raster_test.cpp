// Fonts drawn into an atlas: each glyph beside FreeType's own bitmap, and damaged fonts.
#include "text/raster/GlyphRaster.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "support/Capture.h"
#include "text/FreeTypeReference.h"

namespace Orlek::Detail {
namespace {

using OrlekTest::readFont;
using OrlekTest::sansFont;

struct BuiltAtlas {
    int error = 0;
    GlyphAtlas atlas;
    std::array<OpenGL::GlyphInfo, slotCount> glyphs;
    int maxHeight = 0;
};

BuiltAtlas build(const std::string& bytes, int pixelSize) {
    static FT_LibraryRec_* const library = openFreeType();
    BuiltAtlas built;
    FontFace face(library, bytes.data(), static_cast<int>(bytes.size()));
    built.error = face.error();
    if (built.error == 0) {
        EXPECT_TRUE(face.setPixelHeight(pixelSize));
        const ShelfLayout layout = layoutGlyphs(face, {.shelfWidth = 256, .gap = 3, .padding = 0});
        built.maxHeight = layout.maxHeight();
        EXPECT_TRUE(allocateAtlas(layout, built.atlas));
        rasterGlyphs(face, layout, built.atlas, built.glyphs);
    }
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
    for (int i = 0; i < expected.rows * expected.width; ++i) {
        const int r = i / expected.width;
        const int c = i % expected.width;
        std::uint8_t& pixel =
            built.atlas.pixels.at(static_cast<std::size_t>((y + r) * built.atlas.width + x + c));
        ASSERT_EQ(pixel, expected.at(expected.rows - 1 - r, c)) << r << ' ' << c;
        pixel = 0;
    }
}

TEST(GlyphRaster, HoldsEveryGlyphAsFreeTypeRendersItAndNothingElse) {
    for (const int pixelSize : {1, 7, 16, 33, 80}) {
        SCOPED_TRACE(pixelSize);
        const OrlekTest::ReferenceFont reference(sansFont, pixelSize);
        BuiltAtlas built = build(readFont(sansFont), pixelSize);
        EXPECT_EQ(built.maxHeight, reference.lineHeight());
        for (std::size_t slot = 0; slot < slotCount; ++slot) {
            SCOPED_TRACE(characterOf(slot));
            expectGlyph(built, slot, reference.glyph(characterOf(slot)));
        }
        EXPECT_EQ(built.atlas.pixels, std::vector<std::uint8_t>(built.atlas.pixels.size(), 0));
    }
}

TEST(GlyphRaster, CutsGlyphsOffAtTheAtlasInsteadOfOverwriting) {
    const BuiltAtlas built = build(readFont(sansFont), 256);
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

TEST(GlyphRaster, SurvivesFontsThatAreCutAnywhere) {
    const std::string bytes = readFont(sansFont);
    int opened = 0;
    for (std::size_t cut = 1; cut < bytes.size(); cut += cut / 4 + 1) {
        OrlekTest::captureStdout(
            [&] { opened += build(bytes.substr(0, bytes.size() - cut), 16).error == 0 ? 1 : 0; });
    }
    EXPECT_GT(opened, 0);
    EXPECT_EQ(build(readFont(ORLEK_SOURCE_DIR "/fuzz/corpus/font_load/lying.woff"), 16).error,
              static_cast<int>(FT_Err_Out_Of_Memory))
        << "claims more memory than any font needs";
}

TEST(GlyphRaster, ReportsEachCharacterThatCannotBeMeasured) {
    // The font has two outlines: that of missing characters, spoilt here, and the A.
    std::string bytes = readFont(ORLEK_SOURCE_DIR "/fuzz/corpus/font_load/a.ttf");
    const std::size_t entry = bytes.find("glyf");
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(bytes.at(at)); };
    bytes.replace(byte(entry + 10) * 256U + byte(entry + 11), 2, "\x7f\xff");
    std::string expected;
    for (std::size_t missing = 0; missing < slotCount - 1; ++missing) {
        expected += "FT_Load_Glyph failed!\n";
    }
    EXPECT_EQ(OrlekTest::captureStdout([&] { EXPECT_EQ(build(bytes, 16).error, 0); }), expected);
}

}  // namespace
}  // namespace Orlek::Detail
