// What the font draws, pixel by pixel beside FreeType's own bitmaps.
#include <Orlek/OpenGL/TextureFont.h>

#include "FontPicture.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;

class TextureFontTest : public FontTest {
protected:
    static constexpr int pixelSize = 16;

    void SetUp() override {
        GlTest::SetUp();
        ASSERT_TRUE(font.load(sansFont, pixelSize));
    }

    static void add(TextureFont& drawing, const std::string& text, float y,
                    TextureFont::Alignment alignment = TextureFont::BOTTOM_LEFT) {
        drawing.addText(text, placedAt(100, y), alignment);
    }

    /// Drawn at once.
    void write(const std::string& text, double y) {
        font.renderFont(100.0, y, text, TextureFont::BOTTOM_LEFT);
    }

    TextureFont font;
};

TEST_F(TextureFontTest, DrawsEveryCharacterWithTheCoverageThatFreeTypeRenders) {
    for (const int size : {1, 7, 12, 33, pixelSize}) {
        ASSERT_TRUE(font.load(sansFont, size));
        const ReferenceFont reference(wholeText(sansFont), size);
        int inked = 0;
        for (int code = 32; code < 256; ++code) {
            const std::string text(1, static_cast<char>(code));
            FontPicture expected(width, height);
            drawReference(expected, reference, text, 100, 40);
            const FontPicture picture = drawn([&] { write(text, 40); });
            EXPECT_EQ(picture.distance(expected), 0) << code << " in " << size;
            inked += picture.blank() ? 0 : 1;
        }
        EXPECT_GE(inked, 220) << size;  // all but the spaces and the soft hyphen
    }
    const std::string controls = std::string("a\x01") + "b\n" + '\0' + "c";
    EXPECT_EQ(drawn([&] { write(controls, 40); }).distance(drawn([&] { write("a b  c", 40); })), 0);
}

TEST_F(TextureFontTest, PlacesNineAnchors) {
    const ReferenceFont reference(wholeText(sansFont), pixelSize);
    const std::string text = "Qy\xc4|hM";
    const int w = reference.width(text);
    const int h = reference.lineHeight();
    ASSERT_TRUE(w % 2 == 0 && h % 2 == 0) << "half a pixel would blur";
    for (int i = 0; i < 10; ++i) {
        const auto align = static_cast<TextureFont::Alignment>(i);
        const int x = 100 - static_cast<int>(w * shareLeftOf(i));
        const int y = 50 - static_cast<int>(h * shareBelow(i));
        FontPicture expected(width, height);
        drawReference(expected, reference, text, x, y);
        const FontPicture atOnce = drawn([&] { font.renderFont(100.0, 50.0, text, align); });
        EXPECT_LE(atOnce.distance(expected), 1) << i;
        font.clearVertex();
        add(font, "", 10);
        add(font, text, 50, align);
        EXPECT_EQ(batchOf(font).distance(atOnce), 0) << i;
    }
    EXPECT_EQ(integer(GL_TEXTURE_BINDING_2D), 0);
    EXPECT_EQ(integer(GL_PRIMITIVE_RESTART_INDEX), -1);
}

TEST_F(TextureFontTest, UsesTheColourOfTheMomentOfDrawing) {
    add(font, "|||", 50, TextureFont::CENTER);
    font.setColor({0.0F, 1.0F, 0.5F, 1.0F});
    font.render();
    int greenest = 0;
    for (int x = 0; x < width; ++x) {
        const Pixel p = pixel(x, 50);
        EXPECT_EQ(p[0], 0);
        EXPECT_NEAR(p[2] * 2, p[1], 2);
        greenest = std::max(greenest, p[1]);
    }
    EXPECT_GT(greenest, 200);
}

TEST_F(TextureFontTest, ClearedFontsStartAnew) {
    font.clear();
    add(font, "no quads", 50);
    EXPECT_TRUE(batchOf(font).blank());
    EXPECT_TRUE(drawn([&] { write("nothing", 20); }).blank());
    ASSERT_TRUE(font.load(sansFont, pixelSize));
    EXPECT_TRUE(batchOf(font).blank());
    add(font, "again", 50);
    const FontPicture atOnce = drawn([&] { write("again", 50); });
    EXPECT_FALSE(atOnce.blank());
    EXPECT_EQ(batchOf(font).distance(atOnce), 0);
}

}  // namespace
