// Lines and line loops on pixels read back. Coordinates are pixels (the fixture's matrix);
// centres of pixels lie at .5.
#include <Orlek/OpenGL/LineLoops.h>
#include <Orlek/OpenGL/Lines.h>

#include <cmath>
#include <optional>
#include <vector>

#include "support/GlTest.h"

namespace {

using namespace Orlek::OpenGL;
using Point = Orlek::Math::Vector2<float>;
using Points = std::vector<Point>;
using OrlekTest::liveNames;
using OrlekTest::Pixel;

class LinesTest : public OrlekTest::GlTest {
protected:
    static void render(Lines& lines) {
        silently([&] { lines.render(); });
    }
    static void render(LineLoops& loops, double scale = 1.0) {
        silently([&] { loops.render(scale); });
    }

    static Lines horizontal(float from, float to, float y) {
        Lines lines;
        lines.setAntiAlias(false);
        lines.addVertex(Point(from, y));
        lines.addVertex(Point(to, y));
        return lines;
    }
};

const Points square{{20.5F, 20.5F}, {60.5F, 20.5F}, {60.5F, 50.5F}, {20.5F, 50.5F}};

// Pixels of the outline of `square`.
constexpr int squarePixels = 2 * 40 + 2 * 30;

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

TEST_F(LinesTest, LoopsAreClosed) {
    LineLoops loops;
    loops.setAntiAlias(false);
    loops.addLineLoop(square);
    render(loops);
    EXPECT_EQ(drawnPixels(), squarePixels);
    EXPECT_EQ(row(20, 19, 63), "." + std::string(41, '#') + "..");
    EXPECT_EQ(column(20, 19, 53), "." + std::string(31, '#') + "..");

    // A second loop is not joined to the first one.
    Points second = square;
    for (Point& p : second) {
        p.x += 80;
    }
    loops.addLineLoop(second);
    glClear(GL_COLOR_BUFFER_BIT);
    render(loops);
    EXPECT_EQ(drawnPixels(), 2 * squarePixels);

    std::vector<Orlek::Math::Vector3<float>> third;
    std::vector<Orlek::Math::Vector4<float>> fourth;
    for (const Point& p : square) {
        third.emplace_back(p.x, p.y + 35, 0.0F);
        fourth.emplace_back(p.x + 80, p.y + 35, 0.0F, 3.0F);
    }
    loops.addLineLoop(third);
    loops.addLineLoop(fourth);
    glClear(GL_COLOR_BUFFER_BIT);
    render(loops);
    EXPECT_EQ(drawnPixels(), 4 * squarePixels);
}

TEST_F(LinesTest, LoopsBuiltVertexByVertexAreClosedWhenDrawn) {
    LineLoops loops;
    loops.setAntiAlias(false);
    for (const Point& p : {square[0], square[1], square[2]}) {
        loops.addVertex(p);
    }
    render(loops);
    const int triangle = drawnPixels();
    EXPECT_EQ(triangle, 40 + 30 + 40);  // the diagonal takes a pixel a column

    // What closed the loop for that picture is no vertex of the loop.
    loops.addVertex(Orlek::Math::Vector4<float>(square[3].x, square[3].y, 0, 1));
    glClear(GL_COLOR_BUFFER_BIT);
    render(loops);
    EXPECT_EQ(drawnPixels(), squarePixels);
    render(loops);
    EXPECT_EQ(drawnPixels(), squarePixels);
}

TEST_F(LinesTest, SetRectAlwaysGivesTheClosedOutline) {
    LineLoops loops;
    loops.setAntiAlias(false);
    loops.addLineLoop(square);
    render(loops);
    loops.setRect(40, 30);
    MatrixTranslate(20.5, 20.5, 0);
    for (int i = 0; i < 2; ++i) {
        glClear(GL_COLOR_BUFFER_BIT);
        render(loops);
        EXPECT_EQ(drawnPixels(), squarePixels);
        loops.setRect(40, 30);
    }
    loops.clearVertex();
    loops.addVertex(Point(0, 0));
    loops.addVertex(Point(10, 0));
    glClear(GL_COLOR_BUFFER_BIT);
    render(loops);
    EXPECT_EQ(drawn(25, 20), true);
    EXPECT_LE(drawnPixels(), 11);
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

// The lengths in pixels are vertex attribute 5; they are measured at an upload, and with a stipple
// when the view scale has changed.
class MeasuredLoops : public LinesTest {
protected:
    void SetUp() override {
        LinesTest::SetUp();
        MatrixLoadIdent();
        loops.addLineLoop(Points{{0, 0}, {0.1F, 0}, {0.1F, 0.2F}});
    }

    void renderWide(float viewportWidth, double scale) {
        GlHandler::instance().setViewPort({viewportWidth, 100});
        render(loops, scale);
    }

    static std::vector<float> positions() {
        GLuint array = 1;
        while (glIsVertexArray(array) == GL_FALSE) {
            ++array;
        }
        glBindVertexArray(array);
        GLint buffer = 0;
        glGetVertexAttribiv(5, GL_VERTEX_ATTRIB_ARRAY_BUFFER_BINDING, &buffer);
        GLint enabled = 0;
        glGetVertexAttribiv(5, GL_VERTEX_ATTRIB_ARRAY_ENABLED, &enabled);
        EXPECT_EQ(enabled, 1);
        glBindVertexArray(0);
        glBindBuffer(GL_ARRAY_BUFFER, static_cast<GLuint>(buffer));
        GLint bytes = 0;
        glGetBufferParameteriv(GL_ARRAY_BUFFER, GL_BUFFER_SIZE, &bytes);
        std::vector<float> values(static_cast<std::size_t>(bytes) / sizeof(float));
        glGetBufferSubData(GL_ARRAY_BUFFER, 0, bytes, values.data());
        glBindBuffer(GL_ARRAY_BUFFER, 0);
        return values;
    }

    LineLoops loops;
};

TEST_F(MeasuredLoops, HoldTheirLengthInPixels) {
    renderWide(200, 1.0);
    const float closing = std::sqrt(100.0F + 100.0F);
    const std::vector<float> expected{0, 10, 20, 20 + closing};
    const std::vector<float> actual = positions();
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_FLOAT_EQ(actual[i], expected[i]);
    }
}

TEST_F(MeasuredLoops, AreMeasuredAnewWhenTheScaleChanges) {
    struct Step {
        const char* what;
        float viewportWidth;
        double scale;
        float firstLength;
    };
    loops.setStipple(0x00FF);
    const Step steps[] = {{"upload: does not store the scale", 200, 1.0, 10},
                          {"first draw after it", 400, 1.0, 20},
                          {"same scale", 600, 1.0, 20},
                          {"within 0.001", 600, 1.0005, 20},
                          {"beyond 0.001", 600, 1.002, 30},
                          {"back", 800, 1.0, 40}};
    for (const Step& step : steps) {
        renderWide(step.viewportWidth, step.scale);
        EXPECT_FLOAT_EQ(positions().at(1), step.firstLength) << step.what;
    }
    loops.setStipple(0);
    renderWide(200, 5.0);
    EXPECT_FLOAT_EQ(positions().at(1), 40) << "solid lines need no lengths";
}

TEST_F(MeasuredLoops, PartFromACopyThatMeasures) {
    loops.setStipple(0x00FF);
    renderWide(200, 0.0);
    const int before = liveNames();
    std::optional<LineLoops> copy(loops);
    GlHandler::instance().setViewPort({400, 100});
    silently([&] { copy->render(2.0); });
    EXPECT_EQ(liveNames() - before, 4);
    EXPECT_FLOAT_EQ(positions().at(1), 10);
    copy.reset();
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
