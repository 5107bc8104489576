// What the font draws, pixel by pixel beside FreeType's own bitmaps.
#include <Orlek/OpenGL/TextureFont.h>

#include <optional>

#include "FontPicture.h"
#include "support/GlTest.h"

namespace {

using namespace Orlek::OpenGL;
using OrlekTest::drawReference;
using OrlekTest::FontPicture;
using OrlekTest::ReferenceFont;
using OrlekTest::sansFont;

constexpr Orlek::Math::Matrix4<float> identity{{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}};

Orlek::Math::Matrix4<float> translation(float x, float y) {
    return {{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, 0, 1}};
}

class TextureFontTest : public OrlekTest::GlTest {
protected:
    static constexpr int pixelSize = 16;

    void SetUp() override {
        GlTest::SetUp();
        ASSERT_TRUE(font.load(sansFont, pixelSize));
    }

    /// The picture that a function draws on black.
    template <typename Function>
    static FontPicture drawn(Function&& draw) {
        glClear(GL_COLOR_BUFFER_BIT);
        draw();
        return OrlekTest::readPicture(width, height);
    }

    TextureFont font;
};

TEST_F(TextureFontTest, DrawsEveryCharacterWithTheCoverageThatFreeTypeRenders) {
    const ReferenceFont reference(sansFont, pixelSize);
    int inked = 0;
    for (int code = 32; code < 256; ++code) {
        const std::string text(1, static_cast<char>(code));
        FontPicture expected(width, height);
        drawReference(expected, reference, text, 90, 40);
        const FontPicture picture =
            drawn([&] { font.renderFont(90.0, 40.0, text, TextureFont::BOTTOM_LEFT); });
        EXPECT_EQ(picture.distance(expected), 0) << code;
        inked += picture.blank() ? 0 : 1;
    }
    EXPECT_GE(inked, 220);  // all but the spaces and the soft hyphen
}

TEST_F(TextureFontTest, PlacesNineAnchors) {
    const ReferenceFont reference(sansFont, pixelSize);
    const std::string text = "Qy\xc4|hM";
    const int w = reference.width(text);
    const int h = reference.lineHeight();
    ASSERT_EQ(w % 2, 0) << "half a pixel would blur";
    ASSERT_EQ(h % 2, 0) << "half a pixel would blur";
    struct {
        int align;
        int x;
        int y;
    } const cases[] = {
        {TextureFont::TOP_LEFT, 0, -h},        {TextureFont::CENTER_LEFT, 0, -h / 2},
        {TextureFont::BOTTOM_LEFT, 0, 0},      {TextureFont::TOP_CENTER, -w / 2, -h},
        {TextureFont::CENTER, -w / 2, -h / 2}, {TextureFont::BOTTOM_CENTER, -w / 2, 0},
        {TextureFont::TOP_RIGHT, -w, -h},      {TextureFont::CENTER_RIGHT, -w, -h / 2},
        {TextureFont::BOTTOM_RIGHT, -w, 0},    {9, 0, 0}};
    for (const auto& expectation : cases) {
        const auto align = static_cast<TextureFont::Alignment>(expectation.align);
        FontPicture expected(width, height);
        drawReference(expected, reference, text, 100 + expectation.x, 50 + expectation.y);
        const FontPicture atOnce = drawn([&] { font.renderFont(100.0, 50.0, text, align); });
        EXPECT_LE(atOnce.distance(expected), 1) << expectation.align;
        font.clearVertex();
        font.addText(text, translation(100.0F, 50.0F), align);
        EXPECT_EQ(drawn([&] { font.render(); }).distance(atOnce), 0) << expectation.align;
    }
}

TEST_F(TextureFontTest, DrawsBatchAndSingleTextsFromOneObject) {
    font.addText("ab", translation(10.0F, 20.0F), TextureFont::BOTTOM_LEFT);
    font.addText("", translation(0.0F, 0.0F), TextureFont::CENTER);
    font.addText("cd", translation(10.0F, 60.0F), TextureFont::BOTTOM_LEFT);
    const FontPicture batch = drawn([&] { font.render(); });
    const FontPicture atOnce = drawn([&] {
        font.renderFont(10.0, 20.0, "ab", TextureFont::BOTTOM_LEFT);
        font.renderFont(10.0, 60.0, "", TextureFont::BOTTOM_LEFT);
        font.renderFont(10.0, 60.0, "cd", TextureFont::BOTTOM_LEFT);
    });
    EXPECT_FALSE(batch.blank());
    EXPECT_EQ(batch.distance(atOnce), 0);
    EXPECT_EQ(drawn([&] { font.render(); }).distance(batch), 0);
}

TEST_F(TextureFontTest, TransformsEachTextOfABatch) {
    // A quarter turn and twice the size: the columns of the text run upwards.
    const Orlek::Math::Matrix4<float> turned{{0, 2, 0, 0, -2, 0, 0, 0, 0, 0, 2, 0, 90, 7, 0, 1}};
    const FontPicture atOnce = drawn([&] {
        MatrixPush();
        MatrixMult(turned);
        font.renderFont("Turn", TextureFont::BOTTOM_LEFT);
        MatrixPop();
    });
    font.addText("Turn", turned, TextureFont::BOTTOM_LEFT);
    EXPECT_FALSE(atOnce.blank());
    EXPECT_EQ(drawn([&] { font.render(); }).distance(atOnce), 0);
}

TEST_F(TextureFontTest, DrawsControlBytesAsSpaces) {
    const FontPicture spaced =
        drawn([&] { font.renderFont(10.0, 20.0, "a b  c", TextureFont::BOTTOM_LEFT); });
    const FontPicture controls = drawn([&] {
        font.renderFont(10.0, 20.0, std::string("a\x01") + "b\n" + '\0' + "c",
                        TextureFont::BOTTOM_LEFT);
    });
    EXPECT_EQ(controls.distance(spaced), 0);
}

TEST_F(TextureFontTest, UsesTheColourOfTheMomentOfDrawing) {
    font.addText("\x7c\x7c\x7c", translation(50.0F, 50.0F), TextureFont::CENTER);
    font.setColor({0.0F, 1.0F, 0.5F, 1.0F});
    font.render();
    int greenest = 0;
    for (int x = 0; x < width; ++x) {
        const OrlekTest::Pixel p = pixel(x, 50);
        EXPECT_EQ(p[0], 0);
        EXPECT_NEAR(p[2] * 2, p[1], 2);
        greenest = std::max(greenest, p[1]);
    }
    EXPECT_GT(greenest, 200);
}

TEST_F(TextureFontTest, ClearVertexStartsTheBatchAnew) {
    font.addText("old text", identity, TextureFont::BOTTOM_LEFT);
    font.render();
    font.clearVertex();
    EXPECT_TRUE(drawn([&] { font.render(); }).blank());
    font.addText("new", translation(10.0F, 20.0F), TextureFont::BOTTOM_LEFT);
    const FontPicture batch = drawn([&] { font.render(); });
    const FontPicture atOnce =
        drawn([&] { font.renderFont(10.0, 20.0, "new", TextureFont::BOTTOM_LEFT); });
    EXPECT_EQ(batch.distance(atOnce), 0);
}

TEST_F(TextureFontTest, CopiesPartWhenOneChangesAndOutliveEachOther) {
    font.addText("shared", translation(10.0F, 20.0F), TextureFont::BOTTOM_LEFT);
    const FontPicture shared = drawn([&] { font.render(); });
    std::optional<TextureFont> copy(font);
    copy->addText("more", translation(10.0F, 60.0F), TextureFont::BOTTOM_LEFT);
    const FontPicture both = drawn([&] { copy->render(); });
    EXPECT_GT(both.distance(shared), 0);
    EXPECT_EQ(drawn([&] { font.render(); }).distance(shared), 0);
    TextureFont other;
    other = *copy;
    other = other;  // NOLINT(clang-diagnostic-self-assign-overloaded)
    copy.reset();
    font.clear();
    EXPECT_EQ(font.texture(), 0U);
    EXPECT_EQ(drawn([&] { other.render(); }).distance(both), 0);
}

TEST_F(TextureFontTest, ClearedFontDrawsNothingUntilItIsLoadedAgain) {
    font.addText("gone", translation(10.0F, 20.0F), TextureFont::BOTTOM_LEFT);
    font.render();
    font.clear();
    font.clear();
    font.addText("no quads", identity, TextureFont::BOTTOM_LEFT);
    EXPECT_TRUE(drawn([&] {
                    font.render();
                    font.renderFont("nothing", TextureFont::BOTTOM_LEFT);
                }).blank());
    ASSERT_TRUE(font.load(sansFont, pixelSize));
    EXPECT_TRUE(drawn([&] { font.render(); }).blank());
    font.addText("again", translation(10.0F, 20.0F), TextureFont::BOTTOM_LEFT);
    const FontPicture batch = drawn([&] { font.render(); });
    EXPECT_FALSE(batch.blank());
    EXPECT_EQ(batch.distance(
                  drawn([&] { font.renderFont(10.0, 20.0, "again", TextureFont::BOTTOM_LEFT); })),
              0);
}

TEST_F(TextureFontTest, LeavesTheStateThatDrawsExpect) {
    font.addText("state", translation(10.0F, 20.0F), TextureFont::BOTTOM_LEFT);
    silently([&] {
        font.render();
        font.renderFont(10.0, 20.0, "state", TextureFont::BOTTOM_LEFT);
    });
    EXPECT_TRUE(glIsEnabled(GL_BLEND));
    EXPECT_FALSE(glIsEnabled(GL_PRIMITIVE_RESTART));
    EXPECT_EQ(integer(GL_TEXTURE_BINDING_2D), 0);
    EXPECT_EQ(integer(GL_BLEND_SRC_RGB), GL_SRC_ALPHA);
    EXPECT_EQ(integer(GL_BLEND_DST_RGB), GL_ONE_MINUS_SRC_ALPHA);
    EXPECT_EQ(integer(GL_PRIMITIVE_RESTART_INDEX), -1);
}

}  // namespace
