// What the classes of open lines have in common, on pixels read back; what strips add to it.
#include <Orlek/OpenGL/LineStrips.h>
#include <Orlek/OpenGL/LineStripsSimple.h>
#include <Orlek/OpenGL/LineStyle.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <type_traits>

#include "Outlines.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;

template <typename Class>
class LinesTest : public GlTest {
protected:
    static constexpr bool setsWidthAndStipple = !std::is_same_v<Class, LineStripsSimple>;

    LinesTest() { lines.setAntiAlias(false); }

    /// A separate horizontal line.
    static void add(Class& drawable, float from, float to, float y) {
        if constexpr (std::is_same_v<Class, Lines>) {
            drawable.addVertex(Vertex(from, y, 0.5F));
            drawable.addVertex(Color(to, y, -0.5F, 7.0F));
        } else {
            drawable.addLineStrip(Points{{from, y}, {to, y}});
        }
    }

    static int greyPixels() {
        int count = 0;
        for (int i = 0; i < GlTest::width * GlTest::height; ++i) {
            const int red = GlTest::pixel(i % GlTest::width, i / GlTest::width)[0];
            count += red > 0 && red < 255 ? 1 : 0;
        }
        return count;
    }

    Class lines;
};

using OpenLines = testing::Types<Lines, LineStrips, LineStripsSimple>;
TYPED_TEST_SUITE(LinesTest, OpenLines);

TYPED_TEST(LinesTest, NeedTwoVertices) {
    EXPECT_EQ(this->pixelsOf(this->lines), 0);
    this->lines.addVertex(Point(10, 10));
    EXPECT_EQ(this->pixelsOf(this->lines), 0);
    EXPECT_EQ(this->newNames(), 0);
}

TYPED_TEST(LinesTest, LieWhereTheMatrixPutsThem) {
    this->add(this->lines, 10.5F, 20.5F, 30.5F);
    this->lines.setColor({0.2F, 0.4F, 0.6F, 1.0F});
    EXPECT_EQ(this->pixelsOf(this->lines), 10);
    EXPECT_EQ(this->row(30, 8, 23), "..##########...");
    EXPECT_EQ(this->pixel(15, 30), (Pixel{51, 102, 153, 255}));
    MatrixTranslate(100, 7, 0);
    MatrixRotate(90, 0, 0, 1);
    this->add(this->lines, 10.5F, 20.5F, 40.5F);
    EXPECT_EQ(this->pixelsOf(this->lines), 20);
    EXPECT_EQ(this->column(69, 15, 30), "..##########...");
    this->lines.clearVertex();
    EXPECT_EQ(this->pixelsOf(this->lines), 0);
}

TYPED_TEST(LinesTest, SetWidthAndStippleOrLeaveThem) {
    this->add(this->lines, 10.5F, 42.5F, 40.5F);
    this->add(this->lines, 60.5F, 76.5F, 40.5F);
    const bool sets = this->setsWidthAndStipple;
    for (const int lineWidth : {8, 1, 5}) {
        this->lines.setLineWidth(static_cast<float>(lineWidth));
        EXPECT_EQ(this->pixelsOf(this->lines), 48 * (sets ? lineWidth : 1));
    }
    this->lines.setLineWidth(3);
    glLineWidth(5);
    // One bit a pixel, from bit 0, anew at each line.
    const std::string solid = std::string(32, '#') + std::string(18, '.') + std::string(16, '#');
    std::string once = "#.#............#";
    for (const unsigned short pattern : std::array<unsigned short, 2>{0x8005, 0x00FF}) {
        this->lines.setStipple(pattern);
        const std::string expected = sets ? once + once + std::string(18, '.') + once : solid;
        const auto drawn = static_cast<int>(std::ranges::count(expected, '#'));
        EXPECT_EQ(this->pixelsOf(this->lines), drawn * (sets ? 3 : 5));
        EXPECT_EQ(this->row(40, 10, 76), expected);
        once = "########........";
    }
    EXPECT_EQ(this->integer(GL_LINE_WIDTH), sets ? 3 : 5);
    this->lines.setStipple(0);
    this->pixelsOf(this->lines);
    EXPECT_EQ(this->row(40, 10, 76), solid);
    glLineWidth(1);
}

