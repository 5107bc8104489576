// Batched text beside the bare draw of the same quads, by a program that holds the arrays itself,
// and beside FTGL's texture font: 1,000 strings of 20 characters.
//
// Every iteration ends with glFinish, so that the whole frame is measured. Report medians:
//   text_bench --benchmark_repetitions=9 --benchmark_enable_random_interleaving=true
#include <GL/glew.h>
#include <Orlek/OpenGL/GlHandler.h>
#include <Orlek/OpenGL/MatrixStack.h>
#include <Orlek/OpenGL/TextureFont.h>
#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "BareBatch.h"
#include "TextFrames.h"
#include "platform/WholeFile.h"
#include "text/raster/GlyphRaster.h"

#ifdef ORLEK_HAVE_FTGL
#include <FTGL/ftgl.h>
#endif

namespace {

using namespace Orlek;
using namespace OrlekBench;

constexpr int pixelSize = 12;
constexpr unsigned glyphProgram = 5;

/// The glyphs of the font, as a program with an atlas of its own would keep them.
std::array<OpenGL::GlyphInfo, Detail::slotCount> makeGlyphs() {
    std::vector<char> bytes;
    std::array<OpenGL::GlyphInfo, Detail::slotCount> glyphs;
    Detail::GlyphAtlas atlas;
    Detail::readWholeFile(fontFile, bytes);
    Detail::FontFace face(Detail::openFreeType(), bytes.data(), static_cast<int>(bytes.size()));
    face.setPixelHeight(pixelSize);
    const Detail::ShelfLayout layout = Detail::layoutGlyphs(face, {256, 3, 0});
    Detail::allocateAtlas(layout, atlas);
    Detail::rasterGlyphs(face, layout, atlas, glyphs);
    return glyphs;
}

/// Vertex arrays built by hand: plain structs, one pass, memory reused.
struct Arrays {
    struct Position {
        float x, y, z;
    };
    struct Coordinate {
        float s, t;
    };
    std::vector<Position> positions;
    std::vector<Coordinate> coordinates;
    std::vector<std::uint32_t> indices;

    void build(std::span<const Label> labels, std::span<const OpenGL::GlyphInfo> glyphs) {
        positions.clear();
        coordinates.clear();
        indices.clear();
        for (const Label& label : labels) {
            float pen = label.x;
            for (const char byte : label.text) {
                const auto& glyph = glyphs[static_cast<unsigned char>(byte) - 32U];
                add(glyph, pen + glyph.bearing.x, label.y + glyph.top);
                pen += glyph.advance;
            }
        }
    }

    void add(const OpenGL::GlyphInfo& glyph, float left, float top) {
        const float right = left + glyph.width;
        const float bottom = top - glyph.height;
        const auto next = static_cast<std::uint32_t>(positions.size());
        positions.insert(
            positions.end(),
            {{left, bottom, 0.0F}, {left, top, 0.0F}, {right, top, 0.0F}, {right, bottom, 0.0F}});
        coordinates.insert(coordinates.end(), {{glyph.s0, glyph.t0},
                                               {glyph.s0, glyph.t1},
                                               {glyph.s1, glyph.t1},
                                               {glyph.s1, glyph.t0}});
        indices.insert(indices.end(), {next, next + 1, next + 2, next + 3, restartIndex});
    }
};

void upload(BareBatch& bare, const Arrays& arrays) {
    bare.upload(arrays.positions, arrays.indices);
    bare.uploadCoordinates(arrays.coordinates);
}

void draw(const BareBatch& bare, unsigned texture) {
    bare.draw(GL_TRIANGLE_FAN, [texture] { glBindTexture(GL_TEXTURE_2D, texture); });
}

/// What all benchmarks share: one context, one font, the labels.
struct Scene : TextScene {
    OpenGL::TextureFont font;
    std::array<OpenGL::GlyphInfo, Detail::slotCount> glyphs = makeGlyphs();

    Scene() { font.load(fontFile, pixelSize); }

    void addAll() {
        font.clearVertex();
        for (const Label& label : labels) {
            font.addText(label.text, placed(label), OpenGL::TextureFont::BOTTOM_LEFT);
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
    BareBatch bare(glyphProgram);
    Arrays arrays;
    arrays.build(scene().labels, scene().glyphs);
    upload(bare, arrays);
    measureFrames(state, [&] { draw(bare, scene().font.texture()); });
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
    BareBatch bare(glyphProgram);
    Arrays arrays;
    measureFrames(state, [&] {
        arrays.build(scene().labels, scene().glyphs);
        upload(bare, arrays);
        draw(bare, scene().font.texture());
    });
}
BENCHMARK(rebuiltBare)->Unit(benchmark::kMillisecond)->UseRealTime();

void buildBatchOnly(benchmark::State& state) {
    for (auto _ : state) {
        scene().addAll();
    }
}
BENCHMARK(buildBatchOnly)->Unit(benchmark::kMillisecond)->UseRealTime();

void buildArraysOnly(benchmark::State& state) {
    Arrays arrays;
    for (auto _ : state) {
        arrays.build(scene().labels, scene().glyphs);
        benchmark::DoNotOptimize(arrays.positions.data());
    }
}
BENCHMARK(buildArraysOnly)->Unit(benchmark::kMillisecond)->UseRealTime();

void atOnce(benchmark::State& state) {
    measureFrames(state, [] {
        for (const Label& label : scene().labels) {
            scene().font.renderFont(label.x, label.y, label.text, OpenGL::TextureFont::BOTTOM_LEFT);
        }
    });
}
BENCHMARK(atOnce)->Unit(benchmark::kMillisecond)->UseRealTime();

#ifdef ORLEK_HAVE_FTGL
void ftglTextureFont(benchmark::State& state) {
    scene();
    FTTextureFont font(fontFile);
    font.FaceSize(pixelSize);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0, TextScene::width, 0, TextScene::height, -1, 1);
    measureFrames(state, [&] {
        for (const Label& label : scene().labels) {
            font.Render(label.text.c_str(), -1, FTPoint(label.x, label.y));
        }
    });
    glLoadIdentity();
}
BENCHMARK(ftglTextureFont)->Unit(benchmark::kMillisecond)->UseRealTime();
#endif

}  // namespace

BENCHMARK_MAIN();
