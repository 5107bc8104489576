// What the stroke font draws, read back.
#include <Orlek/OpenGL/VectorFont.h>

#include "FontPicture.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;

// Four pixels for a font unit of the built-in set, so that a capital has 35.7 x 54.8 pixels.
constexpr double unit = 4.0;
constexpr double size = 15.97 * unit;
constexpr double advance = 13.120160 * unit;

class VectorFontTest : public FontTest {
protected:
    void SetUp() override {
        GlTest::SetUp();
        glDisable(GL_LINE_SMOOTH);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    }

    static FontPicture atOnce(VectorFont& font, const std::string& text, double x, double y,
                              VectorFont::Alignment align = VectorFont::BOTTOM_LEFT) {
        return drawn([&] { font.renderFont(x, y, text, size, align); });
    }

    static void add(VectorFont& font, const std::string& text, float x, float y,
                    VectorFont::Alignment align = VectorFont::BOTTOM_LEFT) {
        font.addText(text, placedAt(x, y), size, align);
    }

    static void expectBox(const FontPicture& picture, double left, double bottom, double right,
                          double top) {
        const Box box(picture);
        EXPECT_NEAR(box.left, left, 1.5);
        EXPECT_NEAR(box.bottom, bottom, 1.5);
        EXPECT_NEAR(box.right, right, 1.5);
        EXPECT_NEAR(box.top, top, 1.5);
    }

    VectorFont font;
};

TEST_F(VectorFontTest, PlacesNineAnchorsInBothWays) {
    const double w = 3 * advance;
    const double h = size;
    for (int i = 0; i < 10; ++i) {
        SCOPED_TRACE(i);
        const auto align = static_cast<VectorFont::Alignment>(i);
        // The anchor is chosen so that the text comes to lie at (10, 20).
        const double x = 10 + w * shareLeftOf(i);
        const double y = 20 + h * shareBelow(i);
        const FontPicture picture = atOnce(font, "AHA", x, y, align);
        expectBox(picture, 10, 20, 10 + 2 * advance + 8.924760 * unit, 20 + 13.692291 * unit);
        font.clearVertex();
        add(font, "AHA", static_cast<float>(x), static_cast<float>(y), align);
        EXPECT_LE(batchOf(font).distance(picture), 4);
    }
}

TEST_F(VectorFontTest, SkipsBytesWithoutACharacter) {
    const FontPicture two = atOnce(font, "HI", 10, 20);
    EXPECT_EQ(atOnce(font, "\xc0H\xff\xe4I\x80", 10, 20).distance(two), 0);
    const std::string nul("A\0H", 3);
    EXPECT_EQ(atOnce(font, nul, 10, 20).distance(atOnce(font, "A H", 10, 20)), 0);
}

TEST_F(VectorFontTest, UsesColourAndWidthOfTheMomentOfDrawing) {
    add(font, "L", 60, 20);
    font.setColor({0.0F, 1.0F, 0.5F, 1.0F});
    font.setLineWidth(5.0);
    font.render();
    EXPECT_EQ(row(50, 50, 70), ".......######.......");
    const Pixel stem = pixel(60, 50);
    EXPECT_EQ(stem[0], 0);
    EXPECT_EQ(stem[1], 255);
    EXPECT_NEAR(stem[2], 128, 1);
    wipe();
    font.setLineWidth(1.0);
    font.render();
    EXPECT_EQ(row(50, 50, 70), ".........##.........");
}

