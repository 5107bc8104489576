// Draws the 224 characters of a font into one atlas, without GL.
#pragma once

#include <Orlek/OpenGL/AtlasText.h>

#include <cstdint>
#include <span>
#include <vector>

#include "rendering/gl/Texture.h"
#include "text/layout/CharacterSlots.h"
#include "text/raster/FontFace.h"
#include "text/raster/ShelfLayout.h"

namespace Orlek::Detail {

/// Coverage of all glyphs, one byte a pixel, bottom row first. No larger than 4096 x 4096.
struct GlyphAtlas {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels;

    /// For the upload; valid as long as the atlas.
    TextureImage image() const {
        return {pixels.data(), static_cast<std::size_t>(width), static_cast<std::size_t>(height)};
    }
};

/// Measures all characters and gives each its cell. Characters that cannot be loaded are reported.
ShelfLayout layoutGlyphs(FontFace& face, ShelfRecipe recipe);

/// An atlas of the layout's size with zero coverage; reports and returns false when there is no
/// memory for it.
bool allocateAtlas(const ShelfLayout& layout, GlyphAtlas& atlas);

/// Renders each character into its cell and fills its record, all but the quad. What a bitmap has
/// beyond its cell, to the right or above, is cut off in atlas and record. The record of a
/// character that cannot be rendered keeps what it held.
void rasterGlyphs(FontFace& face, const ShelfLayout& layout, GlyphAtlas& atlas,
                  std::span<OpenGL::GlyphInfo, slotCount> glyphs);

/// All of it for one pixel height. Reports and returns false, with atlas and font in any state,
/// when the font has no such height, or no memory is left.
bool buildAtlas(FontFace& face, int pixelHeight, ShelfRecipe recipe, GlyphAtlas& atlas,
                GlyphSet& font);

/// Makes each record's quad: the rectangle of its bitmap and `padding` pixels around it, less
/// `foreign` rows at the top and at the bottom.
void makeQuads(std::span<OpenGL::GlyphInfo, slotCount> glyphs, int padding, int foreign = 0);

}  // namespace Orlek::Detail
