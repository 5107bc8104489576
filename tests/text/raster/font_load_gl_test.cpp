// Loading fonts into atlases: what is refused, which lines are printed, what objects share by name.
#include <Orlek/OpenGL/TextureFont.h>
#include <Orlek/OpenGL/TextureFontSdf.h>

#include <memory>
#include <regex>

#include "FontPicture.h"
#include "support/TempDir.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;

class FontLoadTest : public FontTest {
protected:
    static bool load(auto& font, const std::string& name, const std::string& bytes,
                     int pixelSize = 30) {
        return font.loadData(name.c_str(), bytes.data(), static_cast<int>(bytes.size()), pixelSize);
    }
    static bool loadAgain(TextureFontSdf& font, const std::string& name) {
        return font.loadData(name.c_str(), nullptr, 0, 30);
    }

    /// What a load prints that must fail.
    static std::string refusal(auto function) {
        return captureStdout([&] { EXPECT_FALSE(function()); });
    }

    template <typename Font>
    static bool draws(Font& font) {
        return !drawn([&] { font.renderFont(20.0, 30.0, "A", Font::BOTTOM_LEFT); }).blank();
    }
    static bool drawsBatch(auto& font) { return !batchOf(font).blank(); }

    template <typename Font>
    static void add(Font& font) {
        font.addText("A", placedAt(9, 30), Font::CENTER_LEFT);
    }

    const std::string sans = wholeText(sansFont);
    const std::string half = sans.substr(0, sans.size() / 2);
    const std::string text = "This is no font, whatever its name says.";
    const std::string bitmaps = wholeText(oddFonts + "tiny.bdf");
};

TEST_F(FontLoadTest, StartsFreeTypeOnceForAClass) {
    // The other tests may have made fonts before, so at most one line is left to come.
    const auto startsOnce = [](auto make) {
        const std::string first = captureStdout(make);
        EXPECT_TRUE(first.empty() || first == "INIT Freetype done\n") << first;
        silently(make);
    };
    startsOnce([] { const TextureFont font; });
    startsOnce([] { const TextureFontSdf font; });
}

TEST_F(FontLoadTest, ReadsFiles) {
    const TempDir dir;
    const std::string good = dir.write("font.ttf", sans);
    const auto reads = [&](auto&& font, const std::string& label) {
        for (const std::string& path :
             {dir.path("none.ttf"), dir.path(), std::string("/dev/zero")}) {
            EXPECT_EQ(refusal([&] { return font.load(path.c_str(), 16); }),
                      label + "::load could not open <" + path + ">\n");
        }
        EXPECT_EQ(refusal([&] { return font.load(nullptr, 16); }),
                  label + "::load could not open <>\n");
        EXPECT_TRUE(font.load(good.c_str(), 30));
        EXPECT_TRUE(draws(font));
    };
    reads(TextureFont(), "TextureFont");
    reads(TextureFontSdf(), "TextureFontSdf");
}

TEST_F(FontLoadTest, TextureFontRefusesWhatIsNoFontAndKeepsTheAtlas) {
    TextureFont font;
    ASSERT_TRUE(load(font, "sans", sans, 16));
    add(font);
    const unsigned int texture = font.texture();
    const TempDir dir;
    const std::string path = dir.write("no.ttf", text);
    const auto noFont = [](int error, const std::string& name) {
        return "FT_New_Face failed " + std::to_string(error) + " ! <" + name + ">\n";
    };
    EXPECT_EQ(refusal([&] { return font.load(path.c_str(), 16); }),
              noFont(ReferenceFont(text).error(), path));
    EXPECT_EQ(refusal([&] { return load(font, "name", half); }),
              noFont(ReferenceFont(half).error(), "name"));
    EXPECT_EQ(refusal([&] { return font.loadData("name", nullptr, 10, 16); }), noFont(6, "name"));
    EXPECT_EQ(refusal([&] { return font.loadData("name", "x", -1, 16); }), noFont(6, "name"));
    for (const int pixelSize : {0, -16, 257, 1 << 30}) {
        EXPECT_EQ(refusal([&] { return load(font, "sans", sans, pixelSize); }),
                  "FT_Set_Pixel_Sizes failed !\n")
            << pixelSize;
    }
    EXPECT_EQ(refusal([&] { return load(font, "bitmaps", bitmaps, 77); }),
              "FT_Set_Pixel_Sizes failed !\n");
    EXPECT_EQ(font.texture(), texture);
    EXPECT_TRUE(drawsBatch(font));
    ASSERT_TRUE(load(font, "sans", sans, 12)) << "replaces atlas and batch";
    EXPECT_FALSE(drawsBatch(font));
    FontPicture expected(width, height);
    drawReference(expected, ReferenceFont(sans, 12), "12 px", 20, 30);
    const auto draw = [&] { font.renderFont(20.0, 30.0, "12 px", TextureFont::BOTTOM_LEFT); };
    EXPECT_LE(drawn(draw).distance(expected), 1);
}

TEST_F(FontLoadTest, TextureFontDrawsBitmapFonts) {
    const std::string special =
        std::regex_replace(bitmaps, std::regex("ISO10646"), "FontSpecific");  // no Unicode
    for (const std::string& bytes : {bitmaps, special}) {
        TextureFont font;
        ASSERT_TRUE(load(font, "bitmaps", bytes, 4));
        wipe();
        font.renderFont(10.0, 10.0, "Aj", TextureFont::BOTTOM_LEFT);
        EXPECT_EQ(row(12, 9, 20), "...#....#..");
        EXPECT_EQ(row(11, 9, 20), ".#####..#..");
        EXPECT_EQ(row(10, 9, 20), ".#...#..#..");
        EXPECT_EQ(row(9, 9, 20), ".......#...");
    }
}

