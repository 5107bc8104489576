#include "text/layout/TextBatch.h"

#include <algorithm>

namespace Orlek::Detail {
namespace {

Math::Vector3<float> transformed(const Math::Matrix4<float>& transform,
                                 const Math::Vector3<float>& p) {
    const float* m = transform.m;
    return {m[0] * p.x + m[4] * p.y + m[8] * p.z + m[12],
            m[1] * p.x + m[5] * p.y + m[9] * p.z + m[13],
            m[2] * p.x + m[6] * p.y + m[10] * p.z + m[14]};
}

/// Grows by half at least, so that many short texts do not copy the list each time.
template <typename T>
void reserveMore(std::vector<T>& list, std::size_t count) {
    const std::size_t needed = list.size() + count;
    if (needed > list.capacity()) {
        list.reserve(std::max(needed, list.capacity() + list.capacity() / 2));
    }
}

}  // namespace

void TextBatch::reserve(std::size_t glyphs) {
    reserveMore(mVertices, glyphs * 4);
    reserveMore(mUvs, glyphs * 4);
    reserveMore(mIndices, glyphs * 5);
}

void TextBatch::append(const OpenGL::GlyphInfo& glyph, Math::Vector2<float> shift,
                       const Math::Matrix4<float>& transform, std::uint32_t restartIndex) {
    const std::size_t corners = std::min(glyph.vertices.size(), glyph.uvs.size());
    for (std::size_t k = 0; k < corners; ++k) {
        const Math::Vector3<float> corner = glyph.vertices[k];
        mIndices.push_back(static_cast<std::uint32_t>(mVertices.size()));
        mVertices.push_back(
            transformed(transform, {corner.x + shift.x, corner.y + shift.y, corner.z}));
        mUvs.push_back(glyph.uvs[k]);
    }
    mIndices.push_back(restartIndex);
}

}  // namespace Orlek::Detail
