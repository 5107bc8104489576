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
    const int before = liveNames();
    Lines lines;
    LineLoops loops;
    render(lines);
    render(loops);
    lines.addVertex(Point(10, 10));
    loops.addVertex(Point(10, 10));
    loops.addLineLoop(Points());
    render(lines);
    render(loops);
    EXPECT_EQ(liveNames(), before);
    EXPECT_EQ(drawnPixels(), 0);
}

TEST_F(LinesTest, LieWhereTheMatrixPutsThem) {
    Lines lines = horizontal(10.5F, 20.5F, 30.5F);
    lines.setColor({0.2F, 0.4F, 0.6F, 1.0F});
    render(lines);
    EXPECT_EQ(row(30, 8, 23), "..##########...");
    EXPECT_EQ(drawnPixels(), 10);
    EXPECT_EQ(pixel(15, 30), (Pixel{51, 102, 153, 255}));

    glClear(GL_COLOR_BUFFER_BIT);
    MatrixTranslate(100, 7, 0);
    MatrixRotate(90, 0, 0, 1);
    render(lines);
    EXPECT_EQ(column(69, 15, 30), "..##########...");
    EXPECT_EQ(drawnPixels(), 10);
}

TEST_F(LinesTest, DrawSegmentsForPairsOfVertices) {
    Lines lines = horizontal(10.5F, 20.5F, 30.5F);
    lines.addVertex(Orlek::Math::Vector3<float>(10.5F, 40.5F, 0.5F));
    render(lines);
    EXPECT_EQ(drawnPixels(), 10);  // the odd vertex is not drawn
    lines.addVertex(Orlek::Math::Vector4<float>(20.5F, 40.5F, -0.5F, 7.0F));
    render(lines);
    EXPECT_EQ(row(40, 8, 23), "..##########...");
    EXPECT_EQ(drawnPixels(), 20);

    lines.clearVertex();
    glClear(GL_COLOR_BUFFER_BIT);
    render(lines);
    EXPECT_EQ(drawnPixels(), 0);
}

TEST_F(LinesTest, SetRectDrawsTheTwoVerticalSides) {
    Lines lines = horizontal(0, 1, 0);
    lines.setRect(100, 50);
    MatrixTranslate(10.5, 20.5, 0);
    render(lines);
    EXPECT_EQ(column(10, 18, 73), ".." + std::string(50, '#') + "...");
    EXPECT_EQ(column(110, 18, 73), ".." + std::string(50, '#') + "...");
    EXPECT_EQ(drawnPixels(), 100);
}

TEST_F(LinesTest, AreAsWideAsSet) {
    Lines lines = horizontal(10.5F, 60.5F, 40.5F);
    for (const int lineWidth : {1, 3, 5, 8}) {
        glClear(GL_COLOR_BUFFER_BIT);
        lines.setLineWidth(static_cast<float>(lineWidth));
        render(lines);
        EXPECT_EQ(drawnPixels(), 50 * lineWidth) << lineWidth;
    }
    lines.setLineWidth(5);
    glClear(GL_COLOR_BUFFER_BIT);
    render(lines);
    EXPECT_EQ(column(30, 35, 46), "...#####...");
}

TEST_F(LinesTest, SmoothEdgesAndBlendOnlyWithAntialiasing) {
    const auto grey = [] {
        int count = 0;
        for (int x = 0; x < width; ++x) {
            for (int y = 0; y < height; ++y) {
                const int red = pixel(x, y)[0];
                count += red > 0 && red < 255 ? 1 : 0;
            }
        }
        return count;
    };
    Lines lines;
    lines.addVertex(Point(10.5F, 10.5F));
    lines.addVertex(Point(90.5F, 60.5F));
    render(lines);
    EXPECT_GT(grey(), 80);
    EXPECT_EQ(glIsEnabled(GL_BLEND), GL_TRUE);
    EXPECT_EQ(glIsEnabled(GL_LINE_SMOOTH), GL_FALSE);

    glClear(GL_COLOR_BUFFER_BIT);
    lines.setAntiAlias(false);
    lines.setColor({1, 1, 1, 0.5F});  // alpha has no effect without blending
    render(lines);
    EXPECT_EQ(grey(), 0);
    EXPECT_EQ(drawnPixels(), 80);
    EXPECT_EQ(glIsEnabled(GL_BLEND), GL_FALSE);
}

