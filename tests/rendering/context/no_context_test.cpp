// Without any OpenGL context: one printed line, and every class does nothing safely.
#include <Orlek/OpenGL/GlHandler.h>
#include <Orlek/OpenGL/LineLoops.h>
#include <Orlek/OpenGL/Lines.h>
#include <Orlek/OpenGL/MatrixStack.h>
#include <Orlek/OpenGL/TextureTerrain.h>
#include <Orlek/OpenGL/VectorFont.h>
#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "support/Capture.h"

namespace {

using namespace Orlek::OpenGL;
using OrlekTest::captureStdout;

void draw() {
    Lines lines;
    lines.setRect(10, 10);
    LineLoops loops;
    loops.setRect(10, 10);
    loops.setStipple(0x00FF);
    TextureTerrain terrain;
    const std::array<unsigned short, 4> texel{};
    terrain.loadNormals(texel.data(), 1, 1, 0x1908);
    terrain.addVertex(Orlek::Math::Vector3<float>(0, 0, 0), {0, 0});
    VectorFont font;
    font.addText("A", MatrixGet(), 10.0, VectorFont::CENTER);
    font.render();
    font.renderFont("A", 10.0, VectorFont::CENTER);
    for (const double scale : {0.0, 1.0}) {
        lines.render();
        loops.render(scale);
        terrain.render();
    }
    const Lines copy = lines;
    lines.clear();
    loops.clear();
    terrain.clear();
    EXPECT_EQ(terrain.width(), 0U);
}

void useShaders() {
    Shader shader(Shader::VERTEX_SHADER);
    EXPECT_EQ(shader.handle(), 0U);
    EXPECT_TRUE(shader.loadSource(nullptr, 0));
    EXPECT_FALSE(shader.compile());
    ShaderProgram program;
    EXPECT_EQ(program.handle(), 0U);
    EXPECT_TRUE(program.attachShader(shader));
    program.bindLocation(0, "vertex");
    EXPECT_FALSE(program.link());
    EXPECT_TRUE(program.use(true));
    program.setFloatVar("color", 1.0F);
    program.info();
    GlHandler::instance().activateShader(2);
    EXPECT_EQ(GlHandler::instance().activeShaderHandle(), 0U);
    GlHandler::instance().setIntVar("antialias", 1);
    MatrixActivate();
    GlHandler::instance().deactivateShader();
}

TEST(WithoutContext, NothingIsDrawnAndOnlyTheStartIsReported) {
    const std::string start = captureStdout([] { GlHandler::instance(); });
    EXPECT_EQ(start.rfind("GlHandler::GlHandler Error: ", 0), 0U) << start;
    EXPECT_NE(start.find("\nGL version <> 0.0\nGLSL version <> 0.0\n"), std::string::npos) << start;
    EXPECT_EQ(captureStdout(draw), "");
    EXPECT_EQ(captureStdout(useShaders), "");
}

}  // namespace
