// What the distance-field font draws: edges, outlines, sizes, anchors.
#include <Orlek/OpenGL/TextureFontSdf.h>

#include "FontPicture.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;

class TextureFontSdfTest : public FontTest {
protected:
    void SetUp() override {
        GlTest::SetUp();
        ASSERT_TRUE(font.load(sansFont, 50));
    }

    FontPicture atOnce(const std::string& text, double x, double y,
                       TextureFontSdf::Alignment align = TextureFontSdf::BOTTOM_LEFT) {
        return drawn([&] { font.renderFont(x, y, text, align); });
    }

    FontPicture batched(const std::string& text, float x, float y,
                        TextureFontSdf::Alignment align = TextureFontSdf::BOTTOM_LEFT) {
        font.clearVertex();
        font.addText(text, placedAt(x, y), align);
        return batchOf(font);
    }

    TextureFontSdf font;
};

TEST_F(TextureFontSdfTest, EdgesStaySharpAtEverySize) {
    const float stem = 4.93F;  // pixels of the I at a size of 50
    for (const int size : {12, 50, 400}) {
        font.setSize(size);
        FontPicture picture = atOnce("I", 30, size == 400 ? -100 : 50 - size / 3);
        int partly = 0;
        float covered = 0.0F;
        for (int x = 0; x < width; ++x) {
            const int value = picture.at(x, 50);
            partly += value > 12 && value < 243 ? 1 : 0;
            covered += static_cast<float>(value) / 255.0F;
        }
        EXPECT_LE(partly, 4) << "two edges of two pixels, at size " << size;
        EXPECT_NEAR(covered * 50.0F / static_cast<float>(size), stem, size == 12 ? 1.5F : 0.5F);
    }
}

TEST_F(TextureFontSdfTest, OutlineIsEvenOnAllSides) {
    font.setSize(200);
    const Box bar(atOnce("-", 80, 0));
    font.setColor({0.0F, 1.0F, 0.0F, 1.0F});
    font.setOutlineColor({1.0F, 0.0F, 0.0F, 1.0F});
    font.setOutlineWidth(0.3F);
    FontPicture red = atOnce("-", 80, 0);
    const Box outline(red);
    constexpr double expected = 0.3 * 16.0 * 200.0 / 50.0;
    EXPECT_NEAR(bar.left - outline.left, expected, 1.0);
    EXPECT_NEAR(outline.right - bar.right, expected, 1.0);
    EXPECT_NEAR(bar.bottom - outline.bottom, expected, 1.0);
    EXPECT_NEAR(outline.top - bar.top, expected, 1.0);
    int inRow = 0;
    for (int x = 0; x < width; ++x) {
        inRow += red.at(x, (bar.bottom + bar.top) / 2) > 127 ? 1 : 0;
    }
    EXPECT_NEAR(inRow, 2 * expected, 2.0) << "the bar itself is green";
    int inColumn = 0;
    for (int y = 0; y < height; ++y) {
        inColumn += red.at((bar.left + bar.right) / 2, y) > 127 ? 1 : 0;
    }
    EXPECT_NEAR(inColumn, 2 * expected, 2.0);
}

TEST_F(TextureFontSdfTest, OutlinesShowNothingOfNeighboursInTheAtlas) {
    font.setSize(40);
    font.setOutlineColor({1.0F, 1.0F, 1.0F, 1.0F});
    for (int code = 33; code < 256; ++code) {
        const std::string text(1, static_cast<char>(code));
        font.setOutlineWidth(0.0F);
        const Box glyph(atOnce(text, 80, 40));
        font.setOutlineWidth(0.4F);
        const Box outlined(atOnce(text, 80, 40));
        if (glyph.right < 0) {
            EXPECT_LT(outlined.right, 0) << code;
            continue;
        }
        constexpr int most = 7;  // 0.4 x 16 x 40 / 50 = 5.1 and what the edges are rounded by
        EXPECT_LE(outlined.top - glyph.top, most) << code;
        EXPECT_LE(glyph.bottom - outlined.bottom, most) << code;
        EXPECT_LE(glyph.left - outlined.left, most) << code;
        EXPECT_LE(outlined.right - glyph.right, most) << code;
    }
}

TEST_F(TextureFontSdfTest, PlacesNineAnchors) {
    const std::string text = "Mxg";
    const ReferenceFont reference(wholeText(sansFont), 50);
    const double w = reference.width(text);
    const double lineHeight = reference.lineHeight();
    const double textHeight = reference.lineHeight(text);
    constexpr double scale = 0.5;
    font.setSize(25);
    const Box origin(atOnce(text, 100, 50));
    for (int i = 0; i < 10; ++i) {
        const auto align = static_cast<TextureFontSdf::Alignment>(i);
        const double across = shareLeftOf(i);
        const double down = shareBelow(i);
        const Box once(atOnce(text, 100, 50, align));
        EXPECT_NEAR(once.left - origin.left, -across * w * scale, 1) << i;
        EXPECT_NEAR(once.top - origin.top, -down * lineHeight * scale, 1);
        const Box batch(batched(text, 100, 50, align));
        EXPECT_EQ(batch.left, once.left) << i;
        EXPECT_NEAR(batch.top - origin.top, -down * textHeight * scale, 1);
    }
}

TEST_F(TextureFontSdfTest, BatchAndSingleTextsGiveTheSamePixels) {
    font.setSize(30);
    font.setOutlineWidth(0.2F);
    font.setOutlineColor({0.0F, 1.0F, 0.0F, 1.0F});
    const std::string text = "Sdf \x01|\xe4";
    const FontPicture once = atOnce(text, 10, 20);
    EXPECT_FALSE(once.blank());
    EXPECT_LE(batched(text, 10, 20).distance(once), 1);
    EXPECT_EQ(integer(GL_TEXTURE_BINDING_2D), 0);
    EXPECT_TRUE(atOnce("", 10, 20).blank());
    EXPECT_TRUE(batched("", 10, 20).blank());
}

TEST_F(TextureFontSdfTest, AFailedLoadLeavesNoQuadsOfTheFontBefore) {
    const std::string bytes = wholeText("/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf");
    const auto size = static_cast<int>(bytes.size());
    TextureFontSdf bold;
    ASSERT_TRUE(bold.loadData("bold", bytes.data(), size, 50));
    bold.clear();
    captureStdout([&] { EXPECT_FALSE(font.loadData("bold", "no font", 7, 50)); });
    ASSERT_TRUE(bold.loadData("bold", bytes.data(), size, 50));
    const FontPicture expected = drawn([&] { bold.renderFont(10, 20, "W", bold.BOTTOM_LEFT); });
    EXPECT_EQ(atOnce("W", 10, 20).distance(expected), 0);
}

}  // namespace