TYPED_TEST(LinesTest, SmoothEdgesAndBlendOnlyWithAntialiasing) {
    TypeParam smooth;
    for (const Point& p : {Point(10.5F, 10.5F), {90.5F, 60.5F}}) {
        smooth.addVertex(p);
    }
    smooth.setStipple(0xFFFF);
    for (const bool on : {true, false}) {
        smooth.setAntiAlias(on);
        smooth.setColor({1, 1, 1, 1});
        const int pixels = this->pixelsOf(smooth);
        EXPECT_EQ(this->greyPixels() > 80, on);
        EXPECT_EQ(pixels == 80, !on);
        EXPECT_EQ(glIsEnabled(GL_BLEND), on ? GL_TRUE : GL_FALSE);
        EXPECT_EQ(this->integer(GL_BLEND_SRC), GL_SRC_ALPHA);
        EXPECT_EQ(this->integer(GL_BLEND_DST), GL_ONE_MINUS_SRC_ALPHA);
        EXPECT_EQ(glIsEnabled(GL_LINE_SMOOTH), GL_FALSE);
        smooth.setColor({1, 1, 1, 0.5F});
        EXPECT_EQ(this->pixelsOf(smooth), pixels);
        EXPECT_EQ(this->greyPixels() > 0, on) << "alpha has no effect otherwise";
    }
    // The application's stipple is its own business only where the class does not set one.
    glEnable(GL_LINE_STIPPLE);
    this->pixelsOf(smooth);
    EXPECT_EQ(glIsEnabled(GL_LINE_STIPPLE), this->setsWidthAndStipple ? GL_FALSE : GL_TRUE);
    glDisable(GL_LINE_STIPPLE);
}

template <typename Strips>
class StripsTest : public LinesTest<Strips> {};
using StripClasses = testing::Types<LineStrips, LineStripsSimple>;
TYPED_TEST_SUITE(StripsTest, StripClasses);

TYPED_TEST(StripsTest, AreOpenAndNeverJoined) {
    TypeParam& strips = this->lines;
    strips.addLineStrip(Points());
    EXPECT_EQ(this->pixelsOf(strips), 0);
    strips.addLineStrip(square);
    EXPECT_EQ(this->pixelsOf(strips), 40 + 30 + 40);
    EXPECT_EQ(this->column(20, 21, 50), std::string(29, '.')) << "the side that would close it";
    strips.addLineStrip(std::vector<Vertex>{{100.5F, 20.5F, 0.5F}, {140.5F, 20.5F, -0.5F}});
    strips.addLineStrip(std::vector<Color>{{100.5F, 50.5F, 0, 3}, {140.5F, 50.5F, 0, 0}});
    EXPECT_EQ(this->pixelsOf(strips), 110 + 40 + 40);
    for (const int y : {20, 50}) {
        EXPECT_EQ(this->row(y, 98, 143), ".." + std::string(40, '#') + "...");
    }
}

TYPED_TEST(StripsTest, ContinueWhatWasAddedVertexByVertex) {
    TypeParam& strips = this->lines;
    strips.addVertex(Point(10.5F, 10.5F));
    strips.addVertex(Vertex(30.5F, 10.5F, 0.0F));
    EXPECT_EQ(this->pixelsOf(strips), 20);
    strips.addVertex(Color(50.5F, 10.5F, 0.0F, 2.0F));
    EXPECT_EQ(this->pixelsOf(strips), 40) << "behind a draw too";
    strips.addLineStrip(Points{{60.5F, 10.5F}});
    EXPECT_EQ(this->pixelsOf(strips), 50);
    this->add(strips, 80.5F, 90.5F, 10.5F);
    EXPECT_EQ(this->pixelsOf(strips), 60) << "a strip of its own";
}

TYPED_TEST(StripsTest, DrawALeadingPart) {
    TypeParam& strips = this->lines;
    strips.addLineStrip(Points{{10.5F, 10.5F}, {20.5F, 10.5F}, {30.5F, 10.5F}, {40.5F, 10.5F}});
    this->add(strips, 10.5F, 20.5F, 30.5F);
    const auto pixelsOfPart = [&](int count) {
        this->wipe();
        this->silently([&] { strips.render(count); });
        return this->drawnPixels();
    };
    // Entries of the uploaded list in front of the first segment's end.
    const int before = this->setsWidthAndStipple ? 3 : 1;
    for (int segments = 1; segments <= 3; ++segments) {
        EXPECT_EQ(pixelsOfPart(before + segments), 10 * segments);
    }
    for (const int count : {0, 1, -1, -5, 1000, 2147483647}) {
        EXPECT_EQ(pixelsOfPart(count), count == 0 || count == 1 ? 0 : 40) << count;
    }
}

