#include "text/raster/AtlasDrawing.h"

#include "rendering/context/DrawPass.h"
#include "rendering/gl/Mesh.h"
#include "rendering/gl/Names.h"
#include "text/layout/TextBatch.h"

namespace Orlek::Detail {

void appendText(AtlasText& text, const GlyphRun& run, const TextPlacement& placement) {
    text.dirty = true;
    TextBatch batch({text.vertices, text.uvs, text.indices}, run.size(),
                    {placement.scale, placement.transform}, glyphRestart);
    run.walk([&](std::size_t, const OpenGL::GlyphInfo& glyph, float pen) {
        batch.append(glyph, {pen + placement.offset.x, placement.offset.y});
    });
}

void clearBatch(AtlasText& text) {
    text.vertices.clear();
    text.uvs.clear();
    text.indices.clear();
    text.dirty = true;
}

bool prepareBatch(const char* label, AtlasText& text) {
    if (text.indices.empty() || text.vertices.empty()) {
        return false;
    }
    if (text.dirty || text.batchMesh == nullptr) {
        const Stream streams[] = {streamOf(Attribute::Vertex, text.vertices),
                                  streamOf(Attribute::TextureCoordinate, text.uvs)};
        text.dirty = !syncMesh(label, text.batchMesh, streams, text.indices);
    }
    return text.batchMesh != nullptr;
}

void drawBatch(DrawPass& pass, const AtlasText& text, unsigned texture) {
    pass.restart(glyphRestart);
    pass.blend();
    pass.set("offset", Math::Vector3<float>(0.0F, 0.0F, 0.0F));
    pass.matrix();
    pass.bind(*text.batchMesh);
    pass.texture(texture);
    pass.drawIndexed(DrawMode::TriangleFan, text.indices.size());
}

bool uploadQuads(const char* label, AtlasText& text, const GlyphSet& font) {
    std::vector<Math::Vector3<float>> vertices;
    std::vector<Math::Vector2<float>> uvs;
    for (const OpenGL::GlyphInfo& glyph : font.glyphs) {
        vertices.insert(vertices.end(), glyph.vertices.begin(), glyph.vertices.end());
        uvs.insert(uvs.end(), glyph.uvs.begin(), glyph.uvs.end());
    }
    const Stream streams[] = {streamOf(Attribute::Vertex, vertices),
                              streamOf(Attribute::TextureCoordinate, uvs)};
    syncMesh(label, text.atlasMesh, streams);
    return text.atlasMesh != nullptr;
}

void drawAtOnce(DrawPass& pass, const AtlasText& text, unsigned texture, const GlyphRun& run,
                Math::Vector2<float> offset) {
    pass.bind(*text.atlasMesh);
    pass.texture(texture);
    pass.blend();
    const int location = pass.locate("offset");
    run.walk([&](std::size_t slot, const OpenGL::GlyphInfo&, float pen) {
        pass.setAt(location, Math::Vector3<float>(pen + offset.x, offset.y, 0.0F));
        pass.draw(DrawMode::TriangleFan, 4 * slot, 4);
    });
}

void releaseObjects(AtlasText& text) {
    releaseShare(text.batchMesh);
    releaseShare(text.atlasMesh);
}

}  // namespace Orlek::Detail
