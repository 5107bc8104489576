// Copies of every drawing class: they share GL objects until one changes, outlive each other, draw
// again after clear and leave no name behind.
#include <Orlek/OpenGL.h>

#include <optional>
#include <string>
#include <vector>

#include "support/GlTest.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;
using Point = Orlek::Math::Vector2<float>;
using Points = std::vector<Point>;
using Vertex = Orlek::Math::Vector3<float>;

void draw(auto& drawable) {
    drawable.render();
}
void draw(LineLoops& loops) {
    loops.render(1.0);
}
void draw(LineStrips& strips) {
    strips.render(-1);
}
void draw(LineStripsSimple& strips) {
    strips.render(-1);
}

Points squareAt(float x) {
    return {{x, 20.5F}, {x, 50.5F}, {x + 40, 50.5F}, {x + 40, 20.5F}};
}

class Sharing : public GlTest {
protected:
    static int pixelsOf(auto& drawable) {
        wipe();
        silently([&] { draw(drawable); });
        return drawnPixels();
    }

    /// `fill` gives an object its picture, `more` adds to it; a cleared object draws `again` or
    /// not.
    template <typename Drawable>
    void share(const char* what, bool again, void (*fill)(Drawable&), void (*more)(Drawable&)) {
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
        Lines next;  // whose upload deletes what assignments have left behind
        next.setRect(1, 1);
        draw(next);
        next.clear();
        EXPECT_EQ(newNames(), 0);
    }
};

TEST_F(Sharing, Lines) {
    share<Lines>(
        "lines", true, [](Lines& d) { d.setRect(40, 30); },
        [](Lines& d) {
            d.addVertex(Point(90, 10));
            d.addVertex(Point(90, 50));
        });
    share<LineLoops>(
        "loops", true, [](LineLoops& d) { d.addLineLoop(squareAt(10)); },
        [](LineLoops& d) { d.addLineLoop(squareAt(100)); });
    share<LineStrips>(
        "strips", true, [](LineStrips& d) { d.addLineStrip(squareAt(10)); },
        [](LineStrips& d) { d.addLineStrip(squareAt(100)); });
    share<LineStripsSimple>(
        "simple strips", true, [](LineStripsSimple& d) { d.addLineStrip(squareAt(10)); },
        [](LineStripsSimple& d) { d.addLineStrip(squareAt(100)); });
}

template <int x>
void addSquare(Polygon& polygon) {
    Tesselator tesselator;
    for (const Point& p : squareAt(x)) {
        tesselator.addVertex(p);
    }
    polygon.addTessPolygon(tesselator.tesselate());
}

TEST_F(Sharing, Fills) {
    share<Polygon>("polygon", true, addSquare<10>, addSquare<100>);
    share<TriangleStrip>(
        "strip", true, [](TriangleStrip& d) { d.setRect(40, 30); },
        [](TriangleStrip& d) {
            d.addVertex(Point(90, 0), {1, 1, 1, 1});
        });
    share<Circle>(
        "disc", true, [](Circle& d) { d.setCircle(20, 30); },
        [](Circle& d) {
            d.clearVertex();
            d.setCircle(40, 30);
        });
}

const std::vector<unsigned char> white(4UL * 16 * 16, 0xFF);

TEST_F(Sharing, Images) {
    MatrixTranslate(50, 50, 0);
    share<Texture>(
        "texture", false, [](Texture& d) { d.load(white.data(), 8, 8, GL_RGBA); },
        [](Texture& d) { d.load(white.data(), 16, 16, GL_RGBA); });
    share<Video>(
        "video", false,
        [](Video& d) {
            d.init(8, 8);
            d.putFrame(white.data());
        },
        [](Video& d) {
            d.init(16, 16);
            d.putFrame(white.data());
        });
}

constexpr Orlek::Math::Matrix4<float> here{{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 90, 40, 0, 1}};

template <typename Font>
void loadAndWrite(Font& font) {
    for (const int size : {40, 20}) {
        ASSERT_TRUE(font.load("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf", size));
    }
    font.addText("AB", here, Font::BOTTOM_LEFT);
}
template <typename Font>
void write(Font& font) {
    font.addText("CD", here, Font::TOP_RIGHT);
}

TEST_F(Sharing, Fonts) {
    const TextureFont first;  // which says that FreeType is ready
    share<TextureFont>("texture font", false, loadAndWrite, write);
    share<TextureFontSdf>("distance-field font", true, loadAndWrite, write);
    share<VectorFont>(
        "stroke font", true,
        [](VectorFont& d) { d.addText("AB", here, 20, VectorFont::BOTTOM_LEFT); },
        [](VectorFont& d) { d.addText("CD", here, 20, VectorFont::TOP_RIGHT); });
}

}  // namespace
