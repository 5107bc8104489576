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

#include "BareBatch.h"
#include "TextFrames.h"
#include "text/layout/BuiltInStrokeSet.h"

namespace {

using namespace Orlek;
using namespace OrlekBench;

constexpr double size = 12.0;
constexpr unsigned strokeProgram = 7;

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
                        indices.push_back(restartIndex);
                    }
                }
                pen += scale * 13.120160F;
            }
        }
    }
};

void upload(BareBatch& bare, const Arrays& arrays) {
    bare.upload(arrays.points, arrays.indices);
}

void draw(const BareBatch& bare) {
    bare.draw(GL_LINE_STRIP, [] {
        glEnable(GL_LINE_SMOOTH);
        glLineWidth(1.5F);
    });
    glDisable(GL_LINE_SMOOTH);
}

/// What all benchmarks share: one context, one font, the labels.
struct Scene : TextScene {
    OpenGL::VectorFont font;

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
    BareBatch bare(strokeProgram);
    Arrays arrays;
    arrays.build(scene().labels);
    upload(bare, arrays);
    measureFrames(state, [&] { draw(bare); });
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
    BareBatch bare(strokeProgram);
    Arrays arrays;
    measureFrames(state, [&] {
        arrays.build(scene().labels);
        upload(bare, arrays);
        draw(bare);
    });
}
BENCHMARK(rebuiltBare)->Unit(benchmark::kMillisecond)->UseRealTime();

/// The upload and draw alone, without any expansion.
void uploadedBare(benchmark::State& state) {
    scene();
    BareBatch bare(strokeProgram);
    Arrays arrays;
    arrays.build(scene().labels);
    measureFrames(state, [&] {
        upload(bare, arrays);
        draw(bare);
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
