// Fonts that do not fit into an atlas, and damaged ones.
#include "text/raster/GlyphRaster.h"

#include <gtest/gtest.h>

#include <array>

#include "support/Capture.h"
#include "text/FreeTypeReference.h"

namespace Orlek::Detail {
namespace {

using OrlekTest::oddFonts;
using OrlekTest::sansFont;
using OrlekTest::wholeText;

struct BuiltAtlas {
    int error = 0;
    GlyphAtlas atlas;
    std::array<OpenGL::GlyphInfo, slotCount> glyphs;
};

BuiltAtlas build(const std::string& bytes, int pixelSize) {
    static FT_LibraryRec_* const library = openFreeType();
    BuiltAtlas built;
    FontFace face(library, bytes.data(), static_cast<int>(bytes.size()));
    built.error = face.error();
    if (built.error == 0) {
        EXPECT_TRUE(face.setPixelHeight(pixelSize));
        const ShelfLayout layout = layoutGlyphs(face, {.shelfWidth = 256, .gap = 3, .padding = 0});
        EXPECT_TRUE(allocateAtlas(layout, built.atlas));
        rasterGlyphs(face, layout, built.atlas, built.glyphs);
    }
    return built;
}

TEST(GlyphRaster, CutsGlyphsOffAtTheAtlasInsteadOfOverwriting) {
    const BuiltAtlas built = build(wholeText(sansFont), 256);
    EXPECT_EQ(built.atlas.width, 256);
    EXPECT_EQ(built.atlas.height, 4096);
    const OrlekTest::ReferenceFont reference(wholeText(sansFont), 256);
    int missing = 0;
    for (std::size_t slot = 0; slot < slotCount; ++slot) {
        const OpenGL::GlyphInfo& glyph = built.glyphs[slot];
        const FT_GlyphSlotRec& whole = reference.glyph(static_cast<char>(characterOf(slot)));
        EXPECT_LE(glyph.s1, 1.0F);
        EXPECT_TRUE(glyph.height == 0.0F || glyph.t1 <= 1.0F);
        EXPECT_EQ(glyph.top - glyph.height,
                  static_cast<float>(whole.bitmap_top) - static_cast<float>(whole.bitmap.rows));
        missing += glyph.height == 0.0F ? 1 : 0;
    }
    EXPECT_GT(missing, 100);
    EXPECT_GT(built.glyphs[slotOf('!')].height, 180.0F);
}

TEST(GlyphRaster, ReportsEachCharacterThatCannotBeMeasured) {
    // The font has two outlines: that of missing characters, spoilt here, and the A.
    std::string bytes = wholeText(oddFonts + "a.ttf");
    const std::size_t entry = bytes.find("glyf");
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(bytes.at(at)); };
    bytes.replace(byte(entry + 10) * 256U + byte(entry + 11), 2, "\x7f\xff");
    std::string expected;
    for (std::size_t missing = 0; missing < slotCount - 1; ++missing) {
        expected += "FT_Load_Glyph failed!\n";
    }
    EXPECT_EQ(OrlekTest::captureStdout([&] { EXPECT_EQ(build(bytes, 16).error, 0); }), expected);
}

TEST(GlyphRaster, BoundsWhatACharacterIsMadeOf) {
    // A square of 8 pixels on the 16th level, and 240 of them in one character of 256 parts.
    const BuiltAtlas built = build(wholeText(oddFonts + "parts.ttf"), 16);
    EXPECT_EQ(built.glyphs[slotOf('A')].height, 8.0F);
    EXPECT_EQ(built.glyphs[slotOf('B')].height, 8.0F);
    // One level more, and 60 * 60 * 60 * 60 parts.
    for (const char* font : {"deep_parts.ttf", "many_parts.ttf"}) {
        EXPECT_EQ(build(wholeText(oddFonts + font), 16).error,
                  static_cast<int>(FT_Err_Invalid_Composite))
            << font;
    }
}

// Each character is arithmetic without end: 448 of them would take minutes.
TEST(GlyphRaster, GivesUpAFontThatTakesASecond) {
    const std::string busy = wholeText(ORLEK_SOURCE_DIR "/tests/text/raster/busy.cff");
    const std::clock_t before = std::clock();
    EXPECT_EQ(build(busy, 16).error, static_cast<int>(FT_Err_Execution_Too_Long));
    EXPECT_LT(std::clock() - before, 10 * CLOCKS_PER_SEC);
}

TEST(GlyphRaster, TakesTheOutlineWhereAFontWouldKeepItBusyForHours) {
    // Squares of 8 pixels: one that a program stretches over and over again, one with bitmaps that
    // are made of bitmaps, down to one pixel.
    for (const char* font : {"program.ttf", "bitmaps.ttf"}) {
        EXPECT_EQ(build(wholeText(oddFonts + font), 16).glyphs[slotOf('A')].height, 8.0F) << font;
    }
}

/// A bitmap font with one character, an A of one row and four pixels.
std::string rowFont(int bitsPerPixel, const std::string& hexRow) {
    return "STARTFONT 2.1\nFONT -test-Row-Medium-R-Normal--4-40-72-72-C-40-ISO10646-1\nSIZE 4 72 "
           "72 " +
           std::to_string(bitsPerPixel) +
           "\nFONTBOUNDINGBOX 4 1 0 0\nSTARTPROPERTIES 4\nFONT_ASCENT 3\nFONT_DESCENT 1\n"
           "CHARSET_REGISTRY \"ISO10646\"\nCHARSET_ENCODING \"1\"\nENDPROPERTIES\nCHARS 1\n"
           "STARTCHAR A\nENCODING 65\nSWIDTH 1000 0\nDWIDTH 4 0\nBBX 4 1 0 0\nBITMAP\n" +
           hexRow + "\nENDCHAR\nENDFONT\n";
}

TEST(GlyphRaster, ReadsBitmapsOfEightBitsOrOneAndTakesOthersForOne) {
    const struct {
        int bitsPerPixel;
        FT_Pixel_Mode mode;
        const char* row;
        std::array<int, 4> coverage;
    } rows[] = {{8, FT_PIXEL_MODE_GRAY, "FF804001", {255, 128, 64, 1}},
                {1, FT_PIXEL_MODE_MONO, "A0", {255, 0, 255, 0}},
                {2, FT_PIXEL_MODE_GRAY2, "A1", {255, 0, 255, 0}},
                {4, FT_PIXEL_MODE_GRAY4, "5F01", {0, 255, 0, 255}}};
    for (const auto& row : rows) {
        const std::string bytes = rowFont(row.bitsPerPixel, row.row);
        const OrlekTest::ReferenceFont reference(bytes, 4);
        ASSERT_EQ(reference.glyph('A').bitmap.pixel_mode, row.mode) << row.bitsPerPixel;
        const BuiltAtlas built = build(bytes, 4);
        const OpenGL::GlyphInfo& glyph = built.glyphs[slotOf('A')];
        ASSERT_EQ(glyph.width, 4.0F);
        const auto left =
            static_cast<std::size_t>(glyph.s0 * static_cast<float>(built.atlas.width));
        for (std::size_t column = 0; column < row.coverage.size(); ++column) {
            EXPECT_EQ(built.atlas.pixels[left + column], row.coverage[column])
                << row.bitsPerPixel << " bits, column " << column;
        }
    }
}

}  // namespace
}  // namespace Orlek::Detail
