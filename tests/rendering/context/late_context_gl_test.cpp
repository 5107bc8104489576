// Objects that were used before there was a context: they draw once there is one.
#include <GL/glew.h>
#include <Orlek/OpenGL/GlHandler.h>
#include <Orlek/OpenGL/MatrixStack.h>
#include <Orlek/OpenGL/Texture.h>
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "HeadlessContext.h"
#include "support/Capture.h"

namespace {

using namespace Orlek::OpenGL;
using OrlekTest::captureStdout;

TEST(LateContext, DrawsAndReportsFromTheMomentItIsThere) {
    const std::vector<unsigned char> white(std::size_t{4} * 2 * 2, 0xFF);
    Texture image;
    EXPECT_EQ(captureStdout([&] {
                  image.load(white.data(), 2, 2, 0x1908);
                  image.render();
              }),
              "");
    EXPECT_NE(captureStdout([] { GlHandler::instance(); }).find("GL version <> 0.0"),
              std::string::npos);
    const OrlekSupport::HeadlessContext context(64, 64);
    MatrixLoadIdent();
    const std::string start = captureStdout([&] {
        image.load(white.data(), 2, 2, 0x1908);
        image.render();
    });
    EXPECT_NE(start.find("GL version <"), std::string::npos) << start;
    std::array<std::uint8_t, 4> pixel{};
    glReadPixels(48, 48, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel.data());
    EXPECT_EQ(pixel[0], 255);
    image.clear();
}

}  // namespace
