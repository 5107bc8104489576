// Closed outlines on pixels read back, and their lengths in pixels.
#include <Orlek/OpenGL/LineLoops.h>
#include <Orlek/OpenGL/LineStrips.h>

#include <cmath>
#include <optional>
#include <string>

#include "Outlines.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;

class LoopsTest : public GlTest {
protected:
    LoopsTest() { loops.setAntiAlias(false); }

    LineLoops loops;
};

TEST_F(LoopsTest, AreClosedAndNotJoined) {
    EXPECT_EQ(pixelsOf(loops), 0);
    loops.addLineLoop(Points());
    EXPECT_EQ(pixelsOf(loops), 0);
    EXPECT_EQ(newNames(), 0);
    Points second;
    std::vector<Vertex> third;
    std::vector<Color> fourth;
    for (const Point& p : square) {
        second.emplace_back(p.x + 80, p.y);
        third.emplace_back(p.x, p.y + 35, 0.0F);
        fourth.emplace_back(p.x + 80, p.y + 35, 0.0F, 3.0F);
    }
    loops.addLineLoop(square);
    EXPECT_EQ(pixelsOf(loops), squarePixels);
    EXPECT_EQ(row(20, 19, 63), "." + std::string(41, '#') + "..");
    EXPECT_EQ(column(20, 19, 53), "." + std::string(31, '#') + "..");
    loops.addLineLoop(second);
    EXPECT_EQ(pixelsOf(loops), 2 * squarePixels);
    loops.addLineLoop(third);
    loops.addLineLoop(fourth);
    EXPECT_EQ(pixelsOf(loops), 4 * squarePixels);
    loops.setColor({0, 1, 0, 1});
    loops.setLineWidth(3);
    pixelsOf(loops);
    EXPECT_EQ(column(40, 18, 24), ".###..");
    EXPECT_EQ(pixel(40, 20), (Pixel{0, 255, 0, 255}));
}

TEST_F(LoopsTest, BuiltVertexByVertexAreClosedWhenDrawn) {
    loops.addVertex(square[0]);
    EXPECT_EQ(pixelsOf(loops), 0);
    loops.addVertex(square[1]);
    loops.addVertex(Vertex(square[2].x, square[2].y, 0));
    EXPECT_EQ(pixelsOf(loops), 40 + 30 + 40) << "the diagonal takes a pixel a column";
    // What closed the loop for that picture is no vertex of the loop.
    loops.addVertex(Color(square[3].x, square[3].y, 0, 1));
    EXPECT_EQ(pixelsOf(loops), squarePixels);
    MatrixTranslate(20.5, 20.5, 0);
    for (int i = 0; i < 2; ++i) {
        loops.setRect(40, 30);
        EXPECT_EQ(pixelsOf(loops), squarePixels);
    }
    loops.addLineLoop(Points{{60, 0}, {70, 0}});
    EXPECT_EQ(pixelsOf(loops), squarePixels + 11) << "the rectangle is closed";
    loops.clearVertex();
    loops.addVertex(Point(0, 0));
    loops.addVertex(Point(10, 0));
    EXPECT_LE(pixelsOf(loops), 11);
    EXPECT_TRUE(drawn(25, 20));
}

// The lengths in pixels are vertex attribute 5; they are measured at an upload, and with a stipple
// when the view scale has changed.
class MeasuredLoops : public LoopsTest {
protected:
    void SetUp() override {
        LoopsTest::SetUp();
        MatrixLoadIdent();
        loops.addLineLoop(Points{{0, 0}, {0.1F, 0}, {0.1F, 0.2F}});
        loops.setStipple(0x00FF);
    }

    static void render(LineLoops& picture, float viewportWidth, double scale) {
        GlHandler::instance().setViewPort({viewportWidth, 100});
        silently([&] { picture.render(scale); });
    }

    static std::vector<float> positions() {
        GLuint array = 1;
        while (array < 10000 && glIsVertexArray(array) == GL_FALSE) {
            ++array;
        }
        glBindVertexArray(array);
        GLint buffer = 0;
        glGetVertexAttribiv(5, GL_VERTEX_ATTRIB_ARRAY_BUFFER_BINDING, &buffer);
        glBindVertexArray(0);
        std::vector<float> values(4);  // the closing vertex included
        glBindBuffer(GL_ARRAY_BUFFER, static_cast<GLuint>(buffer));
        glGetBufferSubData(GL_ARRAY_BUFFER, 0, sizeof(float) * 4, values.data());
        glBindBuffer(GL_ARRAY_BUFFER, 0);
        return values;
    }
};

TEST_F(MeasuredLoops, AreMeasuredAnewWhenTheScaleChanges) {
    const struct {
        const char* what;
        float viewportWidth;
        double scale;
        float firstLength;
    } rows[] = {{"upload: does not store the scale", 200, 1.0, 10},
                {"first draw after it", 400, 1.0, 20},
                {"same scale", 600, 1.0, 20},
                {"within 0.001", 600, 1.0005, 20},
                {"beyond 0.001", 600, 1.002, 30},
                {"back", 800, 1.0, 40},
                {"solid lines need no lengths", 200, 5.0, 40}};
    for (const auto& row : rows) {
        loops.setStipple(row.scale < 5.0 ? 0x00FF : 0);
        render(loops, row.viewportWidth, row.scale);
        const std::vector<float> lengths = positions();
        EXPECT_FLOAT_EQ(lengths[1], row.firstLength) << row.what;
        EXPECT_FLOAT_EQ(lengths[2], row.firstLength + 10) << row.what;
        EXPECT_FLOAT_EQ(lengths[3], lengths[2] + std::hypot(row.firstLength, 10.0F)) << row.what;
    }
}

TEST_F(MeasuredLoops, StripsAreMeasuredOnceTheyHaveAStipple) {
    LineStrips strips;
    strips.addLineStrip(Points{{0, 0}, {0.1F, 0}, {0.1F, 0.2F}, {0, 0}});
    pixelsOf(strips);
    strips.setStipple(0x00FF);
    pixelsOf(strips);
    EXPECT_FLOAT_EQ(positions()[1], 10);
}

TEST_F(MeasuredLoops, PartFromACopyThatMeasures) {
    render(loops, 200, 0.0);
    const int names = newNames();
    std::optional<LineLoops> copy(loops);
    render(*copy, 400, 2.0);
    EXPECT_EQ(newNames(), 2 * names);
    EXPECT_FLOAT_EQ(positions()[1], 10);
    copy.reset();
    EXPECT_EQ(newNames(), names);
}

}  // namespace
