// The atlas of a distance-field font, without GL.
#pragma once

#include "text/raster/GlyphRaster.h"

namespace Orlek::Detail {

/// Pixel height at which the glyphs are drawn, before they are turned into distances.
inline constexpr int fieldDesignSize = 50;
/// Pixels from the edge of a glyph to where the field ends.
inline constexpr int fieldRadius = 8;
/// Pixels kept free around a glyph for its field.
inline constexpr int fieldPadding = 14;

/// Draws the glyphs, turns them into a distance field, and makes their records and quads. Without
/// memory for the transform the atlas keeps plain coverage. Reports and returns false when the font
/// cannot be set to the design size, or when there is no memory for the atlas.
bool buildFieldAtlas(FontFace& face, GlyphAtlas& atlas, GlyphSet& font);

}  // namespace Orlek::Detail
