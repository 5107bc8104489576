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

TEST(GlyphRaster, SurvivesFontsThatAreCutAnywhere) {
    const std::string bytes = wholeText(sansFont);
    int opened = 0;
    for (std::size_t cut = 1; cut < bytes.size(); cut += cut / 4 + 1) {
        OrlekTest::captureStdout(
            [&] { opened += build(bytes.substr(0, bytes.size() - cut), 16).error == 0 ? 1 : 0; });
    }
    EXPECT_GT(opened, 0);
    EXPECT_EQ(build(wholeText(oddFonts + "lying.woff"), 16).error,
              static_cast<int>(FT_Err_Out_Of_Memory))
        << "claims more memory than any font needs";
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

}  // namespace
}  // namespace Orlek::Detail
