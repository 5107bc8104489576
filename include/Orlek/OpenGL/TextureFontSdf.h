// Text from a font file, drawn from a distance field: sharp at every size, with an outline.
#pragma once

#include <Orlek/Export.h>
#include <Orlek/Math/Matrix4.h>
#include <Orlek/Math/Vector4.h>
#include <Orlek/OpenGL/AtlasText.h>
#include <Orlek/OpenGL/TextureFont.h>

#include <cstdint>
#include <memory>
#include <string>

struct FT_LibraryRec_;

namespace Orlek::Detail {
class DrawPass;
class Texture;
}  // namespace Orlek::Detail

namespace Orlek::OpenGL {

/// Draws single-byte text from a font file whose glyphs are kept as a signed distance field: each
/// texel says how far the edge of the glyph is, so that one atlas, made once at 50 pixels, gives a
/// sharp edge at any size and can widen it to an outline.
///
/// Characters, the two ways to draw (`renderFont` at once, `addText` and `render` in a batch) and
/// the anchors are those of `TextureFont`; take that one for text that is always drawn at the same
/// small size, where FreeType's own pixels are crisper. Lengths are pixels when one unit of the
/// matrix is one pixel.
///
/// Fonts are kept in the process by name: the first object that loads a name rasterises the font
/// and transforms it, further objects share its texture and their data are not read. Each object
/// has its own size, colours and batch. The texture lives until `clear` or the destructor of its
/// last user; the next load of the name then makes it anew. An object that turns to another font
/// leaves the texture of the first in place, ready for the way back. Copies count as users of their
/// own.
///
/// The outline lies outside the glyph. Its width is measured in the field, which falls from 0.5 at
/// the edge to 0 at a distance of 8 pixels of the design size, 50: a width w gives an outline of
/// 16 w / 50 of the drawn size. 0.2 at a size of 50 is 3.2 pixels; useful widths are 0.05 to 0.43,
/// beyond that the outline is cut off above and below: a quad shows 14 columns of the field on
/// either side of the glyph and 7 rows, as further rows hold the field of the next shelf. Outlines
/// of neighbours may overlap the glyphs drawn before them.
///
/// All operations, construction and destruction included, run on the thread that owns the current
/// OpenGL context. Diagnostics are lines on the standard output; nothing throws.
///
/// The field is that of Green, "Improved alpha-tested magnification for vector textures and special
/// effects" (2007).
///
/// @code
/// Orlek::OpenGL::TextureFontSdf font;
/// if (font.load("DejaVuSans.ttf", 24)) {
///     font.setOutlineWidth(0.2F);  // black, 1.5 pixels at this size
///     font.renderFont(100.0, 40.0, "EDDF", Orlek::OpenGL::TextureFontSdf::CENTER);
/// }
/// @endcode
class ORLEK_EXPORT TextureFontSdf {
public:
    /// Number of glyph slots. Slot i holds the character code 32 + i.
    static constexpr int MAX_CHAR = 224;
    /// Primitive-restart marker in the index list of the batch.
    static constexpr std::uint32_t RESTART_INDEX = 0xFFFFFFFFU;
    /// Distance from the edge, in pixels of the design size, at which the field ends.
    static constexpr int mMaxSearchRadius = 8;

    /// The anchors of `TextureFont`: the box of a text is as wide as the sum of the advances and
    /// stands on the baseline. Its height is that of the highest glyph of the whole font in
    /// `renderFont`, and that of the highest glyph of the text in `addText`.
    using Alignment = TextureFont::Alignment;
    using enum TextureFont::Alignment;

    /// Makes a font without glyphs: white, black outline of width 0. The first construction in a
    /// process starts FreeType and prints "INIT Freetype done"; if it fails it prints
    /// "init freetype failed !", no font can be built, and the next construction tries again. No GL
    /// call.
    TextureFontSdf();
    /// Shares font and GL objects with @p other and copies everything else.
    TextureFontSdf(const TextureFontSdf& other);
    /// Shares font and GL objects with @p other and copies everything else; its own are given up.
    /// No GL call.
    /// @return this object.
    TextureFontSdf& operator=(const TextureFontSdf& other);
    /// Does what `clear` does, so the GL context must be current unless there is no font.
    ~TextureFontSdf();

    /// Reads a font file and loads it under its path as name.
    /// @param fileName path of a regular file of at most 1 GiB, of any format that
    ///        `TextureFont::load` takes; the first face in it is used.
    /// @param pixelSize size at which the text is drawn, as in `loadData`.
    /// @return false when the file cannot be read, after the line
    ///         "TextureFontSdf::load could not open <file name>"; else what `loadData` returns.
    bool load(const char* fileName, int pixelSize);

