// What the two atlas fonts keep: the glyphs of a font, and a text of quads that refer to them.
#pragma once

#include <Orlek/Math/Vector2.h>
#include <Orlek/Math/Vector3.h>
#include <Orlek/OpenGL/GlyphInfo.h>

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace Orlek::Detail {

class Mesh;

/// The glyphs of the character codes 32 to 255.
struct GlyphSet {
    std::array<OpenGL::GlyphInfo, 224> glyphs;  ///< In the order of the codes.
    int maxGlyphHeight = 0;                     ///< Rows of the highest glyph.
};

/// The batch of an atlas font, and the GL objects of both ways to draw: the batch, and the quads
/// of all glyphs for text that is drawn at once.
struct AtlasText {
    std::vector<Math::Vector3<float>> vertices;  ///< Four corners a glyph.
    std::vector<Math::Vector2<float>> uvs;       ///< A texture coordinate for each corner.
    std::vector<std::uint32_t> indices;          ///< A fan a glyph, then the restart index.
    bool dirty = false;                          ///< The lists changed since the last upload.
    std::shared_ptr<Mesh> batchMesh;             ///< What was uploaded of the lists.
    std::shared_ptr<Mesh> atlasMesh;             ///< The quads of all glyphs, in their order.
};

}  // namespace Orlek::Detail
