// Font files: opening, measuring, laying out and drawing all characters of whatever bytes come.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "text/raster/FontFace.h"
#include "text/raster/GlyphRaster.h"

using namespace Orlek::Detail;

namespace {

/// Ends the run unless the condition holds.
void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// FreeType, started once; the lines about bad glyphs go nowhere.
FT_LibraryRec_* library() {
    static FT_LibraryRec_* const handle = [] {
        require(std::freopen("/dev/null", "w", stdout) != nullptr);
        return openFreeType();
    }();
    return handle;
}

void buildAtlas(FontFace& face, int pixelHeight) {
    if (!face.setPixelHeight(pixelHeight)) {
        return;
    }
    const ShelfLayout layout = layoutGlyphs(face, {.shelfWidth = 256, .gap = 3, .padding = 0});
    GlyphAtlas atlas;
    require(allocateAtlas(layout, atlas));
    std::array<Orlek::OpenGL::GlyphInfo, slotCount> glyphs;
    rasterGlyphs(face, layout, atlas, glyphs);
    makeQuads(glyphs, 0);
    for (const auto& glyph : glyphs) {
        require(glyph.s0 >= 0.0F && glyph.s1 <= 1.0F);
        require(glyph.height == 0.0F || (glyph.t0 >= 0.0F && glyph.t1 <= 1.0F));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FontFace face(library(), reinterpret_cast<const char*>(data), static_cast<int>(size));
    if (face.error() == 0) {
        constexpr int heights[] = {4, 16, 256};  // 4: the size of the bitmap font in the corpus
        buildAtlas(face, heights[size % 3]);
    }
    return 0;
}
