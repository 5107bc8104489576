// Closed outlines on pixels read back, and their lengths in pixels.
#include <cmath>
#include <optional>
#include <vector>

#include "LinesTest.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;

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

}  // namespace