TEST_F(VectorFontTest, LeavesTheStateAsEachWayOfDrawingSays) {
    glBlendFunc(GL_ONE, GL_ZERO);
    MatrixSet({{2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}});
    for (int i = 0; i < 40; ++i) {
        MatrixPush();  // until the stack is full
    }
    silently([&] { font.renderFont(0.1, 0.2, "A", 0.1, VectorFont::CENTER); });
    EXPECT_EQ(MatrixGet().m[0], 2.0F);
    EXPECT_EQ(MatrixGet().m[12], 0.0F);
    for (int i = 0; i < 31; ++i) {
        MatrixLoadIdent();
        MatrixPop();
    }
    EXPECT_EQ(MatrixGet().m[0], 2.0F) << "the text has left the stack as high as it was";
    EXPECT_TRUE(glIsEnabled(GL_BLEND));
    EXPECT_TRUE(glIsEnabled(GL_LINE_SMOOTH));
    EXPECT_EQ(integer(GL_BLEND_SRC), GL_ONE);
    GLfloat lineWidth = 0.0F;
    glGetFloatv(GL_LINE_WIDTH, &lineWidth);
    EXPECT_EQ(lineWidth, 1.5F);

    glEnable(GL_LINE_STIPPLE);
    font.setLineWidth(2.5);
    add(font, "A", 0, 0);
    silently([&] { font.render(); });
    EXPECT_TRUE(glIsEnabled(GL_BLEND));
    EXPECT_TRUE(glIsEnabled(GL_LINE_STIPPLE)) << "the stipple is the application's";
    EXPECT_FALSE(glIsEnabled(GL_LINE_SMOOTH));
    EXPECT_EQ(integer(GL_PRIMITIVE_RESTART_INDEX), -1);
    EXPECT_EQ(integer(GL_BLEND_SRC), GL_SRC_ALPHA);
    EXPECT_EQ(integer(GL_BLEND_DST), GL_ONE_MINUS_SRC_ALPHA);
    glGetFloatv(GL_LINE_WIDTH, &lineWidth);
    EXPECT_EQ(lineWidth, 2.5F);
    glDisable(GL_LINE_STIPPLE);
}

TEST_F(VectorFontTest, StartsAnewAfterClearing) {
    add(font, "", 10, 20);
    EXPECT_TRUE(batchOf(font).blank());
    add(font, "old", 10, 20);
    const FontPicture old = batchOf(font);
    EXPECT_FALSE(old.blank());
    font.clear();
    EXPECT_LE(atOnce(font, "old", 10, 20).distance(old), 4);
    EXPECT_EQ(batchOf(font).distance(old), 0) << "both ways from one object";
    font.clearVertex();
    EXPECT_TRUE(batchOf(font).blank());
}

TEST_F(VectorFontTest, DrawsASetOfTheApplication) {
    // Code 0 is blank, code 1 a bar 10 units high; the pen moves by 5 units.
    const CHARDEF_STRUCT bars[] = {{0, 0, 1}, {0, 0, 3}, {1, 0, 1}, {1, 10, 3}};
    CHARSET_STRUCT own{{0, 0}, 2, {}, 5.0F, bars};
    silently([&] {
        font.vectorFontInit(nullptr);  // no set yet
        font.vectorFontInit(&own);
    });
    own.records = nullptr;  // needed during the call only
    const std::string text("\1\0\1A\1", 5);
    const FontPicture picture = atOnce(font, text, 10, 20);
    expectBox(picture, 10 + 1 * unit, 20, 10 + 21 * unit, 20 + 10 * unit);
    EXPECT_EQ(row(40, 0, 70),
              ".............##......................................##...............");
    add(font, text, 10, 20);
    EXPECT_LE(batchOf(font).distance(picture), 4);
    CHARSET_STRUCT nothing{{0, 0}, 0, {}, 1.0F, nullptr};
    font.vectorFontInit(&nothing);
    EXPECT_EQ(atOnce(font, text, 10, 20).distance(picture), 0) << "the first set stays";
    VectorFont empty;
    empty.vectorFontInit(&nothing);
    EXPECT_TRUE(atOnce(empty, "A", 10, 20).blank());
    VectorFont builtIn;
    const FontPicture letter = atOnce(builtIn, "A", 10, 20);
    builtIn.vectorFontInit(&own);
    EXPECT_EQ(atOnce(builtIn, "A", 10, 20).distance(letter), 0);
}

TEST_F(VectorFontTest, ReportsALineWidthThatIsNone) {
    add(font, "A", 1, 1);
    font.setLineWidth(0.0);
    const std::string line = "Error <VectorFont> <Nix> 1281\n";
    provokingErrors([&] { EXPECT_EQ(captureStdout([&] { font.render(); }), line); });
    provokingErrors([&] {
        EXPECT_EQ(captureStdout([&] { font.renderFont("A", size, VectorFont::CENTER); }), line);
    });
}

TEST(OppositeColor, IsTheGreyOppositeTheRed) {
    const auto opposite = getOppositeColor({0.25F, 0.9F, 0.1F, 0.5F});
    EXPECT_EQ(opposite.x, 0.75F);
    EXPECT_EQ(opposite.y, 0.75F);
    EXPECT_EQ(opposite.z, 0.75F);
    EXPECT_EQ(opposite.w, 0.5F);
}

}  // namespace
