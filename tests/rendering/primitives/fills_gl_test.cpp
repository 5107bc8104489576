// Filled outlines, triangle strips and discs on pixels read back: draw calls, colours, stipple.
#include <Orlek/OpenGL/Circle.h>
#include <Orlek/OpenGL/Polygon.h>
#include <Orlek/OpenGL/TriangleStrip.h>

#include <array>
#include <numbers>
#include <regex>
#include <string>
#include <utility>

#include "GlCalls.h"
#include "Outlines.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;

class FillTest : public GlTest {
protected:
    void SetUp() override {
        GlTest::SetUp();
        glCalls().draws.clear();
    }

    static Polygon polygonOf(const Points& points) {
        Polygon polygon;
        polygon.addTessPolygon(tesselated(points));
        return polygon;
    }
};

TEST_F(FillTest, PolygonsFillBothLobesOfAFigureOfEightAndBlend) {
    Polygon polygon = polygonOf({{-40, -40}, {40, 40}, {40, -40}, {-40, 40}});
    MatrixTranslate(50, 50, 0);
    polygon.setColor({1, 0.5F, 0, 0.5F});
    EXPECT_NEAR(pixelsOf(polygon), 3200, 80);
    for (const int x : {20, 80}) {
        EXPECT_NEAR(pixel(x, 50)[0], 128, 1);
        EXPECT_NEAR(pixel(x, 50)[1], 64, 1);
    }
    EXPECT_FALSE(drawn(50, 20) || drawn(50, 80));
    EXPECT_TRUE(glIsEnabled(GL_BLEND));
    EXPECT_EQ(integer(GL_BLEND_SRC_ALPHA), GL_SRC_ALPHA);
    EXPECT_EQ(integer(GL_BLEND_DST_ALPHA), GL_ONE_MINUS_SRC_ALPHA);
}

