// What the benchmarks of fonts share: the texts that they draw, and how a frame is timed.
#pragma once

#include <GL/glew.h>
#include <Orlek/Math/Matrix4.h>
#include <Orlek/OpenGL/GlHandler.h>
#include <Orlek/OpenGL/MatrixStack.h>
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "HeadlessContext.h"

namespace OrlekBench {

inline const char* const fontFile = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

struct Label {
    std::string text;
    float x;
    float y;
};

/// 1,000 texts of 20 characters.
inline std::vector<Label> makeLabels() {
    std::vector<Label> labels;
    for (int i = 0; i < 1000; ++i) {
        std::string text;
        for (int c = 0; c < 20; ++c) {
            text.push_back(static_cast<char>('!' + (i * 7 + c * 13) % 90));
        }
        labels.push_back({text, static_cast<float>(i % 8 * 158), static_cast<float>(i / 8 * 6)});
    }
    return labels;
}

inline Orlek::Math::Matrix4<float> placed(const Label& label) {
    return {{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, label.x, label.y, 0, 1}};
}

/// What the benchmarks of one font share: a context whose units are pixels, and the labels.
struct TextScene {
    static constexpr int width = 1280;
    static constexpr int height = 800;
    OrlekSupport::HeadlessContext context{width, height};
    std::vector<Label> labels = makeLabels();

    TextScene() {
        Orlek::OpenGL::GlHandler::instance();
        glViewport(0, 0, width, height);
        Orlek::OpenGL::MatrixSet(
            {{2.0F / width, 0, 0, 0, 0, 2.0F / height, 0, 0, 0, 0, 1, 0, -1, -1, 0, 1}});
    }
};

/// Times whole frames, after one in which the driver compiles its shaders. That one is read: as
/// long as none was, llvmpipe takes twice the time for some runs of the same frames.
template <typename Draw>
void measureFrames(benchmark::State& state, Draw draw) {
    const auto frame = [&draw] {
        glClear(GL_COLOR_BUFFER_BIT);
        draw();
        glFinish();
    };
    frame();
    unsigned char pixel[4]{};
    glReadPixels(0, 0, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
    for (auto _ : state) {
        frame();
    }
}

}  // namespace OrlekBench
