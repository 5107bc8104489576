// Fonts that objects share by name, fonts that cannot be built, and what is given back.
#include <Orlek/OpenGL/TextureFontSdf.h>

#include <memory>

#include "FontPicture.h"
#include "support/GlTest.h"
#include "support/TempDir.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;

class TextureFontSdfLoadTest : public GlTest {
protected:
    static bool load(TextureFontSdf& font, const std::string& name, const std::string& bytes) {
        return font.loadData(name.c_str(), bytes.data(), static_cast<int>(bytes.size()), 30);
    }
    static bool loadAgain(TextureFontSdf& font, const std::string& name) {
        return font.loadData(name.c_str(), nullptr, 0, 30);
    }
    static bool draws(TextureFontSdf& font) {
        wipe();
        silently([&] { font.renderFont(20.0, 30.0, "A", TextureFontSdf::BOTTOM_LEFT); });
        return drawnPixels() > 20;
    }
    static bool drawsBatch(TextureFontSdf& font) {
        wipe();
        silently([&] { font.render(); });
        return drawnPixels() > 20;
    }
    static void add(TextureFontSdf& font) {
        font.addText("A", {{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 9, 9, 0, 1}},
                     TextureFontSdf::CENTER_LEFT);
    }

    const std::string sans = readFont(sansFont);
};

TEST_F(TextureFontSdfLoadTest, NamesShareOneTextureUntilTheLastUserClears) {
    TextureFontSdf first;
    TextureFontSdf second;
    EXPECT_EQ(first.texture(), 0U);
    EXPECT_FALSE(draws(first));
    ASSERT_TRUE(load(first, "shared", sans));
    ASSERT_TRUE(loadAgain(second, "shared")) << "its data are not needed";
    const unsigned int texture = first.texture();
    EXPECT_EQ(second.texture(), texture);
    auto copy = std::make_unique<TextureFontSdf>(first);
    add(first);
    first.clear();
    second.clear();
    EXPECT_TRUE(glIsTexture(texture));
    EXPECT_TRUE(draws(*copy));
    EXPECT_TRUE(drawsBatch(first)) << "the batch stays, and its user is one again";
    first.clear();
    copy.reset();
    EXPECT_FALSE(glIsTexture(texture));
    EXPECT_EQ(second.texture(), 0U);
    EXPECT_FALSE(draws(second));
    EXPECT_EQ(captureStdout([&] { EXPECT_FALSE(loadAgain(second, "shared")); }),
              "FT_New_Memory_Face failed 6 ! \n");
    ASSERT_TRUE(load(second, "shared", sans)) << "built anew";
    EXPECT_TRUE(draws(second));
    EXPECT_TRUE(drawsBatch(first));
    first.clear();
    second.clear();
    EXPECT_EQ(newNames(), 0);
}

TEST_F(TextureFontSdfLoadTest, AnotherFontLeavesTheFirstForTheWayBack) {
    const std::string serif = readFont("/usr/share/fonts/truetype/dejavu/DejaVuSerif.ttf");
    TextureFontSdf font;
    ASSERT_TRUE(load(font, "one", sans));
    add(font);
    const unsigned int texture = font.texture();
    ASSERT_TRUE(loadAgain(font, "one"));
    EXPECT_TRUE(drawsBatch(font));
    ASSERT_TRUE(load(font, "other", serif));
    EXPECT_FALSE(drawsBatch(font)) << "its coordinates are those of the other atlas";
    EXPECT_TRUE(draws(font));
    font.clear();
    ASSERT_TRUE(loadAgain(font, "one"));
    EXPECT_EQ(font.texture(), texture);
    font.clear();
    EXPECT_EQ(newNames(), 0);
}

TEST_F(TextureFontSdfLoadTest, ReadsFiles) {
    const TempDir dir;
    TextureFontSdf font;
    for (const std::string& path : {dir.path("none.ttf"), dir.path(), std::string("/dev/zero")}) {
        EXPECT_EQ(captureStdout([&] { EXPECT_FALSE(font.load(path.c_str(), 30)); }),
                  "TextureFontSdf::load could not open <" + path + ">\n");
    }
    EXPECT_EQ(captureStdout([&] { EXPECT_FALSE(font.load(nullptr, 30)); }),
              "TextureFontSdf::load could not open <>\n");
    const std::string path = dir.write("font.ttf", sans);
    ASSERT_TRUE(font.load(path.c_str(), 30));
    EXPECT_TRUE(draws(font));
}

TEST_F(TextureFontSdfLoadTest, RefusedFontsStayEmptyUnderTheirName) {
    const std::string corpus = ORLEK_SOURCE_DIR "/fuzz/corpus/font_load/";
    const std::string half = sans.substr(0, sans.size() / 2);
    const std::string noFace = "FT_New_Memory_Face failed ";
    const struct {
        const char* name;
        std::string bytes;
        std::string line;
    } rows[] = {
        {"bitmaps only", readFont(corpus + "tiny.bdf"), "FT_Set_Pixel_Sizes failed !\n"},
        {"half", half, noFace + std::to_string(ReferenceFont(half).error()) + " ! \n"},
        {"text", "no font", noFace + std::to_string(ReferenceFont("no font").error()) + " ! \n"},
        {"lying", readFont(corpus + "lying.woff"), noFace + "64 ! \n"},
    };
    TextureFontSdf font;
    for (const auto& row : rows) {
        ASSERT_TRUE(load(font, "good", sans));
        EXPECT_EQ(captureStdout([&] { EXPECT_FALSE(load(font, row.name, row.bytes)); }), row.line);
        EXPECT_EQ(font.texture(), 0U) << row.name;
        EXPECT_FALSE(draws(font)) << row.name;
        silently([&] { EXPECT_TRUE(load(font, row.name, row.bytes)) << row.name; });
        EXPECT_FALSE(draws(font)) << row.name;
    }
    for (const auto& [bytes, size] : {std::pair<const char*, int>{nullptr, 10}, {"x", -1}}) {
        const std::string name = "size " + std::to_string(size);
        EXPECT_EQ(captureStdout([&, data = bytes, count = size] {
                      EXPECT_FALSE(font.loadData(name.c_str(), data, count, 30));
                  }),
                  noFace + "6 ! \n");
    }
    EXPECT_EQ(captureStdout([&] { EXPECT_FALSE(font.loadData(nullptr, sans.data(), 9, 30)); }),
              noFace + "6 ! \n");
    ASSERT_TRUE(loadAgain(font, "good"));
    font.clear();
    EXPECT_EQ(newNames(), 0);
}

TEST_F(TextureFontSdfLoadTest, SurvivesFontsWithoutLatinAndWithHugeGlyphs) {
    std::string sparse = readFont(ORLEK_SOURCE_DIR "/fuzz/corpus/font_load/a.ttf");
    std::string huge = sparse;
    const std::size_t entry = huge.find("head");
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(huge.at(at)); };
    const std::size_t head = byte(entry + 10) * 256U + byte(entry + 11);
    huge.replace(head + 18, 2, std::string("\0\x10", 2));  // 16 units an em
    TextureFontSdf font;
    ASSERT_TRUE(load(font, "sparse", sparse));
    EXPECT_TRUE(draws(font));
    captureStdout([&] { load(font, "huge", huge); });
    draws(font);
    font.clear();
}

}  // namespace