TYPED_TEST(StripsTest, TakeColoursOnlyWhenEveryVertexHasOne) {
    TypeParam& strips = this->lines;
    const Color blue{0, 0, 1, 1};
    strips.setColor({0, 1, 0, 1});
    strips.addVertex(Point(10.5F, 10.5F), red);
    strips.addVertex(Vertex(30.5F, 10.5F, 0), red);
    strips.addVertex(Color(50.5F, 10.5F, 0, 1), blue);
    const auto expectColor = [&](int pixels, const Pixel& color, const char* what) {
        EXPECT_EQ(this->pixelsOf(strips), pixels) << what;
        EXPECT_EQ(this->pixel(15, 10), color) << what;
    };
    const Pixel green{0, 255, 0, 255};
    expectColor(40, green, "not asked for");
    strips.setUseMultiColor(true);
    expectColor(40, {255, 0, 0, 255}, "each vertex has one");
    EXPECT_NEAR(this->pixel(40, 10)[2], 128, 8) << "blended along the segment";
    strips.addVertex(Point(70.5F, 10.5F));
    expectColor(60, green, "one colour is missing");
    strips.clearVertex();
    strips.addVertex(Point(10.5F, 10.5F), blue);
    strips.addVertex(Point(20.5F, 10.5F), blue);
    expectColor(10, {0, 0, 255, 255}, "colours were cleared too");
}

TYPED_TEST(StripsTest, SetRectReplacesEverythingByAClosedStrip) {
    TypeParam& strips = this->lines;
    strips.setUseMultiColor(true);
    for (const Point& p : square) {
        strips.addVertex(p, {1, 0, 0, 1});
    }
    MatrixTranslate(20.5, 20.5, 0);
    for (int i = 0; i < 2; ++i) {
        strips.setRect(40, 30);
        EXPECT_EQ(this->pixelsOf(strips), squarePixels);
        EXPECT_EQ(this->pixel(40, 20), (Pixel{255, 255, 255, 255}));
    }
    this->add(strips, 100, 120, 0);
    EXPECT_EQ(this->pixelsOf(strips), squarePixels + 20);
}

TYPED_TEST(StripsTest, DiscardEarlierErrors) {
    for (const int pixels : {0, 110}) {
        this->provokingErrors([] { glEnable(GL_INVALID_ENUM); });
        EXPECT_EQ(this->pixelsOf(this->lines), pixels) << "and print nothing";
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        this->lines.addLineStrip(square);
    }
}

class SeparateLines : public LinesTest<Lines> {};

TEST_F(SeparateLines, ArePairsOfVertices) {
    add(lines, 10.5F, 20.5F, 30.5F);
    lines.addVertex(Point(10.5F, 40.5F));
    EXPECT_EQ(pixelsOf(lines), 10) << "the odd vertex is not drawn";
    lines.setRect(100, 50);  // the two vertical sides
    MatrixTranslate(10.5, 20.5, 0);
    EXPECT_EQ(pixelsOf(lines), 100);
    for (const int x : {10, 110}) {
        EXPECT_EQ(column(x, 18, 73), ".." + std::string(50, '#') + "...");
    }
}

// OpenGL refuses this width and draws with the one before; nothing is printed, because uploading
// the matrix discards the error.
TEST_F(SeparateLines, KeepTheirWidthWhenAnotherIsRefused) {
    add(lines, 10.5F, 60.5F, 40.5F);
    lines.setLineWidth(5);
    EXPECT_EQ(pixelsOf(lines), 50 * 5);
    lines.setLineWidth(-1);
    lines.addVertex(Point(std::nanf(""), 1));
    lines.addVertex(Point(INFINITY, -INFINITY));
    provokingErrors([&] { EXPECT_EQ(pixelsOf(lines), 50 * 5); });
    Orlek::Detail::LineStyle style;
    style.setPattern(0x80FF);
    EXPECT_EQ(static_cast<unsigned>(style.stipple), 0x80FF80FFU) << "both halves";
}

}  // namespace