TEST_F(FontLoadTest, SymbolFontsHaveTheirCharactersFromF000On) {
    TextureFont font;
    ASSERT_TRUE(load(font, "symbols", wholeText(oddFonts + "symbol.ttf")));
    const auto picture = [&](const char* character) {
        return drawn([&] { font.renderFont(20.0, 30.0, character, TextureFont::BOTTOM_LEFT); });
    };
    EXPECT_EQ(picture("B").distance(picture("C")), 0) << "the box for what is missing";
    EXPECT_GT(picture("A").distance(picture("B")), 100);
}

TEST_F(FontLoadTest, AnotherFontLeavesNoCharactersOfTheFirst) {
    const std::string noBits = wholeText(oddFonts + "no_bits.bdf");  // an A with a size alone
    TextureFont fresh;
    ASSERT_TRUE(load(fresh, "fresh", noBits, 4));
    TextureFont used;
    ASSERT_TRUE(load(used, "used", sans));
    EXPECT_TRUE(draws(used));
    ASSERT_TRUE(load(used, "used", noBits, 4));
    EXPECT_FALSE(draws(fresh));
    EXPECT_FALSE(draws(used));
}

TEST_F(FontLoadTest, NamesShareOneTextureUntilTheLastUserClears) {
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
    EXPECT_EQ(refusal([&] { return loadAgain(second, "shared"); }),
              "FT_New_Memory_Face failed 6 ! \n");
    ASSERT_TRUE(load(second, "shared", sans)) << "built anew";
    EXPECT_TRUE(draws(second));
    EXPECT_TRUE(drawsBatch(first));
}

TEST_F(FontLoadTest, AnotherFontLeavesTheFirstForTheWayBackUntilAClear) {
    TextureFontSdf font;
    ASSERT_TRUE(load(font, "one", sans));
    add(font);
    const unsigned int texture = font.texture();
    ASSERT_TRUE(loadAgain(font, "one"));
    EXPECT_TRUE(drawsBatch(font));
    ASSERT_TRUE(load(font, "other", wholeText("/usr/share/fonts/truetype/dejavu/DejaVuSerif.ttf")));
    EXPECT_FALSE(drawsBatch(font)) << "its coordinates are those of the other atlas";
    EXPECT_TRUE(draws(font));
    ASSERT_TRUE(loadAgain(font, "one"));
    EXPECT_EQ(font.texture(), texture);
    ASSERT_TRUE(loadAgain(font, "other"));
    font.clear();
    EXPECT_FALSE(glIsTexture(texture)) << "goes with the last";
    ASSERT_TRUE(load(font, "one", sans)) << "made again";
    EXPECT_TRUE(draws(font));
}

TEST_F(FontLoadTest, RefusedFontsStayEmptyUnderTheirName) {
    const auto noFace = [](int error) {
        return "FT_New_Memory_Face failed " + std::to_string(error) + " ! \n";
    };
    const struct {
        const char* name;
        std::string bytes;
        std::string line;
    } rows[] = {{"bitmaps only", bitmaps, "FT_Set_Pixel_Sizes failed !\n"},
                {"half", half, noFace(ReferenceFont(half).error())},
                {"text", text, noFace(ReferenceFont(text).error())},
                {"claims too much memory", wholeText(oddFonts + "lying.woff"), noFace(64)}};
    TextureFontSdf font;
    for (const auto& row : rows) {
        ASSERT_TRUE(load(font, "good", sans));
        EXPECT_EQ(refusal([&] { return load(font, row.name, row.bytes); }), row.line);
        EXPECT_EQ(font.texture(), 0U) << row.name;
        EXPECT_FALSE(draws(font)) << row.name;
        silently([&] { EXPECT_TRUE(load(font, row.name, row.bytes)) << row.name; });
        EXPECT_FALSE(draws(font)) << row.name;
    }
    const struct {
        const char *name, *bytes;
        int size;
    } none[] = {{"null", nullptr, 10}, {"negative", "x", -1}, {nullptr, sans.data(), 9}};
    for (const auto& row : none) {
        EXPECT_EQ(refusal([&] { return font.loadData(row.name, row.bytes, row.size, 30); }),
                  noFace(6));
    }
    ASSERT_TRUE(loadAgain(font, "good"));
}

TEST_F(FontLoadTest, SurvivesFontsWithoutLatinAndWithHugeGlyphs) {
    const std::string sparse = wholeText(oddFonts + "a.ttf");
    std::string huge = sparse;
    const std::size_t entry = huge.find("head");
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(huge.at(at)); };
    const std::size_t head = byte(entry + 10) * 256U + byte(entry + 11);
    huge.replace(head + 18, 2, std::string("\0\x10", 2));  // 16 units an em
    TextureFontSdf font;
    ASSERT_TRUE(load(font, "sparse", sparse));
    EXPECT_TRUE(draws(font));
    TextureFontSdf other;
    captureStdout([&] { load(other, "huge", huge); });
    draws(other);
}

}  // namespace
