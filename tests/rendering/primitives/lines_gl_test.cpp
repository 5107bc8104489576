// Separate lines, and what all line classes have in common, on pixels read back. Coordinates are
// pixels (the fixture's matrix); centres of pixels lie at .5.
#include <Orlek/OpenGL/LineStyle.h>

#include <array>
#include <cmath>

#include "LinesTest.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;

TEST_F(LinesTest, NeedTwoVertices) {
    Lines lines;
    LineLoops loops;
    EXPECT_EQ(pixelsOf(lines, loops), 0);
    lines.addVertex(Point(10, 10));
    loops.addVertex(Point(10, 10));
    loops.addLineLoop(Points());
    EXPECT_EQ(pixelsOf(lines, loops), 0);
    EXPECT_EQ(newNames(), 0);
}

TEST_F(LinesTest, LieWhereTheMatrixPutsThem) {
    Lines lines = horizontal(10.5F, 20.5F, 30.5F);
    lines.setColor({0.2F, 0.4F, 0.6F, 1.0F});
    EXPECT_EQ(pixelsOf(lines), 10);
    EXPECT_EQ(row(30, 8, 23), "..##########...");
    EXPECT_EQ(pixel(15, 30), (Pixel{51, 102, 153, 255}));
    MatrixTranslate(100, 7, 0);
    MatrixRotate(90, 0, 0, 1);
    EXPECT_EQ(pixelsOf(lines), 10);
    EXPECT_EQ(column(69, 15, 30), "..##########...");
}

TEST_F(LinesTest, DrawSegmentsForPairsOfVertices) {
    Lines lines = horizontal(10.5F, 20.5F, 30.5F);
    lines.addVertex(Orlek::Math::Vector3<float>(10.5F, 40.5F, 0.5F));
    EXPECT_EQ(pixelsOf(lines), 10) << "the odd vertex is not drawn";
    lines.addVertex(Orlek::Math::Vector4<float>(20.5F, 40.5F, -0.5F, 7.0F));
    EXPECT_EQ(pixelsOf(lines), 20);
    EXPECT_EQ(row(40, 8, 23), "..##########...");
    lines.clearVertex();
    EXPECT_EQ(pixelsOf(lines), 0);
    lines.setRect(100, 50);  // the two vertical sides
    MatrixTranslate(10.5, 20.5, 0);
    EXPECT_EQ(pixelsOf(lines), 100);
    EXPECT_EQ(column(10, 18, 73), ".." + std::string(50, '#') + "...");
    EXPECT_EQ(column(110, 18, 73), ".." + std::string(50, '#') + "...");
}

TEST_F(LinesTest, AreAsWideAsSet) {
    Lines lines = horizontal(10.5F, 60.5F, 40.5F);
    for (const int lineWidth : {8, 1, 5}) {
        lines.setLineWidth(static_cast<float>(lineWidth));
        EXPECT_EQ(pixelsOf(lines), 50 * lineWidth);
    }
    EXPECT_EQ(column(30, 35, 46), "...#####...");
    // OpenGL refuses this width and draws with the one before; nothing is printed, because
    // uploading the matrix discards the error.
    lines.setLineWidth(-1);
    lines.addVertex(Point(std::nanf(""), 1));
    lines.addVertex(Point(INFINITY, -INFINITY));
    captureStderr([&] { EXPECT_EQ(pixelsOf(lines), 50 * 5); });
}

TEST_F(LinesTest, SmoothEdgesAndBlendOnlyWithAntialiasing) {
    const auto grey = [] {
        int count = 0;
        for (int i = 0; i < width * height; ++i) {
            const int red = pixel(i % width, i / width)[0];
            count += red > 0 && red < 255 ? 1 : 0;
        }
        return count;
    };
    Lines lines;
    lines.addVertex(Point(10.5F, 10.5F));
    lines.addVertex(Point(90.5F, 60.5F));
    render(lines);
    EXPECT_GT(grey(), 80);
    EXPECT_EQ(glIsEnabled(GL_BLEND), GL_TRUE);

    lines.setColor({1, 1, 1, 0.5F});
    lines.setLineWidth(6);
    wipe();
    render(lines);
    EXPECT_NEAR(pixel(50, 35)[0], 128, 1);

    lines.setAntiAlias(false);  // and alpha has no effect
    lines.setLineWidth(1);
    EXPECT_EQ(pixelsOf(lines), 80);
    EXPECT_EQ(grey(), 0);
    EXPECT_EQ(glIsEnabled(GL_BLEND), GL_FALSE);
}

TEST_F(LinesTest, StippleOneBitAPixelFromBitZero) {
    Lines lines = horizontal(10.5F, 58.5F, 40.5F);
    lines.setStipple(0x00FF);
    render(lines);
    EXPECT_EQ(row(40, 10, 58), "########........########........########........");
    lines.setStipple(0x8005);
    wipe();
    render(lines);
    EXPECT_EQ(row(40, 10, 42), "#.#............##.#............#");
    lines.setStipple(0);
    EXPECT_EQ(pixelsOf(lines), 48);
    Orlek::Detail::LineStyle style;
    style.setPattern(0x80FF);
    EXPECT_EQ(static_cast<unsigned>(style.stipple), 0x80FF80FFU) << "both halves";
}

TEST_F(LinesTest, LeaveWidthAsSetAndTheRestOff) {
    LineLoops loops;
    loops.addLineLoop(square);
    loops.setLineWidth(3);
    loops.setStipple(0xF0F0);
    render(loops);
    EXPECT_EQ(integer(GL_LINE_WIDTH), 3);
    EXPECT_EQ(integer(GL_BLEND_SRC), GL_SRC_ALPHA);
    EXPECT_EQ(integer(GL_BLEND_DST), GL_ONE_MINUS_SRC_ALPHA);
    for (const int capability : {GL_LINE_STIPPLE, GL_LINE_SMOOTH, GL_PRIMITIVE_RESTART}) {
        EXPECT_EQ(glIsEnabled(static_cast<GLenum>(capability)), GL_FALSE) << capability;
    }
}

}  // namespace
