// In a core profile the legacy stipple raises GL errors: the lines are drawn all the same, and the
// errors are printed with the name of the class.
#include <GL/glew.h>
#include <Orlek/OpenGL/GlHandler.h>
#include <Orlek/OpenGL/LineLoops.h>
#include <Orlek/OpenGL/Lines.h>
#include <Orlek/OpenGL/MatrixStack.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>

#include "HeadlessContext.h"
#include "support/Capture.h"

namespace {

using namespace Orlek::OpenGL;
using OrlekTest::captureStderr;
using OrlekTest::captureStdout;

TEST(CoreProfile, PrintsTheStippleErrorsAndDraws) {
    const OrlekSupport::HeadlessContext context(64, 64, OrlekSupport::Profile::Core);
    captureStdout([] { GlHandler::instance().setViewPort({64, 64}); });  // and prints the versions
    MatrixLoadIdent();
    Lines lines;
    lines.setAntiAlias(false);
    lines.addVertex(Orlek::Math::Vector2<float>(-1, 0.01F));
    lines.addVertex(Orlek::Math::Vector2<float>(1, 0.01F));
    LineLoops loops;
    loops.setRect(1, 1);
    captureStderr([&] {
        EXPECT_EQ(captureStdout([&] { lines.render(); }), "Error <Lines> <Nix> 1280\n");
        EXPECT_EQ(captureStdout([&] { loops.render(1.0); }), "Error <LineLoops> <Nix> 1280\n");
    });
    std::array<std::uint8_t, 4> pixel{};
    glReadPixels(5, 32, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel.data());
    EXPECT_EQ(pixel[0], 255);
    lines.clear();
    loops.clear();
}

}  // namespace