TEST_F(FillTest, PolygonsDrawEachPrimitiveOnceInItsOrder) {
    Polygon polygon;
    EXPECT_EQ(pixelsOf(polygon), 0);
    EXPECT_TRUE(glCalls().draws.empty());
    EXPECT_EQ(newNames(), 0);
    const Tesselator::TessPolygon one{
        {{{{0, 0, 0}, {9, 0, 0}, {0, 9, 0}, {9, 9, 0}}, GL_TRIANGLE_STRIP, 0},
         {{}, GL_TRIANGLE_FAN, 4}}};
    const Tesselator::TessPolygon two{
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
    polygon.addTessPolygon({{{{{0, 0, 0}}, 999, 0}}});  // no primitive: reported, and it goes on
    wipe();
    provokingErrors([&] {
        EXPECT_EQ(captureStdout([&] { polygon.render(); }), "Error <Polygon> <Nix> 1280\n");
    });
    EXPECT_EQ(drawnPixels(), 81);
}

TEST_F(FillTest, StripsTakeAllKindsOfVertices) {
    TriangleStrip strip;
    strip.addVertex(Point(10, 10));
    EXPECT_EQ(pixelsOf(strip), 0);
    EXPECT_EQ(newNames(), 0) << "one vertex: no GL call";
    strip.addVertex(Vertex(10, 50, 0));
    strip.addVertex(Color(50, 10, 0, 7));
    EXPECT_NEAR(pixelsOf(strip), 800, 40);
    strip.addVertex(Vertex(50, 50, 0), red);
    strip.addVertex(Color(90, 10, 0, 7), red);
    EXPECT_NEAR(pixelsOf(strip), 2400, 40);
    strip.clearVertex();
    EXPECT_EQ(pixelsOf(strip), 0);
}

/// A green square of 40 pixels with as many red corners as asked for.
TriangleStrip squareStrip(int colors) {
    TriangleStrip strip;
    strip.setColor({0, 1, 0, 1});
    for (const Point& corner : {Point{10, 10}, {10, 50}, {50, 10}, {50, 50}}) {
        colors-- > 0 ? strip.addVertex(corner, red) : strip.addVertex(corner);
    }
    return strip;
}

TEST_F(FillTest, ColoursOfVerticesNeedOneForEach) {
    for (const int colors : {0, 1, 3, 4}) {
        for (const bool wanted : {false, true}) {
            TriangleStrip strip = squareStrip(colors);
            strip.setUseMultiColor(wanted);
            const auto expectColor = [&](int x) {
                EXPECT_EQ(pixel(x, x)[0], wanted && colors == 4 ? 255 : 0) << colors << wanted;
                EXPECT_EQ(pixel(x, x)[1], wanted && colors == 4 ? 0 : 255) << colors << wanted;
            };
            EXPECT_EQ(pixelsOf(strip), 1600);
            expectColor(30);
            strip.setRect(4, 3);  // keeps the colours
            EXPECT_EQ(pixelsOf(strip), 12);
            expectColor(1);
            strip.addVertex(Point(8, 0), red);
            EXPECT_GT(pixelsOf(strip), 12);
            expectColor(1);
            strip.clear();
            EXPECT_EQ(newNames(), 0) << "the colour buffer is gone too";
        }
    }
}

TEST_F(FillTest, DiscIsRoundAndClockwiseFromTwelve) {
    Circle disc;
    disc.setCircle(40, 0);
    EXPECT_EQ(pixelsOf(disc), 0);
    EXPECT_EQ(newNames(), 0);
    disc.setCircle(40, 360);
    MatrixTranslate(100, 50, 0);
    EXPECT_NEAR(pixelsOf(disc), 1600 * std::numbers::pi, 30);
    disc.clearVertex();
    disc.setCircle(40, 4);
    EXPECT_NEAR(pixelsOf(disc), 2 * 1600, 80);
    EXPECT_TRUE(drawn(100, 88) && drawn(138, 50) && !drawn(130, 80));
    glEnable(GL_CULL_FACE);
    EXPECT_EQ(pixelsOf(disc), 0) << "clockwise, so that it shows its back";
    glDisable(GL_CULL_FACE);
    disc.clearVertex();
    disc.setCircle(40, 2);  // twelve and six o'clock
    EXPECT_EQ(pixelsOf(disc), 0);
}

TEST_F(FillTest, SecondDiscWaitsForAnUploadOrIsRefused) {
    MatrixTranslate(100, 50, 0);
    Circle disc;
    disc.setCircle(10, 4);
    const int small = pixelsOf(disc);
    EXPECT_EQ(captureStdout([&] { disc.setCircle(20, 0xFFFFFFFFU); }),
              "Error <Circle> <Nix> 1281\n");
    disc.setCircle(40, 4);
    glCalls().draws.clear();
    EXPECT_EQ(pixelsOf(disc), small);
    EXPECT_EQ(glCalls().draws, (std::vector<DrawCall>{{GL_TRIANGLE_FAN, 0, 6}}))
        << "the buffer holds no more";
    Circle copy = disc;
    EXPECT_EQ(pixelsOf(copy), small);
    disc.clear();
    EXPECT_GT(pixelsOf(disc), 4 * small) << "made anew from both";
    EXPECT_EQ(pixelsOf(copy), small);
    copy.clearVertex();
    copy.setCircle(20, 4);
    EXPECT_NEAR(pixelsOf(copy), 800, 40);
    copy.setCircle(40, 4);
    EXPECT_NEAR(pixelsOf(copy), 800, 40) << "the second waits again";
}

TEST_F(FillTest, StippleIsFixedToWindowPixels) {
    std::array<unsigned char, 128> pattern{};
    pattern[4 * 3 + 0] = 0x05;  // row 3: columns 0 and 2
    pattern[4 * 3 + 3] = 0x80;  // and column 31
    Polygon polygon = polygonOf({{0, 0}, {width, 0}, {width, height}, {0, height}});
    TriangleStrip strip;
    strip.setRect(width, height);
    const std::string period = "#.#" + std::string(28, '.') + "#";
    const auto stippled = [&](auto& shape) {
        shape.setPattern(pattern.data());
        EXPECT_EQ(pixelsOf(shape), 4 * (7 + 7 + 6));
        EXPECT_EQ(row(3, 0, 64), period + period);
        EXPECT_EQ(row(3 + 32, 0, 32), period);
    };
    stippled(polygon);
    stippled(strip);
    pattern.fill(0xFF);  // it was copied
    MatrixTranslate(1, 1, 0);
    pixelsOf(polygon);
    EXPECT_EQ(row(3, 1, 33), period.substr(1) + "#") << "it does not move with the shape";
    usePixels();
    polygon.setPattern(nullptr);
    strip.setPattern(nullptr);
    EXPECT_EQ(pixelsOf(strip), width * height);
    EXPECT_EQ(pixelsOf(polygon), width * height);
}

// Shaders have the leftmost pixel in the lowest bit, OpenGL and so the disc in the highest.
TEST_F(FillTest, StippleOfDiscsIsOpenGls) {
    std::array<unsigned char, 128> pattern{};
    pattern[0] = 0x02;
    pattern[4 * 31 + 3] = 0x80;
    const std::string none(24, '.');
    Circle disc;
    disc.setCircle(300, 36);
    disc.setPattern(pattern.data());
    for (const auto& [setting, value, usual] :
         {std::tuple<GLenum, int, int>{GL_UNPACK_ALIGNMENT, 8, 4}, {GL_UNPACK_LSB_FIRST, 1, 0}}) {
        glPixelStorei(setting, value);
        pixelsOf(disc);
        EXPECT_EQ(row(64, 32, 64), "......#." + none);
        EXPECT_EQ(row(31, 32, 64), none + "#.......");
        EXPECT_EQ(integer(setting), value) << "handed back";
        glPixelStorei(setting, usual);
    }
    pattern[0] = 0x80;  // the caller's bytes are read at each draw
    pixelsOf(disc);
    EXPECT_EQ(row(64, 32, 64), "#......." + none);
    disc.setPattern(nullptr);
    glEnable(GL_POLYGON_STIPPLE);
    EXPECT_EQ(pixelsOf(disc), width * height);
    EXPECT_TRUE(glIsEnabled(GL_BLEND));
}

/// The functions that a draw blames, in order, when one function or each fails.
std::string blamed(auto& drawable, std::string_view function = "all") {
    const std::string lines = captureStdout([&] {
        const FailingSteps failing(function);
        drawable.render();
    });
    return std::regex_replace(lines, std::regex("Error <(.*)> <Nix> 1280\n"), "$1 ");
}

const std::string firstUpload =
    "glGenVertexArrays glBindVertexArray glGenBuffers glBindBuffer glBufferData "
    "glVertexAttribPointer glEnableVertexAttribArray ";
const std::string laterUpload = "glBindVertexArray glBindBuffer glBufferData ";
const std::string drawSteps =
    "glBindVertexArray glBlendFunc glEnable glDrawArrays glBindVertexArray ";

TEST_F(FillTest, StripNamesTheStepThatFailed) {
    TriangleStrip strip = squareStrip(4);
    EXPECT_EQ(blamed(strip), firstUpload + "TriangleStrip ") << "and draws nothing";
    strip.render();
    EXPECT_EQ(blamed(strip), drawSteps);
    strip.setRect(4, 3);
    EXPECT_EQ(blamed(strip), laterUpload + "TriangleStrip ");
    strip.clear();
    // Position and colour buffer, told apart by where their errors are noticed.
    EXPECT_EQ(blamed(strip, "glBufferData"), "glBufferData glEnableVertexAttribArray ");
    strip.clear();
    EXPECT_EQ(blamed(strip, "glEnableVertexAttribArray"),
              "glVertexAttribPointer glEnableVertexAttribArray ");
    strip.render();
    strip.setRect(4, 3);
    EXPECT_EQ(blamed(strip, "glBufferData"), "glBindBuffer glBufferData ");
}

TEST_F(FillTest, DiscNamesTheStepThatFailed) {
    Circle disc;
    disc.setCircle(10, 8);
    EXPECT_EQ(blamed(disc), firstUpload + "Circle ");
    disc.render();
    EXPECT_EQ(blamed(disc), drawSteps + "Circle ");
    disc.clearVertex();
    disc.setCircle(10, 8);
    EXPECT_EQ(blamed(disc), laterUpload + "Circle ");
    disc.clear();
    EXPECT_EQ(blamed(disc, "glEnableVertexAttribArray"), "glEnableVertexAttribArray ");
}

}  // namespace
