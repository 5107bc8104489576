#include "text/raster/GlyphRaster.h"

#include <algorithm>
#include <new>

#include "platform/Report.h"

namespace Orlek::Detail {
namespace {

/// A rectangle of the atlas, in pixels from its bottom left.
struct Rectangle {
    std::size_t x;
    std::size_t y;
    std::size_t width;
    std::size_t height;
};

std::size_t pixelsBetween(int from, int to) {
    return static_cast<std::size_t>(std::max(to - from, 0));
}

/// The part of a cell that lies in the atlas, as far as the bitmap fills it.
Rectangle placeBitmap(const ShelfLayout& layout, std::size_t slot, const RenderedGlyph& glyph) {
    const ShelfLayout::Cell cell = layout.cell(slot);
    const int bottom = layout.shelfStart(cell.shelf) + layout.recipe().padding;
    const int right = std::min(cell.x + cell.room, layout.atlasWidth());
    const int top = std::min(bottom + layout.maxHeight(), layout.atlasHeight());
    return {static_cast<std::size_t>(cell.x), static_cast<std::size_t>(bottom),
            std::min(glyph.width, pixelsBetween(cell.x, right)),
            std::min(glyph.rows, pixelsBetween(bottom, top))};
}

/// Copies upside down: the bitmap's lowest row becomes the rectangle's first.
void copyBitmap(const RenderedGlyph& glyph, const Rectangle& place, GlyphAtlas& atlas) {
    const auto stride = static_cast<std::size_t>(atlas.width);
    for (std::size_t r = 0; r < place.height; ++r) {
        std::uint8_t* row = atlas.pixels.data() + (place.y + r) * stride + place.x;
        for (std::size_t c = 0; c < place.width; ++c) {
            row[c] = glyph.bitmap.coverage(glyph.rows - 1 - r, c);
        }
    }
}

void describe(OpenGL::GlyphInfo& info, const RenderedGlyph& glyph, const Rectangle& place,
              const GlyphAtlas& atlas, int padding) {
    const auto border = static_cast<float>(padding);
    const auto atlasWidth = static_cast<float>(atlas.width);
    const auto atlasHeight = static_cast<float>(atlas.height);
    info.width = static_cast<float>(place.width);
    info.height = static_cast<float>(place.height);
    // Rows cut off at the top must not move the rest.
    info.top = glyph.top - (static_cast<float>(glyph.rows) - info.height);
    info.advance = glyph.advance;
    info.bearing = {glyph.bearingX, glyph.bearingY};
    info.s0 = (static_cast<float>(place.x) - border) / atlasWidth;
    info.t0 = (static_cast<float>(place.y) - border) / atlasHeight;
    info.s1 = info.s0 + (2.0F * border + info.width) / atlasWidth;
    info.t1 = info.t0 + (2.0F * border + info.height) / atlasHeight;
}

}  // namespace

ShelfLayout layoutGlyphs(FontFace& face, ShelfRecipe recipe) {
    ShelfLayout layout(recipe);
    for (unsigned int code = firstCharacter; code <= lastCharacter; ++code) {
        const GlyphSize size = face.measure(code);
        layout.place(size.width, size.height);
    }
    return layout;
}

bool allocateAtlas(const ShelfLayout& layout, GlyphAtlas& atlas) {
    atlas.width = layout.atlasWidth();
    atlas.height = layout.atlasHeight();
    try {
        atlas.pixels.assign(
            static_cast<std::size_t>(atlas.width) * static_cast<std::size_t>(atlas.height), 0);
    } catch (const std::bad_alloc&) {
        report("pixelData: out of memory\n");
        return false;
    }
    return true;
}

void rasterGlyphs(FontFace& face, const ShelfLayout& layout, GlyphAtlas& atlas,
                  std::span<OpenGL::GlyphInfo, slotCount> glyphs) {
    for (std::size_t slot = 0; slot < slotCount; ++slot) {
        if (const auto glyph = face.render(characterOf(slot))) {
            const Rectangle place = placeBitmap(layout, slot, *glyph);
            copyBitmap(*glyph, place, atlas);
            describe(glyphs[slot], *glyph, place, atlas, layout.recipe().padding);
        }
    }
}

bool buildAtlas(FontFace& face, int pixelHeight, ShelfRecipe recipe, GlyphAtlas& atlas,
                GlyphSet& font) {
    if (!face.setPixelHeight(pixelHeight)) {
        report("FT_Set_Pixel_Sizes failed !\n");
        return false;
    }
    const ShelfLayout layout = layoutGlyphs(face, recipe);
    font.maxGlyphHeight = layout.maxHeight();
    if (!allocateAtlas(layout, atlas)) {
        return false;
    }
    rasterGlyphs(face, layout, atlas, font.glyphs);
    return true;
}

void makeQuads(std::span<OpenGL::GlyphInfo, slotCount> glyphs, int padding, int foreign) {
    const auto border = 2.0F * static_cast<float>(padding);
    const auto cut = static_cast<float>(foreign);
    for (OpenGL::GlyphInfo& glyph : glyphs) {
        const float left = glyph.bearing.x;
        const float right = left + glyph.width + border;
        const float bottom = glyph.top - glyph.height + cut;
        const float top = glyph.top + border - cut;
        const float rows = std::max(glyph.height + border, 1.0F);
        const float t0 = glyph.t0 + (glyph.t1 - glyph.t0) * (cut / rows);
        const float t1 = glyph.t1 - (glyph.t1 - glyph.t0) * (cut / rows);
        glyph.vertices = {
            {left, bottom, 0.0F}, {left, top, 0.0F}, {right, top, 0.0F}, {right, bottom, 0.0F}};
        glyph.uvs = {{glyph.s0, t0}, {glyph.s0, t1}, {glyph.s1, t1}, {glyph.s1, t0}};
    }
}

}  // namespace Orlek::Detail
