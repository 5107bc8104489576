// Building a distance-field font beside the transform written to the letter and beside FreeType's
// own bitmap signed-distance renderer; drawing with it beside bare GL calls for the same quads.
//
// Report medians:
//   sdf_bench --benchmark_repetitions=9 --benchmark_enable_random_interleaving=true
#include <Orlek/OpenGL/TextureFontSdf.h>
#include <ft2build.h>

#include FT_FREETYPE_H
#include FT_MODULE_H

#include <stdexcept>

#include "BareBatch.h"
#include "TextFrames.h"
#include "platform/WholeFile.h"
#include "text/raster/DistanceFieldLetter.h"
#include "text/raster/FieldAtlas.h"

namespace {

using namespace Orlek;
using namespace OrlekBench;

constexpr unsigned fieldProgram = 6;
constexpr int drawnSize = 16;

const std::vector<char>& fontBytes() {
    static const std::vector<char> bytes = [] {
        std::vector<char> read;
        Detail::readWholeFile(fontFile, read);
        return read;
    }();
    return bytes;
}

Detail::FontFace openFace() {
    static FT_LibraryRec_* const library = Detail::openFreeType();
    return {library, fontBytes().data(), static_cast<int>(fontBytes().size())};
}

void buildAtlasAndField(benchmark::State& state) {
    for (auto _ : state) {
        Detail::FontFace face = openFace();
        Detail::GlyphAtlas atlas;
        Detail::GlyphSet glyphs;
        Detail::buildFieldAtlas(face, atlas, glyphs);
        benchmark::DoNotOptimize(atlas.pixels.data());
    }
}
BENCHMARK(buildAtlasAndField)->Unit(benchmark::kMillisecond);

void buildAtlasAndLetter(benchmark::State& state) {
    for (auto _ : state) {
        Detail::FontFace face = openFace();
        Detail::GlyphAtlas atlas;
        Detail::GlyphSet glyphs;
        Detail::buildAtlas(face, 50, {1024, 28, 14}, atlas, glyphs);
        OrlekTest::DistanceFieldLetter letter(atlas.pixels.data(), atlas.width, atlas.height,
                                              atlas.width);
        benchmark::DoNotOptimize(letter.field(8.0F).data());
    }
}
BENCHMARK(buildAtlasAndLetter)->Unit(benchmark::kMillisecond);

/// All glyphs, each rendered and turned into a field of spread 8; no atlas.
void freetypeBitmapField(benchmark::State& state) {
    FT_Library library = nullptr;
    FT_Init_FreeType(&library);
    FT_Int spread = 8;
    FT_Property_Set(library, "bsdf", "spread", &spread);
    for (auto _ : state) {
        FT_Face face = nullptr;
        FT_New_Memory_Face(library, reinterpret_cast<const FT_Byte*>(fontBytes().data()),
                           static_cast<FT_Long>(fontBytes().size()), 0, &face);
        FT_Set_Pixel_Sizes(face, 0, 50);
        for (FT_ULong code = 32; code < 256; ++code) {
            FT_Load_Char(face, code, FT_LOAD_RENDER | FT_LOAD_FORCE_AUTOHINT);
            if (face->glyph->bitmap.rows > 0 &&
                FT_Render_Glyph(face->glyph, FT_RENDER_MODE_SDF) != 0) {
                throw std::runtime_error("FreeType cannot make a field of a bitmap");
            }
        }
        FT_Done_Face(face);
    }
    FT_Done_FreeType(library);
}
BENCHMARK(freetypeBitmapField)->Unit(benchmark::kMillisecond);

/// One context, one font at the drawn size, its quads.
struct Scene : TextScene {
    OpenGL::TextureFontSdf font;
    Detail::GlyphSet glyphs;