    /// Takes the font of that name, which is built from the data if there is none yet. When the
    /// object had another font its batch is emptied; the texture of that font stays for the way
    /// back until some object is cleared.
    /// @param name any text, not null; names one font for the whole process.
    /// @param data the font's bytes; read during the call, and only when the font is built.
    /// @param size number of bytes.
    /// @param pixelSize pixel height of the em square as drawn; only sets the scale, as `setSize`.
    /// @return true when the font can be drawn, and for the empty font of a name that could not be
    ///         built before. Failures to build it print
    ///         "FT_New_Memory_Face failed <code> !" (no font, no data, no name),
    ///         "FT_Set_Pixel_Sizes failed !" (a bitmap font without a size of 50) or
    ///         "pixelData: out of memory"; the object then draws nothing, and the name keeps an
    ///         empty font that later loads of it take without reading their data: load the mended
    ///         font under another name. A character that cannot be measured prints
    ///         "FT_Load_Glyph failed!", one that cannot be rendered nothing; the others are built.
    bool loadData(const char* name, const char* data, int size, int pixelSize);

    /// Appends one string to the batch, at the present size. No GL call; nothing without a font.
    /// @param text any bytes; an empty string adds nothing.
    /// @param transform applied to the text, which is laid out with its anchor at the origin; the
    ///        fourth row is not used.
    /// @param align the anchor.
    void addText(const std::string& text, Math::Matrix4<float> transform, Alignment align);

    /// Draws the batch in the present colours and outline and with the current matrix of the matrix
    /// stack; does nothing while it is empty, or without a font. Leaves GL_BLEND enabled with
    /// glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA). GL errors are printed as those of
    /// "TextureFontSdf".
    void render();

    /// Draws one string at once, at the present size, its anchor at the origin of the current
    /// matrix, which it leaves as it was. Leaves blending as `render` does; nothing without a font.
    /// @param text any bytes.
    /// @param align the anchor.
    void renderFont(const std::string& text, Alignment align);

    /// Draws one string at once with its anchor at (x, y, 0).
    /// @param x, y position in the units of the current matrix, which is restored afterwards.
    /// @param text any bytes.
    /// @param align the anchor.
    void renderFont(double x, double y, const std::string& text, Alignment align);

    /// Empties the batch. No GL call.
    void clearVertex();

    /// Sets the size of text drawn at once, and of texts added to the batch from now on.
    /// @param size pixel height of the em square as drawn; 50 is the design size.
    void setSize(int size);

    /// @param color red, green, blue and alpha of the glyphs, 0 to 1, from the next draw on; opaque
    ///        white at construction.
    void setColor(Math::Vector4<float> color);

    /// @param color red, green, blue and alpha of the outline, 0 to 1, from the next draw on;
    ///        opaque black at construction. The alpha of glyph and outline ought to be the same.
    void setOutlineColor(Math::Vector4<float> color);

    /// @param width of the outline in the field, 0 to 0.5, from the next draw on: 0.5 is 8 pixels
    ///        at a size of 50. No outline up to 0.001; 0 at construction.
    void setOutlineWidth(float width);

    /// Deletes the object's GL objects, and the textures of all fonts that no other object uses.
    /// The batch stays and can be drawn again once the font is there. Needs the current GL context.
    void clear();

    /// @return the GL name of the font's atlas texture, which all its users share; 0 without one.
    ///         Each texel is sampled as (0, 0, 0, field).
    unsigned int texture();

private:
    struct FontType;
    struct FontCache;

    static FontCache& fontCache();
    FontType* currentFont();
    FontType* drawableFont();
    bool createGlyphTexture(const char* data, int size, FontType& font);
    void setColors(Detail::DrawPass& pass) const;

    static bool mInitDone;
    static FT_LibraryRec_* mFtLibrary;

    Detail::AtlasText mText;
    std::shared_ptr<Detail::Texture> mTexture;  // this user's share of the font's
    std::uint32_t mFontId = 0xFFFFFFFFU;
    float mScale = 1.0F;
    Math::Vector4<float> mColor{1.0F, 1.0F, 1.0F, 1.0F};
    Math::Vector4<float> mOutlineColor{0.0F, 0.0F, 0.0F, 1.0F};
    float mOutlineWidth = 0.0F;
};

}  // namespace Orlek::OpenGL
