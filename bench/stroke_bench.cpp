// Batched stroke text of 20,000 characters beside a program that keeps the points of the characters
// itself, expands its texts by hand and makes the bare calls.
//
// Every iteration ends with glFinish, so that the whole frame is measured. Report medians:
//   stroke_bench --benchmark_repetitions=9 --benchmark_enable_random_interleaving=true
#include <GL/glew.h>
#include <Orlek/OpenGL/GlHandler.h>
#include <Orlek/OpenGL/MatrixStack.h>
#include <Orlek/OpenGL/VectorFont.h>
#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "HeadlessContext.h"
#include "TextFrames.h"
#include "text/layout/BuiltInStrokeSet.h"

namespace {

using namespace Orlek;
using namespace OrlekBench;

constexpr int width = 1280;
constexpr int height = 800;
constexpr double size = 12.0;

struct Point {
    float x, y, z;
};

/// Vertex arrays built by hand: plain structs, one pass, memory reused.
struct Arrays {
    std::array<std::span<const OpenGL::CHARDEF_STRUCT>, 128> characters;
    std::vector<Point> points;
    std::vector<std::uint32_t> indices;

    Arrays() {
        const OpenGL::CHARDEF_STRUCT* record = Detail::builtInStrokeSet().records;
        for (auto& character : characters) {
            const auto* first = record;
            while ((record++)->type != 3) {
            }
            character = {first, record};
        }
    }

    void build(std::span<const Label> labels) {
        constexpr auto scale = static_cast<float>(size / 15.97);
        points.clear();
        indices.clear();
        for (const Label& label : labels) {
            float pen = label.x;
            for (const char byte : label.text) {
                for (const auto& record : characters[static_cast<unsigned char>(byte)]) {
                    indices.push_back(static_cast<std::uint32_t>(points.size()));
                    points.push_back({pen + scale * record.x, label.y + scale * record.y, 0.0F});
                    if (record.type != 1) {
                        indices.push_back(0xFFFFFFFFU);
                    }
                }
                pen += scale * 13.120160F;
            }
        }
    }
};

/// The bare GL objects and calls of one batch.
class BareBatch {
public:
    BareBatch() {
        OpenGL::GlHandler& gl = OpenGL::GlHandler::instance();
        gl.activateShader(7);
        mProgram = gl.activeShaderHandle();
        gl.deactivateShader();
        mColor = glGetUniformLocation(mProgram, "color");
        mOffset = glGetUniformLocation(mProgram, "offset");
        mMatrix = glGetUniformLocation(mProgram, "mvp");
        glGenVertexArrays(1, &mVao);
        glGenBuffers(2, mBuffers);
    }
    ~BareBatch() {
        glDeleteBuffers(2, mBuffers);
        glDeleteVertexArrays(1, &mVao);
    }
    BareBatch(const BareBatch&) = delete;
    BareBatch& operator=(const BareBatch&) = delete;

    void upload(const Arrays& arrays) {
        glBindVertexArray(mVao);
        fill(GL_ARRAY_BUFFER, mBuffers[0], arrays.points);
        glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
        glEnableVertexAttribArray(0);
        fill(GL_ELEMENT_ARRAY_BUFFER, mBuffers[1], arrays.indices);
        mCount = static_cast<GLsizei>(arrays.indices.size());
    }

    void draw() const {
        const Math::Matrix4<float> matrix = OpenGL::MatrixGet();
        glUseProgram(mProgram);
        glUniform4f(mColor, 1.0F, 1.0F, 1.0F, 1.0F);
        glUniform3f(mOffset, 0.0F, 0.0F, 0.0F);
        glUniformMatrix4fv(mMatrix, 1, GL_FALSE, matrix.m);
        glEnable(GL_BLEND);
        glEnable(GL_LINE_SMOOTH);
        glLineWidth(1.5F);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        glPrimitiveRestartIndex(0xFFFFFFFFU);
        glEnable(GL_PRIMITIVE_RESTART);
        glBindVertexArray(mVao);
        glDrawElements(GL_LINE_STRIP, mCount, GL_UNSIGNED_INT, nullptr);
        glBindVertexArray(0);
        glDisable(GL_PRIMITIVE_RESTART);
        glDisable(GL_LINE_SMOOTH);
        glUseProgram(0);
    }

private:
    template <typename T>
    static void fill(GLenum target, unsigned buffer, const std::vector<T>& values) {
        glBindBuffer(target, buffer);
        glBufferData(target, static_cast<GLsizeiptr>(values.size() * sizeof(T)), values.data(),
                     GL_STATIC_DRAW);
    }

