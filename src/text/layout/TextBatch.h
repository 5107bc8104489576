// Appends placed glyphs to the vertex lists of a font, to be drawn with one call later.
//
// Each glyph is one triangle fan: its corners, transformed, then the restart index. The index of a
// vertex is its position in the list, so that emptying the lists starts the numbering anew.
#pragma once

#include <Orlek/Math/Matrix4.h>
#include <Orlek/Math/Vector2.h>
#include <Orlek/Math/Vector3.h>
#include <Orlek/OpenGL/GlyphInfo.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Orlek::Detail {

class TextBatch {
public:
    TextBatch(std::vector<Math::Vector3<float>>& vertices, std::vector<Math::Vector2<float>>& uvs,
              std::vector<std::uint32_t>& indices)
        : mVertices(vertices), mUvs(uvs), mIndices(indices) {}

    /// Makes room for `glyphs` more quads.
    void reserve(std::size_t glyphs);

    /// Appends transform x (corner + shift, 1) for the corners of the glyph that have a texture
    /// coordinate (w is dropped), then the restart index.
    void append(const OpenGL::GlyphInfo& glyph, Math::Vector2<float> shift,
                const Math::Matrix4<float>& transform, std::uint32_t restartIndex);

private:
    std::vector<Math::Vector3<float>>& mVertices;
    std::vector<Math::Vector2<float>>& mUvs;
    std::vector<std::uint32_t>& mIndices;
};

}  // namespace Orlek::Detail
