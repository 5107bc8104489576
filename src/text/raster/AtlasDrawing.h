// What the atlas fonts do alike once their glyphs are made: filling, uploading and drawing text.
#pragma once

#include <Orlek/Math/Matrix4.h>
#include <Orlek/Math/Vector2.h>
#include <Orlek/OpenGL/AtlasText.h>

#include <cstdint>

#include "text/layout/GlyphRun.h"

namespace Orlek::Detail {

class DrawPass;

/// Separates the glyphs in the index list of a batch.
inline constexpr std::uint32_t glyphRestart = 0xFFFFFFFFU;

/// Where a text of a batch goes.
struct TextPlacement {
    Math::Vector2<float> offset;  ///< Of the pen's start from the anchor, pixels of the atlas.
    float scale;                  ///< Lengths for each pixel of the atlas.
    const Math::Matrix4<float>& transform;
};

void appendText(AtlasText& text, const GlyphRun& run, const TextPlacement& placement);

/// Empties the batch. No GL call.
void clearBatch(AtlasText& text);

/// Uploads the batch where that is due. False when there is nothing to draw, or no OpenGL.
/// @param label of the class in error lines.
bool prepareBatch(const char* label, AtlasText& text);

/// Draws the batch with offset 0, after the class has set its colours.
void drawBatch(DrawPass& pass, const AtlasText& text, unsigned texture);

/// Uploads the quads of all glyphs. False without OpenGL, or when it refuses them.
bool uploadQuads(const char* label, AtlasText& text, const GlyphSet& font);

/// Draws a text glyph by glyph, after the class has set its colours and the matrix. Leaves the
/// uniform "offset" at that of the last glyph.
void drawAtOnce(DrawPass& pass, const AtlasText& text, unsigned texture, const GlyphRun& run,
                Math::Vector2<float> offset);

/// Gives up the GL objects; the lists stay.
void releaseObjects(AtlasText& text);

}  // namespace Orlek::Detail
