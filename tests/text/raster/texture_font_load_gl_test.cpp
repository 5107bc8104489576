// Loading fonts: what is built, what is refused, which lines are printed, what is given back.
#include <Orlek/OpenGL/TextureFont.h>

#include "FontPicture.h"
#include "support/GlTest.h"
#include "support/TempDir.h"
#include "text/BitmapFont.h"

namespace {

using namespace Orlek::OpenGL;
using OrlekTest::captureStdout;
using OrlekTest::sansFont;

/// The line about bytes that are no font, with the code that FreeType itself gives.
std::string noFontLine(const std::string& bytes, const std::string& name) {
    return "FT_New_Face failed " + std::to_string(OrlekTest::openingError(bytes)) + " ! <" + name +
           ">\n";
}

class TextureFontLoadTest : public OrlekTest::GlTest {
protected:
    /// What a load prints; it must fail.
    static std::string refusal(TextureFont& font, const std::string& bytes, int pixelSize) {
        return captureStdout([&] {
            EXPECT_FALSE(
                font.loadData("my font", bytes.data(), static_cast<int>(bytes.size()), pixelSize));
        });
    }
};

TEST_F(TextureFontLoadTest, StartsFreeTypeOnce) {
    // The other tests may have made fonts before, so at most one line is left to come.
    const std::string first = captureStdout([] { const TextureFont font; });
    EXPECT_TRUE(first.empty() || first == "INIT Freetype done\n") << first;
    EXPECT_EQ(captureStdout([] { const TextureFont font; }), "");
}

TEST_F(TextureFontLoadTest, RefusesFilesThatCannotBeRead) {
    const OrlekTest::TempDir dir;
    TextureFont font;
    const std::string missing = dir.path("none.ttf");
    for (const std::string& path : {missing, dir.path(), std::string("/dev/zero")}) {
        EXPECT_EQ(captureStdout([&] { EXPECT_FALSE(font.load(path.c_str(), 16)); }),
                  "TextureFont::load could not open <" + path + ">\n");
    }
    const std::string text = "This is no font, whatever its name says.";
    const std::string noFont = dir.write("no.ttf", text);
    EXPECT_EQ(captureStdout([&] { EXPECT_FALSE(font.load(noFont.c_str(), 16)); }),
              noFontLine(text, noFont));
}

TEST_F(TextureFontLoadTest, RefusesWhatIsNoFontAndKeepsTheAtlas) {
    const std::string bytes = OrlekTest::readFont(sansFont);
    TextureFont font;
    ASSERT_TRUE(font.loadData("sans", bytes.data(), static_cast<int>(bytes.size()), 16));
    font.addText("kept", {{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 9, 9, 0, 1}},
                 TextureFont::BOTTOM_LEFT);
    const unsigned int texture = font.texture();
    EXPECT_EQ(refusal(font, "no font", 16), noFontLine("no font", "my font"));
    const std::string half = bytes.substr(0, bytes.size() / 2);
    EXPECT_EQ(refusal(font, half, 16), noFontLine(half, "my font"));
    for (const int pixelSize : {0, -16, 257, 1 << 30}) {
        EXPECT_EQ(refusal(font, bytes, pixelSize), "FT_Set_Pixel_Sizes failed !\n") << pixelSize;
    }
    EXPECT_EQ(refusal(font, OrlekTest::bitmapFont(), 77), "FT_Set_Pixel_Sizes failed !\n");
    EXPECT_EQ(captureStdout([&] { EXPECT_FALSE(font.loadData("none", nullptr, 10, 16)); }),
              "FT_New_Face failed 6 ! <none>\n");
    EXPECT_EQ(captureStdout([&] { EXPECT_FALSE(font.loadData("none", "x", -1, 16)); }),
              "FT_New_Face failed 6 ! <none>\n");
    EXPECT_EQ(font.texture(), texture);
    font.render();
    EXPECT_GT(drawnPixels(), 20);
}

TEST_F(TextureFontLoadTest, MakesAnAtlasThatIsSampledAsCoverage) {
    TextureFont font;
    ASSERT_TRUE(font.load(sansFont, 16));
    glBindTexture(GL_TEXTURE_2D, font.texture());
    const auto level = [](GLenum name) {
        GLint value = 0;
        glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, name, &value);
        return value;
    };
    const auto parameter = [](GLenum name) {
        GLint value = 0;
        glGetTexParameteriv(GL_TEXTURE_2D, name, &value);
        return value;
    };
    EXPECT_EQ(level(GL_TEXTURE_WIDTH), 256);
    EXPECT_EQ(level(GL_TEXTURE_HEIGHT), 256);
    EXPECT_EQ(level(GL_TEXTURE_INTERNAL_FORMAT), GL_R8);
    EXPECT_EQ(parameter(GL_TEXTURE_SWIZZLE_R), GL_ZERO);
    EXPECT_EQ(parameter(GL_TEXTURE_SWIZZLE_B), GL_ZERO);
    EXPECT_EQ(parameter(GL_TEXTURE_SWIZZLE_A), GL_RED);
    EXPECT_EQ(parameter(GL_TEXTURE_MIN_FILTER), GL_LINEAR_MIPMAP_LINEAR);
    EXPECT_EQ(parameter(GL_TEXTURE_MAG_FILTER), GL_LINEAR);
    EXPECT_EQ(parameter(GL_TEXTURE_WRAP_S), GL_CLAMP_TO_EDGE);
    EXPECT_EQ(parameter(GL_TEXTURE_WRAP_T), GL_CLAMP_TO_EDGE);
    glBindTexture(GL_TEXTURE_2D, 0);
}