    unsigned mProgram = 0;
    int mColor = -1;
    int mOffset = -1;
    int mMatrix = -1;
    unsigned mVao = 0;
    unsigned mBuffers[2]{};
    GLsizei mCount = 0;
};

/// What all benchmarks share: one context, one font, the labels.
struct Scene {
    OrlekSupport::HeadlessContext context{width, height};
    std::vector<Label> labels = makeLabels();
    OpenGL::VectorFont font;

    Scene() {
        OpenGL::GlHandler::instance();
        glViewport(0, 0, width, height);
        OpenGL::MatrixSet(
            {{2.0F / width, 0, 0, 0, 0, 2.0F / height, 0, 0, 0, 0, 1, 0, -1, -1, 0, 1}});
    }

    void addAll() {
        font.clearVertex();
        for (const Label& label : labels) {
            font.addText(label.text, placed(label), size, OpenGL::VectorFont::BOTTOM_LEFT);
        }
    }
};

Scene& scene() {
    static Scene shared;
    return shared;
}

void unchangedBatch(benchmark::State& state) {
    scene().addAll();
    measureFrames(state, [] { scene().font.render(); });
}
BENCHMARK(unchangedBatch)->Unit(benchmark::kMillisecond)->UseRealTime();

void unchangedBare(benchmark::State& state) {
    scene();
    BareBatch bare;
    Arrays arrays;
    arrays.build(scene().labels);
    bare.upload(arrays);
    measureFrames(state, [&] { bare.draw(); });
}
BENCHMARK(unchangedBare)->Unit(benchmark::kMillisecond)->UseRealTime();

void rebuiltBatch(benchmark::State& state) {
    measureFrames(state, [] {
        scene().addAll();
        scene().font.render();
    });
}
BENCHMARK(rebuiltBatch)->Unit(benchmark::kMillisecond)->UseRealTime();

void rebuiltBare(benchmark::State& state) {
    scene();
    BareBatch bare;
    Arrays arrays;
    measureFrames(state, [&] {
        arrays.build(scene().labels);
        bare.upload(arrays);
        bare.draw();
    });
}
BENCHMARK(rebuiltBare)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The upload and draw alone, without any expansion.
void uploadedBare(benchmark::State& state) {
    scene();
    BareBatch bare;
    Arrays arrays;
    arrays.build(scene().labels);
    measureFrames(state, [&] {
        bare.upload(arrays);
        bare.draw();
    });
}
BENCHMARK(uploadedBare)->Unit(benchmark::kMillisecond)->UseRealTime();

void buildBatchOnly(benchmark::State& state) {
    for (auto _ : state) {
        scene().addAll();
    }
}
BENCHMARK(buildBatchOnly)->Unit(benchmark::kMillisecond)->UseRealTime();

void buildArraysOnly(benchmark::State& state) {
    Arrays arrays;
    for (auto _ : state) {
        arrays.build(scene().labels);
        benchmark::DoNotOptimize(arrays.points.data());
    }
}
BENCHMARK(buildArraysOnly)->Unit(benchmark::kMillisecond)->UseRealTime();

void atOnce(benchmark::State& state) {
    measureFrames(state, [] {
        for (const Label& label : scene().labels) {
            scene().font.renderFont(label.x, label.y, label.text, size,
                                    OpenGL::VectorFont::BOTTOM_LEFT);
        }
    });
    glDisable(GL_LINE_SMOOTH);
}
BENCHMARK(atOnce)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
