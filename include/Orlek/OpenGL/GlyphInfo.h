// The record that the atlas fonts keep for each character.
#pragma once

#include <Orlek/Math/Vector2.h>
#include <Orlek/Math/Vector3.h>

#include <vector>

namespace Orlek::OpenGL {

/// What an atlas font knows about one character: where its bitmap lies in the atlas, how it is
/// placed relative to the pen, and the quad that draws it.
///
/// Lengths are pixels of the size at which the font was rasterised, y up, relative to the pen
/// position on the baseline. Texture coordinates run from 0 to 1; the atlas stores each bitmap
/// bottom row first, so t grows upwards. A plain value without a GL object.
struct GlyphInfo {
    float s0 = 0.0F;       ///< Left edge of the bitmap in the atlas.
    float t0 = 0.0F;       ///< Bottom edge of the bitmap in the atlas.
    float s1 = 0.0F;       ///< Right edge of the bitmap in the atlas.
    float t1 = 0.0F;       ///< Top edge of the bitmap in the atlas.
    float top = 0.0F;      ///< Top of the bitmap above the baseline.
    float advance = 0.0F;  ///< Way of the pen to the next character.
    /// x: from the pen to the left edge of the bitmap; y: from the baseline to its top.
    Math::Vector2<float> bearing{0.0F, 0.0F};
    float width = 0.0F;   ///< Columns of the bitmap in the atlas.
    float height = 0.0F;  ///< Rows of the bitmap in the atlas.
    /// Corners of the quad: bottom left, top left, top right, bottom right. Empty without an atlas.
    std::vector<Math::Vector3<float>> vertices;
    /// Texture coordinates of the corners, in the same order.
    std::vector<Math::Vector2<float>> uvs;
};

}  // namespace Orlek::OpenGL
