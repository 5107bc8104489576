// Every drawing class: copies share GL objects until one changes, bad input prints nothing and
// raises no GL error, and no name is left behind.
#include <Orlek/OpenGL.h>

#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "Outlines.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;

constexpr float nan = std::numeric_limits<float>::quiet_NaN();
constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr Orlek::Math::Matrix4<float> here{{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 90, 40, 0, 1}};
const char* const fontFile = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
const std::vector<unsigned char> white(4UL * 16 * 16, 0xFF);
const std::vector<Vertex> positions(40, Vertex(1, 1, 0));

Points squareAt(float x) {
    return {{x, 20.5F}, {x, 50.5F}, {x + 40, 50.5F}, {x + 40, 20.5F}};
}

/// Draws in every way there is.
template <typename Drawable>
void drawOddly(Drawable& d) {
    draw(d);
    if constexpr (requires { d.setUseMultiColor(true), d.render(1); }) {
        for (const int count : {0, 1, 2, 3, 4, 5, 1000000000}) {
            d.render(count);
        }
    } else if constexpr (requires { d.render(1.0); }) {
        d.render(nan);
    } else if constexpr (requires { d.renderFont("", Drawable::CENTER); }) {
        d.renderFont("", Drawable::CENTER);
        d.renderFont(3.0, nan, "x\xFF\x01\n", Drawable::CENTER);
    } else if constexpr (requires { d.renderFont("", 10.0, Drawable::CENTER); }) {
        d.renderFont("", 10.0, Drawable::CENTER);
        d.renderFont(3.0, nan, "x\xFF\x01\n", 0.0, Drawable::CENTER);
    }
}

class Drawables : public GlTest {
protected:
    /// `fill` gives an object its picture, `more` adds to it; a cleared object draws `again` or
    /// not.
    template <typename Drawable>
    void share(const char* what, bool again, auto fill, auto more) {
        SCOPED_TRACE(what);
        Drawable first;
        fill(first);
        const int before = pixelsOf(first);
        const int names = newNames();
        EXPECT_GT(before, 0);
        EXPECT_GT(names, 0);
        std::optional<Drawable> copy(first);
        EXPECT_EQ(pixelsOf(*copy), before);
        EXPECT_EQ(newNames(), names) << "shared";
        more(*copy);
        const int after = pixelsOf(*copy);
        EXPECT_GT(after, before);
        EXPECT_GT(newNames(), names) << "parted";
        EXPECT_EQ(pixelsOf(first), before);

        Drawable other;
        other = *copy;
        const Drawable& same = other;
        other = same;
        copy.reset();
        first.clear();
        EXPECT_EQ(pixelsOf(first), again ? before : 0);
        first.clear();
        first.clear();
        EXPECT_EQ(pixelsOf(other), after) << "outlives the others";
        first = other;
        EXPECT_EQ(pixelsOf(first), after);
        first.clear();
        EXPECT_EQ(pixelsOf(other), after) << "still has what both shared";
        other.clear();
        deleteParked();
        EXPECT_EQ(newNames(), 0);
    }

    /// Drawn before and after it is filled, shared, parted, cleared, filled and drawn again.
    template <typename Drawable>
    static void live(auto fill) {
        Drawable drawable;
        drawOddly(drawable);
        drawable.clear();
        fill(drawable);
        drawOddly(drawable);
        Drawable copy = drawable;
        drawOddly(copy);
        fill(copy);
        drawOddly(copy);
        drawable.clear();
        drawOddly(drawable);
        drawOddly(copy);
        drawable = copy;
        copy.clearVertex();
        drawOddly(copy);
        copy.clear();
        fill(copy);
        drawOddly(copy);
        Drawable{copy}.clear();
        drawOddly(copy);
    }

    template <typename... Classes>
    void survive(const char* what, auto fill) {
        SCOPED_TRACE(what);
        EXPECT_EQ(captureStderr([&] { silently([&] { (live<Classes>(fill), ...); }); }), "");
        deleteParked();
        EXPECT_EQ(newNames(), 0);
    }
};

TEST_F(Drawables, StripsRestartAtTheirOwnIndex) {
    const auto check = [](auto strips) {
        strips.addLineStrip(squareAt(10));
        strips.addLineStrip(squareAt(100));
        const int pixels = pixelsOf(strips);
        glEnable(GL_PRIMITIVE_RESTART_FIXED_INDEX);
        EXPECT_EQ(pixelsOf(strips), pixels);
        EXPECT_TRUE(glIsEnabled(GL_PRIMITIVE_RESTART_FIXED_INDEX));
        glDisable(GL_PRIMITIVE_RESTART_FIXED_INDEX);
    };
    check(LineStrips());
    check(LineStripsSimple());
}

PFNGLBUFFERDATAPROC realBufferData = nullptr;

