// Every drawing class through a life with bad input: nothing printed, no GL error, no name left.
#include <Orlek/OpenGL.h>

#include <limits>
#include <string>
#include <vector>

#include "support/GlTest.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;
using Point = Orlek::Math::Vector2<float>;
using Vertex = Orlek::Math::Vector3<float>;
using Color = Orlek::Math::Vector4<float>;

constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr float infinity = std::numeric_limits<float>::infinity();
const Color red{1, 0, 0, 1};
const char* const fontFile = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

int errors = 0;

void GLAPIENTRY countErrors(GLenum, GLenum type, GLuint, GLenum, GLsizei, const GLchar* message,
                            const void*) {
    if (type == GL_DEBUG_TYPE_ERROR) {
        ++errors;
        ADD_FAILURE() << message;
    }
}

template <typename Drawable>
void draw(Drawable& drawable) {
    drawable.render();
}
void draw(LineLoops& loops) {
    loops.render(1.0);
    loops.render(nan);
}
template <typename Strips>
void drawPrefixes(Strips& strips) {
    for (const int count : {-1, 0, 1, 2, 3, 4, 5, 1000000000}) {
        strips.render(count);
    }
}
void draw(LineStrips& strips) {
    drawPrefixes(strips);
}
void draw(LineStripsSimple& strips) {
    drawPrefixes(strips);
}
template <typename Font>
void drawFont(Font& font) {
    font.render();
    font.renderFont("", Font::CENTER);
    font.renderFont(3.0, nan, "x\xFF\x01\n", Font::CENTER);
}
void draw(TextureFont& font) {
    drawFont(font);
}
void draw(TextureFontSdf& font) {
    drawFont(font);
}
void draw(VectorFont& font) {
    font.render();
    font.renderFont("", 10.0, VectorFont::CENTER);
    font.renderFont(3.0, nan, "x\xFF\x01\n", 0.0, VectorFont::CENTER);
}

class DrawingFaults : public GlTest {
protected:
    void SetUp() override {
        GlTest::SetUp();
        glEnable(GL_DEBUG_OUTPUT_SYNCHRONOUS);
        glDebugMessageCallback(countErrors, nullptr);
    }

    /// Drawn before and after it is filled, shared, parted, cleared, filled and drawn again.
    template <typename Drawable>
    static void live(void (*fill)(Drawable&)) {
        Drawable drawable;
        draw(drawable);
        drawable.clear();
        fill(drawable);
        draw(drawable);
        Drawable copy = drawable;
        draw(copy);
        fill(copy);
        draw(copy);
        draw(drawable);
        drawable.clear();
        draw(drawable);
        draw(copy);
        drawable = copy;
        draw(drawable);
        copy.clearVertex();
        draw(copy);
        copy.clear();
        fill(copy);
        draw(copy);
        Drawable{copy}.clear();
        draw(copy);
        copy.clear();
        drawable.clear();
        drawable.clear();
    }

    template <typename Drawable>
    void survives(const char* what, void (*fill)(Drawable&)) {
        SCOPED_TRACE(what);
        silently([&] { live(fill); });
        Lines next;  // whose upload deletes what assignments have left behind
        next.setRect(1, 1);
        next.render();
        next.clear();
        EXPECT_EQ(newNames(), 0);
        EXPECT_EQ(errors, 0);
    }
};

TEST_F(DrawingFaults, Lines) {
    survives<Lines>("nothing", [](Lines&) {});
    survives<Lines>("one vertex, then an odd number", [](Lines& d) { d.addVertex(Point(1, 1)); });
    survives<Lines>("no extent", [](Lines& d) { d.setRect(0, 0); });
    survives<Lines>("not finite", [](Lines& d) {
        d.addVertex(Point(nan, infinity));
        d.addVertex(Point(1, 1));
        d.setLineWidth(1e9F);
        d.setStipple(0xFFFF);
    });
    survives<LineLoops>("empty loop", [](LineLoops& d) { d.addLineLoop(std::vector<Point>{}); });
    survives<LineLoops>("one vertex", [](LineLoops& d) { d.addVertex(Point(1, 1)); });
    survives<LineLoops>("loop of one point", [](LineLoops& d) {
        d.addLineLoop(std::vector<Point>{{nan, 1}});
        d.setStipple(1);
    });
}

template <typename Strips>
void emptyStrip(Strips& d) {
    d.addLineStrip(std::vector<Point>{});
}
template <typename Strips>
void stripsOfOnePoint(Strips& d) {
    d.addLineStrip(std::vector<Point>{{1, 1}});
    d.addLineStrip(std::vector<Point>{{nan, infinity}});
    d.addVertex(Point(1, 1));
}
template <typename Strips>
void fewerColours(Strips& d) {
    d.setUseMultiColor(true);
    d.addVertex(Point(1, 1), red);
    d.addLineStrip(std::vector<Point>(50, {9, 9}));
}
template <typename Strips>
void moreColours(Strips& d) {
    d.setUseMultiColor(true);
    d.addVertex(Point(1, 1), red);
    d.addVertex(Point(1, 1), red);
    d.setRect(9, 9);
    d.addVertex(Point(1, 1), red);
}

TEST_F(DrawingFaults, Strips) {
    survives<LineStrips>("empty", emptyStrip);
    survives<LineStrips>("of one point", stripsOfOnePoint);
    survives<LineStrips>("fewer colours", fewerColours);
    survives<LineStrips>("more colours", moreColours);
    survives<LineStripsSimple>("simple, empty", emptyStrip);
    survives<LineStripsSimple>("simple, of one point", stripsOfOnePoint);
    survives<LineStripsSimple>("simple, fewer colours", fewerColours);
    survives<LineStripsSimple>("simple, more colours", moreColours);
}

