// Font files as distance fields: all characters of whatever bytes come, drawn and transformed.
#include "FontInput.h"
#include "text/raster/FieldAtlas.h"

using namespace Orlek::Detail;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FontFace face(freeType(), reinterpret_cast<const char*>(data), static_cast<int>(size));
    if (face.error() != 0) {
        return 0;
    }
    GlyphAtlas atlas;
    GlyphSet font;
    if (buildFieldAtlas(face, atlas, font)) {
        require(atlas.pixels.size() ==
                static_cast<std::size_t>(atlas.width) * static_cast<std::size_t>(atlas.height));
        checkRecords(font, atlas, fieldPadding);
    }
    return 0;
}
