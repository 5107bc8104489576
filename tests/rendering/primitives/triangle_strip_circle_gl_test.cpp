// Triangle strips and discs on pixels read back, and the error lines of each of their steps.
#include <Orlek/OpenGL/Circle.h>
#include <Orlek/OpenGL/Polygon.h>
#include <Orlek/OpenGL/TriangleStrip.h>

#include <array>
#include <numbers>
#include <sstream>
#include <string>
#include <utility>

#include "GlCalls.h"
#include "support/GlTest.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;
using Point = Orlek::Math::Vector2<float>;
using Color = Orlek::Math::Vector4<float>;

const Color red{1, 0, 0, 1};
const Color green{0, 1, 0, 1};
constexpr Pixel redPixel{255, 0, 0, 255};
constexpr Pixel greenPixel{0, 255, 0, 255};

class FillTest : public GlTest {
protected:
    template <typename Drawable>
    static int pixelsOf(Drawable& drawable) {
        wipe();
        silently([&] { drawable.render(); });
        return drawnPixels();
    }

    /// A square of 40 pixels with as many colours as asked for.
    static TriangleStrip strip(int colors) {
        TriangleStrip strip;
        strip.setColor(green);
        const Point corners[] = {{10, 10}, {10, 50}, {50, 10}, {50, 50}};
        for (int i = 0; i < 4; ++i) {
            i < colors ? strip.addVertex(corners[i], red) : strip.addVertex(corners[i]);
        }
        return strip;
    }
};

TEST_F(FillTest, StripTakesAllKindsOfVertices) {
    TriangleStrip shape;
    shape.addVertex(Point(10, 10));
    EXPECT_EQ(pixelsOf(shape), 0);
    EXPECT_EQ(newNames(), 0) << "one vertex: no GL call";
    shape.addVertex(Orlek::Math::Vector3<float>(10, 50, 0));
    shape.addVertex(Orlek::Math::Vector4<float>(50, 10, 0, 7));
    EXPECT_NEAR(pixelsOf(shape), 800, 40);
    shape.addVertex(Orlek::Math::Vector3<float>(50, 50, 0), red);
    shape.addVertex(Orlek::Math::Vector4<float>(90, 10, 0, 7), red);
    EXPECT_NEAR(pixelsOf(shape), 2400, 40);
    shape.clearVertex();
    EXPECT_EQ(pixelsOf(shape), 0);
    shape.clear();
}

