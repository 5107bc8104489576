// The wide-line programs 8 to 10, as an application uses them: width, stipple along the line, soft
// edges across it, joints.
#include <Orlek/OpenGL/GlHandler.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "rendering/gl/Mesh.h"
#include "rendering/gl/Names.h"
#include "rendering/primitives/Outlines.h"

namespace {

using namespace Orlek::Detail;
using Orlek::OpenGL::GlHandler;
using OrlekTest::Color;
using OrlekTest::red;

/// Points, and how far along the line each of them lies.
struct Line {
    std::vector<OrlekTest::Vertex> points;
    std::vector<float> positions;
    std::vector<Color> colors{points.size()};
};

class WideLines : public OrlekTest::GlTest {
protected:
    void draw(unsigned program, const Line& line) {
        wipe();
        silently([&] {
            GlHandler& handler = GlHandler::instance();
            handler.activateShader(program);
            handler.setFloatVar("lineWidth", lineWidth);
            handler.setFloatVar("color", 1, 1, 1, 1);
            handler.setIntVar("antialias", antialias);
            handler.setIntVar("lineStipple", static_cast<int>(stipple));
            handler.activateViewPort();
            Orlek::OpenGL::MatrixActivate();
            std::shared_ptr<Mesh> mesh;
            const Stream streams[] = {streamOf(Attribute::Vertex, line.points),
                                      streamOf(Attribute::Color, line.colors),
                                      streamOf(Attribute::Position, line.positions)};
            syncMesh("mesh", mesh, streams);
            mesh->bind();
            glDrawArrays(program == 8 ? GL_LINES : GL_LINE_STRIP_ADJACENCY, 0,
                         static_cast<GLsizei>(line.points.size()));
            glBindVertexArray(0);
            releaseShare(mesh);
            GlHandler::checkError("draw", "Nix");
            handler.deactivateShader();
        });
    }

    float lineWidth = 6;
    std::uint32_t stipple = 0;
    int antialias = 0;
};

const Color blue{0, 0, 1, 1};

// One segment of 64 pixels; programs 9 and 10 get its ends doubled a little apart, since a segment
// of no length has no direction.
const Line segment{{{20, 50, 0}, {84, 50, 0}}, {0, 64}};
const Line extended{
    {{10, 50, 0}, {20, 50, 0}, {84, 50, 0}, {94, 50, 0}}, {8, 8, 72, 82}, {red, red, blue, blue}};

TEST_F(WideLines, AreBandsOfTheirWidth) {
    draw(8, segment);
    EXPECT_EQ(drawnPixels(), 64 * 6);
    EXPECT_EQ(column(50, 45, 55), "..######..");
    EXPECT_EQ(row(50, 18, 87), ".." + std::string(64, '#') + "...");
    for (const unsigned program : {9U, 10U}) {
        draw(program, extended);
        EXPECT_EQ(drawnPixels(), 64 * 6);
    }
    for (const int x : {20, 52, 83}) {  // program 10 blends the colours of the vertices
        const double t = (x + 0.5 - 20) / 64;
        EXPECT_NEAR(pixel(x, 50)[0], 255 * (1 - t), 1);
        EXPECT_NEAR(pixel(x, 50)[2], 255 * t, 1);
    }
}

TEST_F(WideLines, RepeatTheirPatternEvery32Pixels) {
    stipple = 0x80000F0FU;
    const std::string once = "####....####...................#";
    draw(8, segment);
    EXPECT_EQ(row(50, 20, 84), once + once);
    draw(9, extended);  // counts from the position of the vertex: here 8 pixels on
    EXPECT_EQ(row(50, 20, 84), once.substr(8) + once + once.substr(0, 8));
}

TEST_F(WideLines, FadeAtTheirEdges) {
    antialias = 1;
    lineWidth = 20;
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    draw(8, segment);
    for (int i = 0; i < 20; ++i) {
        // Centre of the i-th row of the band, 0 to 1 across it; smoothstep over 0.3 at both sides.
        const double across = (i + 0.5) / 20;
        const double t = std::min({across / 0.3, (1 - across) / 0.3, 1.0});
        EXPECT_NEAR(pixel(50, 40 + i)[0], 255 * t * t * (3 - 2 * t), 2) << i;
    }
}

TEST_F(WideLines, FillTheirJoints) {
    lineWidth = 8;
    draw(9,
         {{{10, 20, 0}, {20, 20, 0}, {60, 20, 0}, {60, 60, 0}, {60, 70, 0}}, {0, 0, 40, 80, 90}});
    EXPECT_TRUE(drawn(40, 20));
    EXPECT_TRUE(drawn(60, 40));
    EXPECT_TRUE(drawn(61, 18)) << "the outer side of the joint";
    EXPECT_FALSE(drawn(40, 30));
    EXPECT_FALSE(drawn(60, 62));
}

}  // namespace
