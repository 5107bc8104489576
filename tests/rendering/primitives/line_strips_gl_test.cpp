// Open polylines of both strip classes on pixels read back. Coordinates are pixels (the fixture's
// matrix); centres of pixels lie at .5.
#include <Orlek/OpenGL/LineStrips.h>
#include <Orlek/OpenGL/LineStripsSimple.h>

#include <string>
#include <type_traits>

#include "LinesTest.h"

namespace {

using namespace Orlek::OpenGL;
using namespace OrlekTest;
using Color = Orlek::Math::Vector4<float>;

template <typename Strips>
class LineStripsTest : public LinesTest {
protected:
    static constexpr bool withAdjacency = std::is_same_v<Strips, LineStrips>;

    /// Entries of the uploaded list in front of the first segment's end.
    static constexpr int entriesBefore = withAdjacency ? 3 : 1;

    LineStripsTest() { strips.setAntiAlias(false); }

    int pixelsOf(Strips& drawable, int count = -1) {
        wipe();
        silently([&] { drawable.render(count); });
        return drawnPixels();
    }

    static Points horizontal(float from, float to, float y) { return {{from, y}, {to, y}}; }

    Strips strips;
};

using Classes = testing::Types<LineStrips, LineStripsSimple>;
TYPED_TEST_SUITE(LineStripsTest, Classes);

TYPED_TEST(LineStripsTest, NeedTwoEntriesAndAVertex) {
    EXPECT_EQ(this->pixelsOf(this->strips), 0);
    this->strips.addVertex(Point(10, 10));
    EXPECT_EQ(this->pixelsOf(this->strips), 0);
    EXPECT_EQ(this->newNames(), 0);
    TypeParam empty;
    for (int i = 0; i < 3; ++i) {
        empty.addLineStrip(Points());
        EXPECT_EQ(this->pixelsOf(empty), 0);
    }
}

TYPED_TEST(LineStripsTest, AreOpenAndNeverJoined) {
    this->strips.addLineStrip(square);
    EXPECT_EQ(this->pixelsOf(this->strips), 40 + 30 + 40);
    EXPECT_EQ(this->column(20, 21, 50), std::string(29, '.')) << "the side that would close it";
    this->strips.addLineStrip(Points());
    this->strips.addLineStrip(
        std::vector<Orlek::Math::Vector3<float>>{{100.5F, 20.5F, 0.5F}, {140.5F, 20.5F, -0.5F}});
    this->strips.addLineStrip(
        std::vector<Color>{{100.5F, 50.5F, 0.0F, 3.0F}, {140.5F, 50.5F, 0.0F, 0.0F}});
    EXPECT_EQ(this->pixelsOf(this->strips), 110 + 40 + 40);
    EXPECT_EQ(this->row(20, 98, 143), ".." + std::string(40, '#') + "...");
    EXPECT_EQ(this->row(50, 98, 143), ".." + std::string(40, '#') + "...");
}

TYPED_TEST(LineStripsTest, ContinueWhatWasAddedVertexByVertex) {
    this->strips.addVertex(Point(10.5F, 10.5F));
    this->strips.addVertex(Orlek::Math::Vector3<float>(30.5F, 10.5F, 0.0F));
    EXPECT_EQ(this->pixelsOf(this->strips), 20);
    this->strips.addVertex(Color(50.5F, 10.5F, 0.0F, 2.0F));
    EXPECT_EQ(this->pixelsOf(this->strips), 40) << "behind a draw too";
    this->strips.addLineStrip(Points{{60.5F, 10.5F}});
    EXPECT_EQ(this->pixelsOf(this->strips), 50);
    this->strips.addVertex(Point(80.5F, 10.5F));
    this->strips.addVertex(Point(90.5F, 10.5F));
    EXPECT_EQ(this->pixelsOf(this->strips), 60) << "a strip of its own";
}

TYPED_TEST(LineStripsTest, DrawALeadingPart) {
    this->strips.addLineStrip(
        Points{{10.5F, 10.5F}, {20.5F, 10.5F}, {30.5F, 10.5F}, {40.5F, 10.5F}});
    this->strips.addLineStrip(this->horizontal(10.5F, 20.5F, 30.5F));
    for (int segments = 1; segments <= 3; ++segments) {
        EXPECT_EQ(this->pixelsOf(this->strips, this->entriesBefore + segments), 10 * segments);
    }
    EXPECT_EQ(this->pixelsOf(this->strips, 0), 0);
    EXPECT_EQ(this->pixelsOf(this->strips, 1), 0);
    for (const int all : {-1, -5, 1000, 2147483647}) {
        EXPECT_EQ(this->pixelsOf(this->strips, all), 40) << all;
    }
}

TYPED_TEST(LineStripsTest, TakeColoursOnlyWhenEveryVertexHasOne) {
    const Color red{1, 0, 0, 1}, blue{0, 0, 1, 1};
    this->strips.setColor({0, 1, 0, 1});
    this->strips.addVertex(Point(10.5F, 10.5F), red);
    this->strips.addVertex(Orlek::Math::Vector3<float>(30.5F, 10.5F, 0), red);
    this->strips.addVertex(Color(50.5F, 10.5F, 0, 1), blue);
    const Pixel green{0, 255, 0, 255};
    EXPECT_EQ(this->pixelsOf(this->strips), 40);
    EXPECT_EQ(this->pixel(15, 10), green) << "not asked for";
    this->strips.setUseMultiColor(true);
    EXPECT_EQ(this->pixelsOf(this->strips), 40);
    EXPECT_EQ(this->pixel(15, 10), (Pixel{255, 0, 0, 255}));
    EXPECT_NEAR(this->pixel(40, 10)[2], 128, 8) << "blended along the segment";

    this->strips.addVertex(Point(70.5F, 10.5F));
    EXPECT_EQ(this->pixelsOf(this->strips), 60);
    EXPECT_EQ(this->pixel(15, 10), green) << "one colour is missing";
    this->strips.clearVertex();
    EXPECT_EQ(this->pixelsOf(this->strips), 0);
    this->strips.addVertex(Point(10.5F, 10.5F), blue);
    this->strips.addVertex(Point(20.5F, 10.5F), blue);
    EXPECT_EQ(this->pixelsOf(this->strips), 10);
    EXPECT_EQ(this->pixel(15, 10), (Pixel{0, 0, 255, 255})) << "colours were cleared too";
}

TYPED_TEST(LineStripsTest, SetRectReplacesEverythingByAClosedStrip) {
    this->strips.setUseMultiColor(true);
    for (const Point& p : square) {
        this->strips.addVertex(p, {1, 0, 0, 1});
    }
    MatrixTranslate(20.5, 20.5, 0);
    for (int i = 0; i < 2; ++i) {
        this->strips.setRect(40, 30);
        EXPECT_EQ(this->pixelsOf(this->strips), squarePixels);
        EXPECT_EQ(this->pixel(40, 20), (Pixel{255, 255, 255, 255}));
    }
    this->strips.addLineStrip(this->horizontal(100, 120, 0));
    EXPECT_EQ(this->pixelsOf(this->strips), squarePixels + 20);
}

TYPED_TEST(LineStripsTest, SetWidthAndStippleOrLeaveThem) {
    this->strips.addLineStrip(this->horizontal(10.5F, 42.5F, 40.5F));
    this->strips.addLineStrip(this->horizontal(60.5F, 76.5F, 40.5F));
    this->strips.setLineWidth(3);
    this->strips.setStipple(0x00FF);
    glLineWidth(5);
    const bool sets = this->withAdjacency;
    EXPECT_EQ(this->pixelsOf(this->strips), sets ? 3 * 24 : 5 * 48);
    EXPECT_EQ(this->row(40, 10, 76),
              sets ? "########........########.........."
                     "................########........"
                   : std::string(32, '#') + std::string(18, '.') + std::string(16, '#'))
        << "the pattern begins anew at each strip";
    EXPECT_EQ(this->integer(GL_LINE_WIDTH), sets ? 3 : 5);
    glLineWidth(1);
}

TYPED_TEST(LineStripsTest, LeaveBlendingAsAntialiasingSaysAndTheRestOff) {
    this->strips.addLineStrip(Points{{10.5F, 10.5F}, {90.5F, 60.5F}});
    this->strips.setStipple(0xF0F0);
    for (const bool on : {true, false}) {
        this->strips.setAntiAlias(on);
        this->pixelsOf(this->strips);
        EXPECT_EQ(glIsEnabled(GL_BLEND), on ? GL_TRUE : GL_FALSE);
        EXPECT_EQ(this->integer(GL_BLEND_SRC), GL_SRC_ALPHA);
        EXPECT_EQ(this->integer(GL_BLEND_DST), GL_ONE_MINUS_SRC_ALPHA);
        EXPECT_EQ(glIsEnabled(GL_LINE_STIPPLE), GL_FALSE);
        EXPECT_EQ(glIsEnabled(GL_LINE_SMOOTH), GL_FALSE);
        EXPECT_EQ(glIsEnabled(GL_PRIMITIVE_RESTART), GL_FALSE);
    }
    EXPECT_EQ(this->integer(GL_PRIMITIVE_RESTART_INDEX), 0x12FFFFFF);
    // The application's stipple is its own business only where the class does not set one.
    glEnable(GL_LINE_STIPPLE);
    this->pixelsOf(this->strips);
    EXPECT_EQ(glIsEnabled(GL_LINE_STIPPLE), this->withAdjacency ? GL_FALSE : GL_TRUE);
    glDisable(GL_LINE_STIPPLE);
}

TYPED_TEST(LineStripsTest, DiscardEarlierErrors) {
    this->strips.addLineStrip(square);
    for (int i = 0; i < 2; ++i) {
        glEnable(GL_INVALID_ENUM);
        EXPECT_EQ(this->pixelsOf(this->strips), i == 0 ? 110 : 0) << "and print nothing";
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        this->strips.clearVertex();
    }
}

}  // namespace