TEST_F(FillTest, ColoursOfVerticesNeedOneForEach) {
    for (const int colors : {0, 1, 3, 4}) {
        for (const bool wanted : {false, true}) {
            TriangleStrip shape = strip(colors);
            shape.setUseMultiColor(wanted);
            EXPECT_EQ(pixelsOf(shape), 1600);
            EXPECT_EQ(pixel(30, 30), wanted && colors == 4 ? redPixel : greenPixel)
                << colors << " " << wanted;
            shape.setRect(4, 3);  // keeps the colours
            EXPECT_EQ(pixelsOf(shape), 12);
            EXPECT_EQ(pixel(1, 1), wanted && colors == 4 ? redPixel : greenPixel)
                << colors << " " << wanted;
            shape.addVertex(Point(8, 0), red);
            EXPECT_GT(pixelsOf(shape), 12);
            EXPECT_EQ(pixel(1, 1), wanted && colors == 4 ? redPixel : greenPixel);
            shape.clear();
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
    disc.clearVertex();
    disc.setCircle(40, 2);  // twelve and six o'clock
    EXPECT_EQ(pixelsOf(disc), 0);
    disc.clear();
}

TEST_F(FillTest, SecondDiscWaitsForAnUpload) {
    MatrixTranslate(100, 50, 0);
    Circle disc;
    disc.setCircle(10, 4);
    const int small = pixelsOf(disc);
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
    disc.clear();
    copy.clear();
    EXPECT_EQ(newNames(), 0);
}

// The same 128 bytes: shaders have the leftmost pixel in the lowest bit, OpenGL in the highest.
TEST_F(FillTest, StippleOfStripsAndOfDiscs) {
    std::array<unsigned char, 128> pattern{};
    pattern[0] = 0x02;
    pattern[4 * 31 + 3] = 0x80;
    const std::string none(24, '.');
    TriangleStrip shape;
    shape.setRect(width, height);
    shape.setPattern(pattern.data());
    pixelsOf(shape);
    EXPECT_EQ(row(64, 32, 64), ".#......" + none);
    EXPECT_EQ(row(31, 32, 64), none + ".......#");
    shape.setPattern(nullptr);
    EXPECT_EQ(pixelsOf(shape), width * height);
    shape.clear();

    Circle disc;
    disc.setCircle(300, 36);
    disc.setPattern(pattern.data());
    for (const auto& [setting, value] :
         {std::pair<GLenum, GLint>{GL_UNPACK_ALIGNMENT, 8}, {GL_UNPACK_LSB_FIRST, 1}}) {
        GLint usual = 0;
        glGetIntegerv(setting, &usual);
        glPixelStorei(setting, value);
        pixelsOf(disc);
        EXPECT_EQ(row(64, 32, 64), "......#." + none);
        EXPECT_EQ(row(31, 32, 64), none + "#.......");
        EXPECT_EQ(integer(setting), value) << "handed back";
        EXPECT_FALSE(glIsEnabled(GL_POLYGON_STIPPLE));
        glPixelStorei(setting, usual);
    }
    pattern[0] = 0x80;  // the caller's bytes are read at each draw
    pixelsOf(disc);
    EXPECT_EQ(row(64, 32, 64), "#......." + none);
    disc.setPattern(nullptr);
    glEnable(GL_POLYGON_STIPPLE);
    EXPECT_EQ(pixelsOf(disc), width * height);
    EXPECT_TRUE(glIsEnabled(GL_BLEND));
    disc.clear();
}

/// Steps of a draw leave errors behind while the scope lasts.
class FailingSteps {
public:
    explicit FailingSteps(std::string_view function) {
        glDisable(GL_DEBUG_OUTPUT);  // which would print each of them
        glCalls().failing = function;
    }
    ~FailingSteps() {
        glCalls().failing = {};
        GlHandler::clearError();
        glEnable(GL_DEBUG_OUTPUT);
    }

private:
    Fronted<__glewGenVertexArrays, GLsizei, GLuint*> mGenArrays{"glGenVertexArrays"};
    Fronted<__glewBindVertexArray, GLuint> mBindArray{"glBindVertexArray"};
    Fronted<__glewGenBuffers, GLsizei, GLuint*> mGenBuffers{"glGenBuffers"};
    Fronted<__glewBindBuffer, GLenum, GLuint> mBindBuffer{"glBindBuffer"};
    Fronted<__glewBufferData, GLenum, GLsizeiptr, const void*, GLenum> mBufferData{"glBufferData"};
    Fronted<__glewVertexAttribPointer, GLuint, GLint, GLenum, GLboolean, GLsizei, const void*>
        mPointer{"glVertexAttribPointer"};
    Fronted<__glewEnableVertexAttribArray, GLuint> mEnableArray{"glEnableVertexAttribArray"};
};

/// The functions that a draw blames, in order, when one function or each fails.
template <typename Drawable>
std::string blamed(Drawable& drawable, std::string_view function = "all") {
    const std::string text = captureStdout([&] {
        const FailingSteps failing(function);
        drawable.render();
    });
    std::istringstream lines(text);
    std::string line;
    std::string names;
    while (std::getline(lines, line)) {
        const std::size_t end = line.find('>');
        EXPECT_EQ(line.substr(end), "> <Nix> 1280");
        EXPECT_EQ(line.substr(0, 7), "Error <");
        names += line.substr(7, end - 7) + " ";
    }
    return names;
}

const std::string firstUpload =
    "glGenVertexArrays glBindVertexArray glGenBuffers glBindBuffer glBufferData "
    "glVertexAttribPointer glEnableVertexAttribArray ";
const std::string drawSteps =
    "glBindVertexArray glBlendFunc glEnable glDrawArrays glBindVertexArray ";

TEST_F(FillTest, StripNamesTheStepThatFailed) {
    TriangleStrip shape = strip(4);
    EXPECT_EQ(blamed(shape), firstUpload + drawSteps);
    EXPECT_EQ(blamed(shape), drawSteps);
    shape.setRect(4, 3);
    EXPECT_EQ(blamed(shape), "glBindVertexArray glBindBuffer glBufferData " + drawSteps);
    shape.clear();
    // Position and colour buffer, told apart by where their errors are noticed.
    EXPECT_EQ(blamed(shape, "glBufferData"), "glBufferData glEnableVertexAttribArray ");
    shape.clear();
    EXPECT_EQ(blamed(shape, "glEnableVertexAttribArray"),
              "glVertexAttribPointer glEnableVertexAttribArray ");
    shape.setRect(4, 3);
    EXPECT_EQ(blamed(shape, "glBufferData"), "glBindBuffer glBufferData ");
    shape.clear();
}

TEST_F(FillTest, DiscNamesTheStepThatFailed) {
    Circle disc;
    disc.setCircle(10, 8);
    EXPECT_EQ(blamed(disc), firstUpload + drawSteps + "Circle ");
    disc.clearVertex();
    disc.setCircle(10, 8);
    EXPECT_EQ(blamed(disc), "glBindVertexArray glBindBuffer glBufferData " + drawSteps + "Circle ");
    disc.clear();
    EXPECT_EQ(blamed(disc, "glEnableVertexAttribArray"), "glEnableVertexAttribArray ");
    disc.clear();
}

}  // namespace
