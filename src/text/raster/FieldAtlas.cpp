#include "text/raster/FieldAtlas.h"

#include <new>

#include "platform/MallocArray.h"
#include "text/raster/DistanceField.h"

namespace Orlek::Detail {
namespace {

constexpr ShelfRecipe shelves{.shelfWidth = 1024, .gap = 2 * fieldPadding, .padding = fieldPadding};

// Shelves lie one padding apart: half of it shows the field of the glyphs above or below, which
// would become dashes of their outlines beside this one.
constexpr int foreignRows = fieldPadding / 2;

void toDistances(GlyphAtlas& atlas) {
    const std::size_t floats = fieldWorkFloats * atlas.pixels.size();
    const MallocArray<float> work = mallocArray<float>(floats);
    if (work == nullptr) {
        return;
    }
    const auto width = static_cast<std::size_t>(atlas.width);
    const auto height = static_cast<std::size_t>(atlas.height);
    std::uint8_t* const pixels = atlas.pixels.data();
    try {
        buildDistanceField({pixels, width, height, width}, static_cast<float>(fieldRadius), pixels,
                           width, {work.get(), floats});
    } catch (const std::bad_alloc&) {
        // As above: the coverage stays.
    }
}

}  // namespace

bool buildFieldAtlas(FontFace& face, GlyphAtlas& atlas, GlyphSet& font) {
    if (!buildAtlas(face, fieldDesignSize, shelves, atlas, font)) {
        return false;
    }
    toDistances(atlas);
    makeQuads(font.glyphs, fieldPadding, foreignRows);
    return true;
}

}  // namespace Orlek::Detail