    Scene() {
        font.load(fontFile, drawnSize);
        Detail::FontFace face = openFace();
        Detail::GlyphAtlas atlas;
        Detail::buildFieldAtlas(face, atlas, glyphs);
    }
};

Scene& scene() {
    static Scene shared;
    return shared;
}

constexpr float scale = static_cast<float>(drawnSize) / 50.0F;
constexpr auto border = static_cast<float>(Detail::fieldPadding);

/// Vertex arrays of quads built by hand.
struct Quads {
    std::vector<Math::Vector3<float>> positions;
    std::vector<Math::Vector2<float>> coordinates;
    std::vector<std::uint32_t> indices;

    void add(const OpenGL::GlyphInfo& glyph, float x, float y, float factor) {
        for (std::size_t k = 0; k < 4; ++k) {
            const auto& corner = glyph.vertices[k];
            indices.push_back(static_cast<std::uint32_t>(positions.size()));
            positions.emplace_back(x + factor * corner.x, y + factor * corner.y, 0.0F);
            coordinates.push_back(glyph.uvs[k]);
        }
        indices.push_back(restartIndex);
    }

    void upload(BareBatch& bare) const {
        bare.upload(positions, indices);
        bare.uploadCoordinates(coordinates);
    }
};

const OpenGL::GlyphInfo& glyphOf(char byte) {
    return scene().glyphs.glyphs[Detail::slotOf(byte)];
}

void bindAtlas() {
    glBindTexture(GL_TEXTURE_2D, scene().font.texture());
}

void fieldBatch(benchmark::State& state) {
    scene().font.clearVertex();
    for (const Label& label : scene().labels) {
        scene().font.addText(label.text, placed(label), OpenGL::TextureFontSdf::BOTTOM_LEFT);
    }
    measureFrames(state, [] { scene().font.render(); });
}
BENCHMARK(fieldBatch)->Unit(benchmark::kMillisecond)->UseRealTime();

void fieldBatchBare(benchmark::State& state) {
    scene();
    BareBatch bare(fieldProgram);
    Quads quads;
    for (const Label& label : scene().labels) {
        float pen = -border;
        for (const char byte : label.text) {
            quads.add(glyphOf(byte), label.x + scale * pen, label.y - scale * border, scale);
            pen += glyphOf(byte).advance;
        }
    }
    quads.upload(bare);
    measureFrames(state, [&] { bare.draw(GL_TRIANGLE_FAN, bindAtlas); });
}
BENCHMARK(fieldBatchBare)->Unit(benchmark::kMillisecond)->UseRealTime();

void fieldAtOnce(benchmark::State& state) {
    measureFrames(state, [] {
        for (const Label& label : scene().labels) {
            scene().font.renderFont(label.x, label.y, label.text,
                                    OpenGL::TextureFontSdf::BOTTOM_LEFT);
        }
    });
}
BENCHMARK(fieldAtOnce)->Unit(benchmark::kMillisecond)->UseRealTime();

/// One uniform at a known location and one draw a glyph.
void drawGlyphs(int offset, const std::string& text) {
    bindAtlas();
    float pen = -border;
    for (const char byte : text) {
        glUniform3f(offset, pen, -border, 0.0F);
        glDrawArrays(GL_TRIANGLE_FAN, static_cast<GLint>(4 * Detail::slotOf(byte)), 4);
        pen += glyphOf(byte).advance;
    }
}

void fieldAtOnceBare(benchmark::State& state) {
    scene();
    BareBatch bare(fieldProgram);
    Quads quads;
    for (const auto& glyph : scene().glyphs.glyphs) {
        quads.add(glyph, 0.0F, 0.0F, 1.0F);
    }
    quads.upload(bare);
    const Math::Matrix4<float> pixels = OpenGL::MatrixGet();
    measureFrames(state, [&] {
        for (const Label& label : scene().labels) {
            Math::Matrix4<float> matrix = pixels;
            matrix.m[0] *= scale;
            matrix.m[5] *= scale;
            matrix.m[12] += pixels.m[0] * label.x;
            matrix.m[13] += pixels.m[5] * label.y;
            bare.drawParts(matrix, [&](int offset) { drawGlyphs(offset, label.text); });
        }
    });
}
BENCHMARK(fieldAtOnceBare)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
