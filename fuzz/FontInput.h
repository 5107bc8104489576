// What the targets of the two atlas fonts share.
#pragma once

#include "FuzzTarget.h"
#include "Quiet.h"
#include "text/raster/FontFace.h"
#include "text/raster/GlyphRaster.h"

/// FreeType, started once.
inline FT_LibraryRec_* freeType() {
    static FT_LibraryRec_* library = nullptr;
    static bool done = false;
    Orlek::Detail::startFreeType(done, library);
    require(done && library != nullptr);
    return library;
}

/// A quad may reach beyond the atlas only by what it keeps free around the glyph.
inline void checkRecords(const Orlek::Detail::GlyphSet& font,
                         const Orlek::Detail::GlyphAtlas& atlas, int padding) {
    const float right = 1.0F + static_cast<float>(padding) / static_cast<float>(atlas.width);
    const float top = 1.0F + static_cast<float>(padding) / static_cast<float>(atlas.height);
    for (const auto& glyph : font.glyphs) {
        require(glyph.s0 >= 0.0F && glyph.s1 <= right);
        require(glyph.height == 0.0F || (glyph.t0 >= 0.0F && glyph.t1 <= top));
    }
}
