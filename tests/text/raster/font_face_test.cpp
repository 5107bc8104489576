#include "text/raster/FontFace.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "support/Capture.h"
#include "text/BitmapFont.h"
#include "text/FreeTypeReference.h"
#include "text/raster/GlyphRaster.h"

namespace Orlek::Detail {
namespace {

FT_LibraryRec_* library() {
    static FT_LibraryRec_* const handle = openFreeType();
    return handle;
}

FontFace open(const std::string& bytes) {
    return {library(), bytes.data(), static_cast<int>(bytes.size())};
}

TEST(FontFace, RefusesWhatIsNoFont) {
    EXPECT_NE(FontFace(library(), nullptr, 0).error(), 0);
    EXPECT_NE(FontFace(library(), "x", -1).error(), 0);
    EXPECT_NE(FontFace(nullptr, "x", 1).error(), 0);
    EXPECT_NE(open("").error(), 0);
    EXPECT_NE(open(std::string(5000, 'x')).error(), 0);
}

TEST(FontFace, RefusesAFontThatClaimsMoreMemoryThanAnyFontNeeds) {
    const std::string bytes =
        OrlekTest::readFont(ORLEK_SOURCE_DIR "/fuzz/corpus/font_load/lying.woff");
    EXPECT_EQ(open(bytes).error(), static_cast<int>(FT_Err_Out_Of_Memory));
}

TEST(FontFace, TakesPixelHeightsFrom1To256) {
    const std::string bytes = OrlekTest::readFont(OrlekTest::sansFont);
    FontFace face = open(bytes);
    ASSERT_EQ(face.error(), 0);
    EXPECT_TRUE(face.setPixelHeight(1));
    EXPECT_TRUE(face.setPixelHeight(256));
    for (const int height : {0, -1, 257, 2147483647, -2147483647 - 1}) {
        EXPECT_FALSE(face.setPixelHeight(height)) << height;
    }
}

TEST(FontFace, ReadsBitmapFontsOneBitAPixel) {
    const std::string bytes = OrlekTest::bitmapFont();
    FontFace face = open(bytes);
    ASSERT_EQ(face.error(), 0);
    EXPECT_FALSE(face.setPixelHeight(9));
    ASSERT_TRUE(face.setPixelHeight(4));
    EXPECT_EQ(face.measure('A').width, 5);
    EXPECT_EQ(face.measure('A').height, 3);
    const auto glyph = face.render('A');
    ASSERT_TRUE(glyph.has_value());
    EXPECT_EQ(glyph->advance, 6.0F);
    const std::string rows[] = {"..#..", "#####", "#...#"};
    for (std::size_t r = 0; r < 3; ++r) {
        for (std::size_t c = 0; c < 5; ++c) {
            EXPECT_EQ(glyph->bitmap.coverage(r, c), rows[r][c] == '#' ? 255 : 0) << r << ' ' << c;
        }
    }
}

/// Builds an atlas of the font's characters and returns what is printed meanwhile.
std::string buildAtlas(FontFace& face) {
    return OrlekTest::captureStdout([&face] {
        ASSERT_TRUE(face.setPixelHeight(16));
        const ShelfLayout layout = layoutGlyphs(face, {256, 3, 0});
        GlyphAtlas atlas;
        std::array<OpenGL::GlyphInfo, slotCount> glyphs;
        ASSERT_TRUE(allocateAtlas(layout, atlas));
        rasterGlyphs(face, layout, atlas, glyphs);
    });
}

TEST(FontFace, SurvivesFontsThatAreCutAnywhere) {
    const std::string bytes = OrlekTest::readFont(OrlekTest::sansFont);
    int opened = 0;
    for (std::size_t cut = 1; cut < bytes.size(); cut += cut / 4 + 1) {
        const std::string part = bytes.substr(0, bytes.size() - cut);
        FontFace face = open(part);
        if (face.error() == 0) {
            ++opened;
            buildAtlas(face);
        }
    }
    EXPECT_GT(opened, 0);
}

TEST(FontFace, ReportsEachCharacterThatCannotBeMeasured) {
    // The font has two outlines: that of missing characters, spoilt here, and the A.
    std::string bytes = OrlekTest::readFont(ORLEK_SOURCE_DIR "/fuzz/corpus/font_load/a.ttf");
    for (std::size_t entry = 12; entry < 12 + 16 * 16; entry += 16) {
        if (bytes.compare(entry, 4, "glyf") == 0) {
            const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
            const std::size_t start = byte(entry + 10) * 256U + byte(entry + 11);
            bytes.replace(start, 2, "\x7f\xff");
        }
    }
    FontFace face = open(bytes);
    ASSERT_EQ(face.error(), 0);
    std::string expected;
    for (std::size_t missing = 0; missing < slotCount - 1; ++missing) {
        expected += "FT_Load_Glyph failed!\n";
    }
    EXPECT_EQ(buildAtlas(face), expected);
}

}  // namespace
}  // namespace Orlek::Detail
