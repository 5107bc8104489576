// One line of text as a row of glyphs: its width and the walk of the pen along it.
#pragma once

#include <Orlek/OpenGL/GlyphInfo.h>

#include <algorithm>
#include <span>
#include <string_view>

#include "text/layout/CharacterSlots.h"

namespace Orlek::Detail {

/// Refers to the text and to the 224 glyph records, so both must outlive it.
class GlyphRun {
public:
    GlyphRun(std::span<const OpenGL::GlyphInfo, slotCount> glyphs, std::string_view text)
        : mGlyphs(glyphs), mText(text) {}

    /// Number of characters.
    std::size_t size() const { return mText.size(); }

    /// Rows of the highest bitmap.
    float height() const {
        float highest = 0.0F;
        walk([&](std::size_t, const OpenGL::GlyphInfo& glyph, float) {
            highest = std::max(highest, glyph.height);
        });
        return highest;
    }

    /// The sum of the advances.
    float width() const {
        return walk([](std::size_t, const OpenGL::GlyphInfo&, float) {});
    }

    /// Calls visit(slot, glyph, pen) for each character, pen being the advances before it, and
    /// returns the pen behind the last.
    template <typename Visit>
    float walk(Visit&& visit) const {
        float pen = 0.0F;
        for (const char byte : mText) {
            const std::size_t slot = slotOf(byte);
            visit(slot, mGlyphs[slot], pen);
            pen += mGlyphs[slot].advance;
        }
        return pen;
    }

private:
    std::span<const OpenGL::GlyphInfo, slotCount> mGlyphs;
    std::string_view mText;
};

}  // namespace Orlek::Detail
