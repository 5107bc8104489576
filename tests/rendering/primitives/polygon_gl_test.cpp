// Filled outlines on pixels read back: lobes, draw calls, screen stipple, sharing.
#include <Orlek/OpenGL/Polygon.h>

#include <array>
#include <string>

#include "GlCalls.h"
#include "support/GlTest.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;
using Point = Orlek::Math::Vector2<float>;
using Points = std::vector<Point>;

const Points square{{10, 10}, {50, 10}, {50, 50}, {10, 50}};
constexpr int squarePixels = 40 * 40;

class PolygonTest : public GlTest {
protected:
    void SetUp() override {
        GlTest::SetUp();
        glCalls().draws.clear();
    }

    static Tesselator::TessPolygon filled(const Points& points) {
        Tesselator tesselator;
        for (const Point& p : points) {
            tesselator.addVertex(p);
        }
        return tesselator.tesselate();
    }

    static Polygon polygonOf(const Points& points) {
        Polygon polygon;
        polygon.addTessPolygon(filled(points));
        return polygon;
    }

    static int pixelsOf(Polygon& polygon) {
        wipe();
        silently([&] { polygon.render(); });
        return drawnPixels();
    }
};

TEST_F(PolygonTest, FillsBothLobesOfAFigureOfEight) {
    Polygon polygon = polygonOf({{10, 10}, {90, 90}, {90, 10}, {10, 90}});
    polygon.setColor({1, 0.5F, 0, 1});
    EXPECT_NEAR(pixelsOf(polygon), 3200, 80);
    EXPECT_EQ(pixel(20, 50), (Pixel{255, 128, 0, 255}));
    EXPECT_EQ(pixel(80, 50), (Pixel{255, 128, 0, 255}));
    EXPECT_FALSE(drawn(50, 20));
    EXPECT_FALSE(drawn(50, 80));
    polygon.clear();
}

TEST_F(PolygonTest, DrawsEachPrimitiveOnceInItsOrder) {
    Polygon polygon;
    silently([&] { polygon.render(); });
    EXPECT_TRUE(glCalls().draws.empty());
    EXPECT_EQ(newNames(), 0);

    Tesselator::TessPolygon one{
        {{{{0, 0, 0}, {9, 0, 0}, {0, 9, 0}, {9, 9, 0}}, GL_TRIANGLE_STRIP, 0},
         {{}, GL_TRIANGLE_FAN, 4}}};
    Tesselator::TessPolygon two{
        {{{{20, 0, 0}, {29, 0, 0}, {29, 9, 0}, {20, 0, 0}, {29, 9, 0}, {20, 9, 0}},
          GL_TRIANGLES,
          77}}};
    polygon.addTessPolygon(one);
    polygon.addTessPolygon(two);
    EXPECT_EQ(pixelsOf(polygon), 2 * 81);
    const std::vector<DrawCall> expected{
        {GL_TRIANGLE_STRIP, 0, 4}, {GL_TRIANGLE_FAN, 4, 0}, {GL_TRIANGLES, 4, 6}};
    EXPECT_EQ(glCalls().draws, expected);
    polygon.clearVertex();
    EXPECT_EQ(pixelsOf(polygon), 0);
    polygon.addTessPolygon(two);
    EXPECT_EQ(pixelsOf(polygon), 81);
    polygon.clear();
}

TEST_F(PolygonTest, ReportsABadPrimitiveAndGoesOn) {
    Polygon polygon = polygonOf(square);
    polygon.addTessPolygon({{{{{0, 0, 0}}, 999, 0}}});
    EXPECT_EQ(captureStdout([&] { polygon.render(); }), "Error <Polygon> <Nix> 1280\n");
    EXPECT_EQ(drawnPixels(), squarePixels);
    polygon.clear();
}

TEST_F(PolygonTest, BlendsAndLeavesBlendingOn) {
    Polygon polygon = polygonOf(square);
    polygon.setColor({1, 1, 1, 0.5F});
    pixelsOf(polygon);
    EXPECT_NEAR(pixel(30, 30)[0], 128, 1);
    EXPECT_TRUE(glIsEnabled(GL_BLEND));
    EXPECT_EQ(integer(GL_BLEND_SRC_ALPHA), GL_SRC_ALPHA);
    EXPECT_EQ(integer(GL_BLEND_DST_ALPHA), GL_ONE_MINUS_SRC_ALPHA);
    polygon.clear();
}

TEST_F(PolygonTest, StippleIsFixedToWindowPixels) {
    std::array<unsigned char, 128> pattern{};
    pattern[4 * 3 + 0] = 0x05;  // row 3: columns 0 and 2
    pattern[4 * 3 + 3] = 0x80;  // and column 31
    Polygon polygon = polygonOf({{0, 0}, {200, 0}, {200, 100}, {0, 100}});
    polygon.setPattern(pattern.data());
    pattern.fill(0xFF);  // it was copied
    EXPECT_EQ(pixelsOf(polygon), 4 * (7 + 7 + 6));
    const std::string period = "#.#" + std::string(28, '.') + "#";
    EXPECT_EQ(row(3, 0, 64), period + period);
    EXPECT_EQ(row(3 + 32, 0, 32), period);
    Orlek::OpenGL::MatrixTranslate(1, 1, 0);
    pixelsOf(polygon);
    EXPECT_EQ(row(3, 1, 33), period.substr(1) + "#") << "it does not move with the shape";

    polygon.setPattern(nullptr);
    usePixels();
    EXPECT_EQ(pixelsOf(polygon), width * height);
    GlHandler& handler = GlHandler::instance();
    handler.activateShader(11);
    const GLuint program = handler.activeShaderHandle();
    GLint rowBits = 0;
    glGetUniformiv(program, glGetUniformLocation(program, "stipplePattern[3]"), &rowBits);
    handler.deactivateShader();
    EXPECT_EQ(static_cast<unsigned>(rowBits), 0x80000005U) << "the pattern stays";
    polygon.clear();
}

}  // namespace
