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

/// Appends one text. The lists are lengthened once for all its glyphs; the end of the scope takes
/// back what was too much.
class TextBatch {
public:
    static constexpr std::size_t mostCorners = 4;

    struct Lists {
        std::vector<Math::Vector3<float>>& vertices;
        std::vector<Math::Vector2<float>>& uvs;
        std::vector<std::uint32_t>& indices;
    };

    /// What a corner goes through: first the scale, then the matrix.
    struct Placement {
        float scale;
        const Math::Matrix4<float>& transform;
    };

    /// For at most `glyphs` glyphs. Nothing else may change the lists during the scope.
    TextBatch(Lists lists, std::size_t glyphs, const Placement& placement,
              std::uint32_t restartIndex);
    ~TextBatch();
    TextBatch(const TextBatch&) = delete;
    TextBatch& operator=(const TextBatch&) = delete;

    /// Appends transform x (scale x (corner + shift), 1), w dropped, for the corners of the glyph
    /// that have a texture coordinate (at most four), then the restart index.
    void append(const OpenGL::GlyphInfo& glyph, Math::Vector2<float> shift);

private:
    /// Gives the lists back what has not been filled.
    void trim();

    Lists mLists;
    const float mScale;
    const Math::Matrix4<float> mTransform;
    std::uint32_t mRestartIndex;
    std::size_t mVertexCount;
    std::size_t mIndexCount;
};

}  // namespace Orlek::Detail