TEST_F(LinesTest, BlendBySourceAlpha) {
    Lines lines = horizontal(10.5F, 40.5F, 40.5F);
    lines.setAntiAlias(true);
    lines.setLineWidth(6);
    lines.setColor({1, 0, 0, 0.5F});
    glClearColor(0, 0, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    render(lines);
    const Pixel p = pixel(25, 40);
    EXPECT_NEAR(p[0], 128, 1);
    EXPECT_NEAR(p[2], 128, 1);
}

TEST_F(LinesTest, StippleOneBitAPixelFromBitZero) {
    Lines lines = horizontal(10.5F, 58.5F, 40.5F);
    lines.setStipple(0x00FF);
    render(lines);
    EXPECT_EQ(row(40, 10, 58), "########........########........########........");
    EXPECT_EQ(glIsEnabled(GL_LINE_STIPPLE), GL_FALSE);

    glClear(GL_COLOR_BUFFER_BIT);
    lines.setStipple(0x8005);
    render(lines);
    EXPECT_EQ(row(40, 10, 42), "#.#............##.#............#");

    glClear(GL_COLOR_BUFFER_BIT);
    lines.setStipple(0);
    render(lines);
    EXPECT_EQ(drawnPixels(), 48);
}

TEST_F(LinesTest, KeepsBothHalvesOfTheStipple) {
    Orlek::Detail::LineStyle style;
    style.setPattern(0x80FF);
    EXPECT_EQ(static_cast<unsigned>(style.stipple), 0x80FF80FFU);
    style.setPattern(0);
    EXPECT_EQ(style.stipple, 0);
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
    for (const GLenum capability :
         std::array<GLenum, 3>{GL_LINE_STIPPLE, GL_LINE_SMOOTH, GL_PRIMITIVE_RESTART}) {
        EXPECT_EQ(glIsEnabled(capability), GL_FALSE) << capability;
    }
}

TEST_F(LinesTest, DrawAgainAfterClear) {
    const int before = liveNames();
    Lines lines = horizontal(10.5F, 20.5F, 30.5F);
    LineLoops loops;
    loops.setAntiAlias(false);
    loops.addLineLoop(square);
    for (int i = 0; i < 2; ++i) {
        glClear(GL_COLOR_BUFFER_BIT);
        render(lines);
        render(loops);
        EXPECT_EQ(drawnPixels(), 10 + squarePixels);
        EXPECT_EQ(liveNames() - before, 2 + 4);
        lines.clear();
        loops.clear();
        EXPECT_EQ(liveNames(), before);
        lines.clear();
        loops.clear();
    }
}

TEST_F(LinesTest, CopiesShareUntilOneChanges) {
    const int before = liveNames();
    {
        Lines first = horizontal(10.5F, 20.5F, 30.5F);
        render(first);
        Lines second = first;
        second.setColor({0, 1, 0, 1});
        render(second);
        EXPECT_EQ(liveNames() - before, 2);
        EXPECT_EQ(pixel(15, 30), (Pixel{0, 255, 0, 255}));

        second.addVertex(Point(10.5F, 50.5F));
        second.addVertex(Point(20.5F, 50.5F));
        render(second);
        EXPECT_EQ(liveNames() - before, 4);
        glClear(GL_COLOR_BUFFER_BIT);
        render(first);
        EXPECT_EQ(drawnPixels(), 10);

        Lines third = second;
        second.clear();  // the third still draws with the objects
        EXPECT_EQ(liveNames() - before, 4);
        glClear(GL_COLOR_BUFFER_BIT);
        render(third);
        render(second);
        EXPECT_EQ(drawnPixels(), 20);
        EXPECT_EQ(liveNames() - before, 6);

        third = first;  // the objects of the last owner wait for the next upload
        first.addVertex(Point(1, 1));
        render(first);
        EXPECT_EQ(liveNames() - before, 6);
    }
    EXPECT_EQ(liveNames(), before);
}

// A width that OpenGL refuses draws with the width before; nothing is printed, because uploading
// the matrix discards the error.
TEST_F(LinesTest, SurviveNonsenseValues) {
    Lines lines = horizontal(10.5F, 20.5F, 30.5F);
    lines.setLineWidth(2);
    render(lines);
    lines.setLineWidth(-1);
    lines.addVertex(Point(std::nanf(""), 1));
    lines.addVertex(Point(INFINITY, -INFINITY));
    OrlekTest::captureStderr([&] { render(lines); });
    EXPECT_EQ(drawnPixels(), 20);
}

}  // namespace