// Asks the driver for more than there is.
void GLAPIENTRY outOfMemory(GLenum target, GLsizeiptr, const void*, GLenum usage) {
    constexpr GLsizeiptr most = std::numeric_limits<GLsizeiptr>::max();
    realBufferData(target, most - 4096, nullptr, usage);
}

TEST_F(Drawables, UploadsThatFindNoMemoryAreReportedAndMadeAtTheNextDraw) {
    realBufferData = __glewBufferData;
    const auto check = [](const std::string& label, auto drawable, auto fill) {
        fill(drawable);
        __glewBufferData = outOfMemory;
        provokingErrors([&] {
            const std::string lines = captureStdout([&] { OrlekTest::draw(drawable); });
            EXPECT_TRUE(lines.starts_with("Error <" + label + "> <Nix> 1285\n")) << lines;
        });
        __glewBufferData = realBufferData;
        EXPECT_GT(pixelsOf(drawable), 0) << label;
    };
    check("Lines", Lines(), [](Lines& d) { d.setRect(40, 30); });
    check("LineLoops", LineLoops(), [](LineLoops& d) { d.setRect(40, 30); });
    check("LineStrips", LineStrips(), [](LineStrips& d) { d.setRect(40, 30); });
    check("glBufferData", Circle(), [](Circle& d) { d.setCircle(30, 16); });
    check("glBufferData", TriangleStrip(), [](TriangleStrip& d) { d.setRect(40, 30); });
    check("Polygon", Polygon(), [](Polygon& d) {
        d.addTessPolygon({{{{{0, 0, 0}, {40, 0, 0}, {40, 30, 0}}, GL_TRIANGLES, 0}}});
    });
    check("VectorFont", VectorFont(),
          [](VectorFont& d) { d.addText("A", here, 30.0, VectorFont::CENTER); });
    Video video;
    video.init(4, 4);
    video.putFrame(white.data());
    const int whole = pixelsOf(video);
    EXPECT_GT(whole, 0);
    __glewBufferData = outOfMemory;
    provokingErrors([&] {
        EXPECT_EQ(captureStdout([&] { video.init(400, 300); }), "Error <Video> <Nix> 1285\n");
    });
    __glewBufferData = realBufferData;
    EXPECT_EQ(video.width(), 4U);
    EXPECT_EQ(pixelsOf(video), whole);
}

TEST_F(Drawables, LinesShareAndSurvive) {
    const auto addLoop = [](float x) { return [x](LineLoops& d) { d.addLineLoop(squareAt(x)); }; };
    const auto addStrip = [](float x) { return [x](auto& d) { d.addLineStrip(squareAt(x)); }; };
    share<Lines>(
        "lines", true, [](auto& d) { d.setRect(40, 30); },
        [](auto& d) {
            d.addVertex(Point(90, 10));
            d.addVertex(Point(90, 50));
        });
    share<LineLoops>("loops", true, addLoop(10), addLoop(100));
    share<LineStrips>("strips", true, addStrip(10), addStrip(100));
    share<LineStripsSimple>("simple strips", true, addStrip(10), addStrip(100));

    survive<Lines, LineLoops>("one vertex, then an odd number",
                              [](auto& d) { d.addVertex(Point(1, 1)); });
    survive<Lines>("not finite", [](auto& d) {
        d.addVertex(Point(nan, infinity));
        d.addVertex(Point(1, 1));
        d.setLineWidth(1e9F);
        d.setStipple(0xFFFF);
    });
    survive<LineLoops>("loops of nothing and of one point", [](auto& d) {
        d.addLineLoop(Points{});
        d.addLineLoop(Points{{nan, 1}});
        d.setStipple(1);
    });
    survive<LineStrips, LineStripsSimple>("strips of nothing and of one point", [](auto& d) {
        d.addLineStrip(Points{});
        d.addLineStrip(Points{{1, 1}});
        d.addLineStrip(Points{{nan, infinity}});
        d.addVertex(Point(1, 1));
    });
    survive<LineStrips, LineStripsSimple, TriangleStrip>("fewer colours", [](auto& d) {
        d.setUseMultiColor(true);
        d.addVertex(Point(1, 1), red);
        for (int i = 0; i < 100; ++i) {
            d.addVertex(Point(nan, 1));
        }
    });
    survive<LineStrips, LineStripsSimple, TriangleStrip>("more colours", [](auto& d) {
        d.setUseMultiColor(true);
        for (int i = 0; i < 100; ++i) {
            d.addVertex(Point(5, 1), red);
        }
        d.setRect(3, 3);
        d.addVertex(Point(1, 1), red);
    });
}