TEST_F(TextureFontLoadTest, SecondLoadReplacesAtlasAndBatch) {
    TextureFont font;
    ASSERT_TRUE(font.load(sansFont, 24));
    font.addText("gone", {{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 9, 9, 0, 1}}, TextureFont::CENTER);
    ASSERT_TRUE(font.load(sansFont, 12));
    font.render();
    EXPECT_EQ(drawnPixels(), 0);
    font.renderFont(20.0, 30.0, "12 px", TextureFont::BOTTOM_LEFT);
    OrlekTest::FontPicture expected(width, height);
    drawReference(expected, OrlekTest::ReferenceFont(sansFont, 12), "12 px", 20, 30);
    EXPECT_LE(OrlekTest::readPicture(width, height).distance(expected), 1);
}

TEST_F(TextureFontLoadTest, DrawsBitmapFontsAndMissingCharacters) {
    const std::string bytes = OrlekTest::bitmapFont();
    TextureFont font;
    ASSERT_TRUE(font.loadData("tiny", bytes.data(), static_cast<int>(bytes.size()), 4));
    font.renderFont(10.0, 10.0, "Aj", TextureFont::BOTTOM_LEFT);
    EXPECT_EQ(row(12, 9, 20), "...#....#..");
    EXPECT_EQ(row(11, 9, 20), ".#####..#..");
    EXPECT_EQ(row(10, 9, 20), ".#...#..#..");
    EXPECT_EQ(row(9, 9, 20), ".......#...");
}

TEST_F(TextureFontLoadTest, GivesEveryNameBack) {
    const auto use = [](int pixelSize) {
        TextureFont font;
        ASSERT_TRUE(font.load(sansFont, pixelSize));
        font.addText("first", {{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 9, 9, 0, 1}},
                     TextureFont::CENTER);
        font.render();
        TextureFont copy(font);
        copy.addText("x", {}, TextureFont::CENTER);
        copy.render();
        copy.render();
        ASSERT_TRUE(font.load(sansFont, pixelSize + 1));
        captureStdout([&] { EXPECT_FALSE(font.load("/missing", 1)); });
        copy = font;
    };
    const int before = OrlekTest::liveNames();
    use(10);
    use(200);
    // Names given up by an assignment go with the next upload.
    ASSERT_TRUE(TextureFont().load(sansFont, 9));
    EXPECT_EQ(OrlekTest::liveNames(), before);
}

}  // namespace
