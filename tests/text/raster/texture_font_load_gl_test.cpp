// Loading fonts: what is refused, which lines are printed, what is given back.
#include <Orlek/OpenGL/TextureFont.h>

#include "FontPicture.h"
#include "support/GlTest.h"
#include "support/TempDir.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;

constexpr Orlek::Math::Matrix4<float> corner{{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 9, 9, 0, 1}};

class TextureFontLoadTest : public GlTest {
protected:
    static std::string refusal(TextureFont& font, const std::string& path) {
        return captureStdout([&] { EXPECT_FALSE(font.load(path.c_str(), 16)); });
    }
    static std::string refusal(TextureFont& font, const char* bytes, std::size_t size,
                               int pixelSize) {
        return captureStdout(
            [&] { EXPECT_FALSE(font.loadData("name", bytes, static_cast<int>(size), pixelSize)); });
    }

    /// The line about bytes that are no font, with the code that FreeType itself gives.
    static std::string noFont(const std::string& bytes, const std::string& name) {
        return "FT_New_Face failed " + std::to_string(ReferenceFont(bytes).error()) + " ! <" +
               name + ">\n";
    }
};

TEST_F(TextureFontLoadTest, StartsFreeTypeOnce) {
    // The other tests may have made fonts before, so at most one line is left to come.
    const std::string first = captureStdout([] { const TextureFont font; });
    EXPECT_TRUE(first.empty() || first == "INIT Freetype done\n") << first;
    silently([] { const TextureFont font; });
}

TEST_F(TextureFontLoadTest, RefusesWhatIsNoFontAndKeepsTheAtlas) {
    const std::string bytes = readFont(sansFont);
    const std::string tiny = readFont(ORLEK_SOURCE_DIR "/fuzz/corpus/font_load/tiny.bdf");
    const std::string half = bytes.substr(0, bytes.size() / 2);
    const std::string text = "This is no font, whatever its name says.";
    TextureFont font;
    ASSERT_TRUE(font.loadData("sans", bytes.data(), static_cast<int>(bytes.size()), 16));
    font.addText("kept", corner, TextureFont::BOTTOM_LEFT);
    const unsigned int texture = font.texture();

    const TempDir dir;
    for (const std::string& path : {dir.path("none.ttf"), dir.path(), std::string("/dev/zero")}) {
        EXPECT_EQ(refusal(font, path), "TextureFont::load could not open <" + path + ">\n");
    }
    const std::string path = dir.write("no.ttf", text);
    EXPECT_EQ(refusal(font, path), noFont(text, path));
    EXPECT_EQ(refusal(font, half.data(), half.size(), 16), noFont(half, "name"));
    EXPECT_EQ(refusal(font, nullptr, 10, 16), "FT_New_Face failed 6 ! <name>\n");
    EXPECT_EQ(refusal(font, "x", std::size_t{0} - 1, 16), "FT_New_Face failed 6 ! <name>\n");
    for (const int pixelSize : {0, -16, 257, 1 << 30}) {
        EXPECT_EQ(refusal(font, bytes.data(), bytes.size(), pixelSize),
                  "FT_Set_Pixel_Sizes failed !\n")
            << pixelSize;
    }
    EXPECT_EQ(refusal(font, tiny.data(), tiny.size(), 77), "FT_Set_Pixel_Sizes failed !\n");

    EXPECT_EQ(font.texture(), texture);
    font.render();
    EXPECT_GT(drawnPixels(), 20);
}

TEST_F(TextureFontLoadTest, SecondLoadReplacesAtlasAndBatch) {
    TextureFont font;
    ASSERT_TRUE(font.load(sansFont, 24));
    font.addText("gone", corner, TextureFont::CENTER);
    ASSERT_TRUE(font.load(sansFont, 12));
    font.render();
    EXPECT_EQ(drawnPixels(), 0);
    font.renderFont(20.0, 30.0, "12 px", TextureFont::BOTTOM_LEFT);
    FontPicture expected(width, height);
    drawReference(expected, ReferenceFont(readFont(sansFont), 12), "12 px", 20, 30);
    EXPECT_LE(readPicture(width, height).distance(expected), 1);
}

TEST_F(TextureFontLoadTest, DrawsBitmapFonts) {
    TextureFont font;
    ASSERT_TRUE(font.load(ORLEK_SOURCE_DIR "/fuzz/corpus/font_load/tiny.bdf", 4));
    font.renderFont(10.0, 10.0, "Aj", TextureFont::BOTTOM_LEFT);
    EXPECT_EQ(row(12, 9, 20), "...#....#..");
    EXPECT_EQ(row(11, 9, 20), ".#####..#..");
    EXPECT_EQ(row(10, 9, 20), ".#...#..#..");
    EXPECT_EQ(row(9, 9, 20), ".......#...");
}

}  // namespace
