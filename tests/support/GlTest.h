// Fixture of the tests that draw: one context without a screen for the whole program, a cleared
// picture for each test, pixels read back.
#pragma once

#include <GL/glew.h>
#include <gtest/gtest.h>

#include <Orlek/OpenGL/GlHandler.h>
#include <Orlek/OpenGL/Lines.h>
#include <Orlek/OpenGL/MatrixStack.h>

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "Capture.h"
#include "GlNames.h"
#include "HeadlessContext.h"

namespace OrlekTest {

using Pixel = std::array<int, 4>;

/// Draws whatever there is to draw.
void draw(auto& drawable) {
    if constexpr (requires { drawable.render(); }) {
        drawable.render();
    } else {
        drawable.render(-1);
    }
}

class GlTest : public testing::Test {
protected:
    static constexpr int width = 200;
    static constexpr int height = 100;

    static void SetUpTestSuite() { context(); }

    void SetUp() override {
        context().makeCurrent();
        glViewport(0, 0, width, height);
        glDisable(GL_BLEND);
        glClearColor(0, 0, 0, 1);
        wipe();
        Orlek::OpenGL::GlHandler::clearError();
        Orlek::OpenGL::GlHandler::instance().setViewPort({width, height});
        usePixels();
        mNamesBefore = liveNames();
    }

    /// Every test ends without a pending GL error, with nothing in use or left switched on.
    void TearDown() override {
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        for (const int name :
             {GL_CURRENT_PROGRAM, GL_VERTEX_ARRAY_BINDING, GL_PIXEL_UNPACK_BUFFER_BINDING,
              GL_PRIMITIVE_RESTART, GL_LINE_STIPPLE, GL_POLYGON_STIPPLE}) {
            EXPECT_EQ(integer(static_cast<GLenum>(name)), 0) << name;
        }
    }

    /// No name outlives the objects of a test.
    ~GlTest() override {
        deleteParked();
        EXPECT_EQ(newNames(), 0);
    }

    /// Any upload deletes the names that destructors have left behind.
    static void deleteParked() {
        Orlek::OpenGL::Lines lines;
        lines.setRect(1, 1);
        lines.render();
    }

    /// Units of the matrix become pixels, the origin the lower left corner.
    static void usePixels() {
        Orlek::OpenGL::MatrixSet(
            {{2.0F / width, 0, 0, 0, 0, 2.0F / height, 0, 0, 0, 0, 1, 0, -1, -1, 0, 1}});
    }

    /// How many more names there are than when the test began.
    int newNames() const { return liveNames() - mNamesBefore; }

    static void wipe() { glClear(GL_COLOR_BUFFER_BIT); }

    static int integer(GLenum name) {
        GLint value = 0;
        glGetIntegerv(name, &value);
        return value;
    }

    /// Colour of the pixel in column x from the left and row y from the bottom.
    static Pixel pixel(int x, int y) {
        std::array<std::uint8_t, 4> bytes{};
        glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, bytes.data());
        return {bytes[0], bytes[1], bytes[2], bytes[3]};
    }

    /// Pixels of a row (or column) as text: '#' where something was drawn, '.' elsewhere.
    static std::string row(int y, int from, int to) {
        std::string text;
        for (int x = from; x < to; ++x) {
            text.push_back(drawn(x, y) ? '#' : '.');
        }
        return text;
    }
    static std::string column(int x, int from, int to) {
        std::string text;
        for (int y = from; y < to; ++y) {
            text.push_back(drawn(x, y) ? '#' : '.');
        }
        return text;
    }

    static bool drawn(int x, int y) {
        const Pixel p = pixel(x, y);
        return p[0] + p[1] + p[2] > 0;
    }

    /// Number of pixels that differ from the background.
    static int drawnPixels() {
        std::vector<std::uint8_t> bytes(std::size_t{4} * width * height);
        glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, bytes.data());
        int count = 0;
        for (std::size_t i = 0; i < bytes.size(); i += 4) {
            count += bytes[i] + bytes[i + 1] + bytes[i + 2] > 0 ? 1 : 0;
        }
        return count;
    }

    /// The number of pixels that these drawables draw on black, printing nothing.
    static int pixelsOf(auto&... drawables) {
        wipe();
        silently([&] { (draw(drawables), ...); });
        return drawnPixels();
    }

    /// Runs a function that must print nothing.
    template <typename Function>
    static void silently(Function&& function) {
        EXPECT_EQ(captureStdout(std::forward<Function>(function)), "");
    }

    /// Runs a function that provokes GL errors, of which the driver's debug output tells.
    template <typename Function>
    static void provokingErrors(Function&& function) {
        const std::string told = captureStderr(std::forward<Function>(function));
        EXPECT_TRUE(told.empty() || told.starts_with("GL CALLBACK: ** GL ERROR ** ")) << told;
    }

private:
    static OrlekSupport::HeadlessContext& context() {
        static OrlekSupport::HeadlessContext shared(width, height);
        // The first use prints the versions.
        static const std::string versions =
            captureStdout([] { Orlek::OpenGL::GlHandler::instance(); });
        return shared;
    }

    int mNamesBefore = 0;
};

}  // namespace OrlekTest
