// Draws without the context that the objects and programs were made in, by mistake: nothing is
// drawn then, and all is as before as soon as it is current again.
#include <GL/glew.h>
#include <Orlek/OpenGL/GlHandler.h>
#include <Orlek/OpenGL/LineLoops.h>
#include <Orlek/OpenGL/MatrixStack.h>
#include <Orlek/OpenGL/TriangleStrip.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>

#include "HeadlessContext.h"
#include "support/Capture.h"

namespace {

using namespace Orlek::OpenGL;
using OrlekSupport::HeadlessContext;
using OrlekTest::captureStderr;
using OrlekTest::captureStdout;

constexpr int size = 64;
constexpr int side = size / 4;  // of a square in pixels, under the matrix of the test

// How many pixels a draw lights.
int litBy(auto&& draw) {
    glClear(GL_COLOR_BUFFER_BIT);
    EXPECT_EQ(captureStdout(draw), "");
    std::array<std::uint8_t, 4 * size * size> bytes{};
    glReadPixels(0, 0, size, size, GL_RGBA, GL_UNSIGNED_BYTE, bytes.data());
    int count = 0;
    for (std::size_t i = 0; i < bytes.size(); i += 4) {
        count += bytes[i] > 0 ? 1 : 0;
    }
    return count;
}

template <typename Drawable>
Drawable square() {
    Drawable drawable;
    drawable.setRect(1, 1);
    return drawable;
}

TEST(OtherContexts, DrawNothingAndSpoilNothing) {
    HeadlessContext mine(size, size);
    captureStdout([] { GlHandler::instance(); });  // prints the versions
    MatrixLoadIdent();
    MatrixScale(0.5, 0.5, 1);
    const auto loops = square<LineLoops>();
    auto drawn = loops;
    auto never = loops;
    auto strip = square<TriangleStrip>();
    auto changed = strip;
    const int outline = litBy([&] { drawn.render(1.0); });
    EXPECT_GT(outline, 3 * side);
    EXPECT_EQ(litBy([&] { changed.render(); }), side * side);
    changed.setRect(1, 2);
    captureStderr([&] {
        {
            const HeadlessContext other(size, size);
            const std::string text = captureStdout([&] { drawn.render(1.0); });
            EXPECT_NE(text.find("Error <LineLoops> <Nix> 1282\n"), std::string::npos) << text;
            GLuint own = 0;
            glGenBuffers(1, &own);
            glBindBuffer(GL_ARRAY_BUFFER, own);
            captureStdout([&] { changed.render(); });
            GLint bound = 0;
            glGetIntegerv(GL_ARRAY_BUFFER_BINDING, &bound);
            EXPECT_EQ(static_cast<GLuint>(bound), own) << "nothing is uploaded here";
        }
        captureStdout([&] {  // without any
            never.render(1.0);
            changed.render();
        });
    });
    mine.makeCurrent();
    GlHandler::clearError();
    EXPECT_EQ(litBy([&] { drawn.render(1.0); }), outline);
    EXPECT_EQ(litBy([&] { never.render(1.0); }), outline);
    EXPECT_EQ(litBy([&] { strip.render(); }), side * side);
    EXPECT_EQ(litBy([&] { changed.render(); }), 2 * side * side) << "the change is not lost";
    EXPECT_EQ(litBy([&] { drawn.render(1.0); }), outline);
    drawn.clear();
    never.clear();
    strip.clear();
    changed.clear();
}

}  // namespace