TEST_F(Drawables, FillsShareAndSurvive) {
    const auto addSquare = [](float x) {
        return [x](Polygon& d) { d.addTessPolygon(tesselated(squareAt(x))); };
    };
    share<Polygon>("polygon", true, addSquare(10), addSquare(100));
    share<TriangleStrip>(
        "strip", true, [](auto& d) { d.setRect(40, 30); },
        [](auto& d) { d.addVertex(Point(90, 0), red); });
    share<Circle>(
        "disc", true, [](auto& d) { d.setCircle(20, 30); },
        [](auto& d) {
            d.clearVertex();
            d.setCircle(40, 30);
        });

    survive<TriangleStrip>("one vertex", [](auto& d) { d.addVertex(Point(1, 1)); });
    survive<Circle>("hardly a segment, no radius", [](auto& d) {
        d.setCircle(5, 0);
        d.setCircle(5, 1);
        d.setPattern(nullptr);
        d.setCircle(static_cast<double>(nan), 5);
        d.setCircle(-5, 500);
    });
    survive<Polygon>("primitives without enough vertices", [](auto& d) {
        d.addTessPolygon({});
        d.setPattern(nullptr);
        d.addTessPolygon({{{{}, GL_TRIANGLES, 0}, {{{1, 1, 1}}, GL_TRIANGLE_FAN, 9}}});
    });
}

TEST_F(Drawables, ImagesShareAndSurvive) {
    const auto loadImage = [](unsigned side) {
        return [side](auto& d) { d.load(white.data(), side, side, GL_RGBA); };
    };
    const auto putFrame = [](unsigned side) {
        return [side](Video& d) {
            d.init(side, side);
            d.putFrame(white.data());
        };
    };
    MatrixTranslate(50, 50, 0);
    share<Texture>("texture", false, loadImage(8), loadImage(16));
    share<Video>("video", false, putFrame(8), putFrame(16));

    survive<Texture, TextureTerrain>("nulls", [](auto& d) {
        d.load(nullptr, 4, 4, GL_RGBA);
        d.load(nullptr, GL_RGBA);
        d.addVertex(Vertex(1, 1, 0), Point(nan, 1));
    });
    survive<TextureTerrain>("no normals", [](auto& d) {
        d.loadNormals(nullptr, 4, 4, GL_RGBA);
        d.addVertex(Vertex(1, 1, 0), Point(1, 1));
    });
    survive<Texture>("no image", [](auto& d) {
        d.addTexture(std::vector<Vertex>{}, {});
        d.addTexture(positions, {});
    });
    survive<Texture>("fewer texture coordinates", [&](auto& d) {
        loadImage(4)(d);
        d.addTexture(positions, {{1, 1}});
        d.addTexture(std::vector<Vertex>{}, {});
    });
    survive<Texture>("more texture coordinates", [&](auto& d) {
        loadImage(4)(d);
        d.addTexture(std::vector<Vertex>{{1, 1, 0}}, Points(40));
        d.load(nullptr, 4, 4, GL_RGBA);
    });
    survive<Video>("no init", [](auto& d) {
        d.putFrame(white.data());
        d.addVertex(Vertex(1, 1, 0), Point(1, 1));
        d.addVertex(Vertex(9, 1, 0), Point(1, 1));
    });
    survive<Video>("no frame", [](auto& d) {
        d.init(4, 4);
        d.putFrame(nullptr);
        d.clearVertex();
        d.addVertex(Vertex(1, 1, 0), Point(1, 1));
    });
}

TEST_F(Drawables, FontsShareAndSurvive) {
    captureStdout([] {  // the first ones say that FreeType is ready
        const TextureFont font;
        const TextureFontSdf fontSdf;
    });
    const std::string odd = std::string(3, '\0') + "\x01\x7F\x80\xFF A";
    const auto loadAndWrite = [](auto& font) {
        for (const int size : {40, 20}) {
            ASSERT_TRUE(font.load(fontFile, size));
        }
        font.addText("AB", here, font.BOTTOM_LEFT);
    };
    const auto write = [](auto& font) { font.addText("CD", here, font.TOP_RIGHT); };
    share<TextureFont>("texture font", false, loadAndWrite, write);
    share<TextureFontSdf>("distance-field font", true, loadAndWrite, write);
    share<VectorFont>(
        "stroke font", true,
        [](VectorFont& d) { d.addText("AB", here, 20, VectorFont::BOTTOM_LEFT); },
        [](VectorFont& d) { d.addText("CD", here, 20, VectorFont::TOP_RIGHT); });

    survive<TextureFont, TextureFontSdf>("no font", write);
    survive<TextureFont, TextureFontSdf>("odd text", [&odd](auto& d) {
        ASSERT_TRUE(d.load(fontFile, 12));
        d.addText("", here, d.CENTER);
        d.addText(odd, here, d.BOTTOM_RIGHT);
        d.setColor({nan, nan, nan, nan});
    });
    survive<VectorFont>("no set, odd text", [&odd](VectorFont& d) {
        d.vectorFontInit(nullptr);
        d.addText("", here, 10, VectorFont::CENTER);
        d.addText(odd, here, nan, VectorFont::BOTTOM_RIGHT);
        d.setLineWidth(1.0);
    });
}

}  // namespace
