// Font files: opening, measuring, laying out and drawing all characters of whatever bytes come, as
// coverage, and every fourth input as a distance field too.
#include <cstdio>

#include "FuzzTarget.h"
#include "text/raster/FieldAtlas.h"
#include "text/raster/FontFace.h"

using namespace Orlek::Detail;

namespace {

/// FreeType, started once; the lines about bad glyphs go nowhere.
FT_LibraryRec_* library() {
    static FT_LibraryRec_* const handle = [] {
        require(std::freopen("/dev/null", "w", stdout) != nullptr);
        return openFreeType();
    }();
    return handle;
}

/// A quad may reach beyond the atlas only by what it keeps free around the glyph.
void checkRecords(const GlyphSet& font, const GlyphAtlas& atlas, int padding) {
    const float right = 1.0F + static_cast<float>(padding) / static_cast<float>(atlas.width);
    const float top = 1.0F + static_cast<float>(padding) / static_cast<float>(atlas.height);
    for (const auto& glyph : font.glyphs) {
        require(glyph.s0 >= 0.0F && glyph.s1 <= right);
        require(glyph.height == 0.0F || (glyph.t0 >= 0.0F && glyph.t1 <= top));
    }
}

void buildPlain(FontFace& face, int pixelHeight) {
    GlyphAtlas atlas;
    GlyphSet font;
    if (buildAtlas(face, pixelHeight, {.shelfWidth = 256, .gap = 3, .padding = 0}, atlas, font)) {
        makeQuads(font.glyphs, 0);
        checkRecords(font, atlas, 0);
    }
}

void buildField(FontFace& face) {
    GlyphAtlas atlas;
    GlyphSet font;
    if (buildFieldAtlas(face, atlas, font)) {
        checkRecords(font, atlas, fieldPadding);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FontFace face(library(), reinterpret_cast<const char*>(data), static_cast<int>(size));
    if (face.error() == 0) {
        constexpr int heights[] = {4, 16, 256};  // 4: the size of the bitmap font in the corpus
        buildPlain(face, heights[size % 3]);
        if (size % 4 == 0) {
            buildField(face);
        }
    }
    return 0;
}