TEST_F(DrawingFaults, Fills) {
    survives<TriangleStrip>("one vertex", [](TriangleStrip& d) { d.addVertex(Point(1, 1)); });
    survives<TriangleStrip>("fewer colours", [](TriangleStrip& d) {
        d.setUseMultiColor(true);
        d.addVertex(Point(1, 1), red);
        for (int i = 0; i < 100; ++i) {
            d.addVertex(Point(nan, 1));
        }
    });
    survives<TriangleStrip>("more colours", [](TriangleStrip& d) {
        d.setUseMultiColor(true);
        for (int i = 0; i < 100; ++i) {
            d.addVertex(Point(5, 1), red);
        }
        d.setPattern(nullptr);
        d.setRect(3, 3);
    });
    survives<Circle>("no segments", [](Circle& d) { d.setCircle(5, 0); });
    survives<Circle>("one segment", [](Circle& d) { d.setCircle(5, 1); });
    survives<Circle>("no pattern, no radius", [](Circle& d) {
        d.setPattern(nullptr);
        d.setCircle(static_cast<double>(nan), 5);
        d.setCircle(-5, 500);
    });
    survives<Polygon>("nothing", [](Polygon& d) { d.addTessPolygon({}); });
    survives<Polygon>("primitives without enough vertices", [](Polygon& d) {
        d.setPattern(nullptr);
        d.addTessPolygon({{{{}, GL_TRIANGLES, 0}, {{{1, 1, 1}}, GL_TRIANGLE_FAN, 9}}});
    });
    survives<Polygon>("an outline that is no outline", [](Polygon& d) {
        Tesselator tesselator;
        tesselator.addVertex(Point(nan, 1));
        d.addTessPolygon(tesselator.tesselate());
    });
}

const std::vector<unsigned char> pixels(64, 0x80);
const std::vector<Vertex> positions(40, Vertex(1, 1, 0));

TEST_F(DrawingFaults, Images) {
    survives<Texture>("nulls", [](Texture& d) {
        d.load(nullptr, 4, 4, GL_RGBA);
        d.load(nullptr, GL_RGBA);
        EXPECT_EQ(d.createTexture(nullptr), 0U);
    });
    survives<Texture>("no image", [](Texture& d) {
        d.addTexture(std::vector<Vertex>{}, {});
        d.addTexture(positions, {});
        d.addVertex(Vertex(1, 1, 0), Point(nan, 1));
    });
    survives<Texture>("fewer texture coordinates", [](Texture& d) {
        d.load(pixels.data(), 4, 4, GL_RGBA);
        d.addTexture(positions, {{1, 1}});
        d.addTexture(std::vector<Vertex>{}, {});
    });
    survives<Texture>("more texture coordinates", [](Texture& d) {
        d.load(pixels.data(), 4, 4, GL_RGBA);
        d.addTexture(std::vector<Vertex>{{1, 1, 0}}, std::vector<Point>(40));
        d.load(nullptr, 4, 4, GL_RGBA);
    });
    survives<Video>("no init", [](Video& d) {
        d.putFrame(pixels.data());
        d.addVertex(Vertex(1, 1, 0), Point(1, 1));
        d.addVertex(Vertex(9, 1, 0), Point(1, 1));
    });
    survives<Video>("no frame", [](Video& d) {
        d.init(4, 4);
        d.putFrame(nullptr);
        d.clearVertex();
        d.addVertex(Vertex(1, 1, 0), Point(1, 1));
    });
    survives<Video>("twice", [](Video& d) {
        d.init(2, 2);
        d.putFrame(pixels.data());
        d.init(4, 4);
        d.putFrame(pixels.data());
    });
    survives<TextureTerrain>("nulls", [](TextureTerrain& d) {
        d.load(nullptr, 4, 4, GL_RGBA);
        d.load(nullptr, GL_RGBA);
        d.loadNormals(nullptr, 4, 4, GL_RGBA);
        d.addVertex(Vertex(1, 1, 0), Point(1, 1));
    });
}

template <typename Font>
void textWithoutFont(Font& d) {
    d.addText("ABC", MatrixGet(), Font::CENTER);
}
template <typename Font>
void oddText(Font& d) {
    ASSERT_TRUE(d.load(fontFile, 12));
    d.addText("", MatrixGet(), Font::CENTER);
    d.addText(std::string(3, '\0') + "\x01\x7F\x80\xFF A", MatrixGet(), Font::BOTTOM_RIGHT);
    d.setColor({nan, nan, nan, nan});
}

TEST_F(DrawingFaults, Fonts) {
    const TextureFont first;  // which say that FreeType is ready
    const TextureFontSdf firstSdf;
    survives<TextureFont>("no font", textWithoutFont);
    survives<TextureFont>("odd text", oddText);
    survives<TextureFontSdf>("no font", textWithoutFont);
    survives<TextureFontSdf>("odd text", oddText);
    survives<VectorFont>("no set", [](VectorFont& d) {
        d.vectorFontInit(nullptr);
        d.addText("ABC", MatrixGet(), 10, VectorFont::CENTER);
    });
    survives<VectorFont>("odd text", [](VectorFont& d) {
        d.addText("", MatrixGet(), 10, VectorFont::CENTER);
        d.addText(std::string(3, '\0') + "\x01\x7F\x80\xFF A", MatrixGet(), nan,
                  VectorFont::BOTTOM_RIGHT);
        d.setLineWidth(1.0);
    });
}

}  // namespace
