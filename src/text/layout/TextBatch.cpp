#include "text/layout/TextBatch.h"

#include <algorithm>

#include "text/layout/Transform.h"

namespace Orlek::Detail {

TextBatch::TextBatch(Lists lists, std::size_t glyphs, const Placement& placement,
                     std::uint32_t restartIndex)
    : mLists(lists),
      mScale(placement.scale),
      mTransform(placement.transform),
      mRestartIndex(restartIndex),
      mVertexCount(lists.vertices.size()),
      mIndexCount(lists.indices.size()) {
    try {
        mLists.vertices.resize(mVertexCount + glyphs * mostCorners);
        mLists.uvs.resize(mVertexCount + glyphs * mostCorners);
        mLists.indices.resize(mIndexCount + glyphs * (mostCorners + 1));
    } catch (...) {
        trim();
        throw;
    }
}

TextBatch::~TextBatch() {
    trim();
}

void TextBatch::trim() {
    mLists.vertices.resize(mVertexCount);
    mLists.uvs.resize(mVertexCount);
    mLists.indices.resize(mIndexCount);
}

void TextBatch::append(const OpenGL::GlyphInfo& glyph, Math::Vector2<float> shift) {
    const std::size_t corners = std::min({glyph.vertices.size(), glyph.uvs.size(), mostCorners});
    Math::Vector3<float>* const vertices = mLists.vertices.data() + mVertexCount;
    std::uint32_t* const indices = mLists.indices.data() + mIndexCount;
    for (std::size_t k = 0; k < corners; ++k) {
        const Math::Vector3<float>& corner = glyph.vertices[k];
        vertices[k] = transformed(mTransform, mScale * (corner.x + shift.x),
                                  mScale * (corner.y + shift.y), mScale * corner.z);
        indices[k] = static_cast<std::uint32_t>(mVertexCount + k);
    }
    std::copy_n(glyph.uvs.data(), corners, mLists.uvs.data() + mVertexCount);
    indices[corners] = mRestartIndex;
    mVertexCount += corners;
    mIndexCount += corners + 1;
}

}  // namespace Orlek::Detail
