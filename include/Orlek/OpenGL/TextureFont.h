// Text from a font file, drawn from an atlas of glyphs rasterised at one size.
#pragma once

#include <Orlek/Export.h>
#include <Orlek/Math/Matrix4.h>
#include <Orlek/Math/Vector4.h>
#include <Orlek/OpenGL/AtlasText.h>

#include <cstdint>
#include <memory>
#include <string>

struct FT_LibraryRec_;

namespace Orlek::Detail {
class Texture;
struct GlyphAtlas;
}  // namespace Orlek::Detail

namespace Orlek::OpenGL {

/// Draws single-byte text with a font file rasterised at one pixel size.
///
/// The font covers the character codes 32 to 255, which FreeType looks up in the font's Unicode
/// table (so bytes above 127 are Latin-1). Of a font without one its symbol table is taken, also
/// from U+F000 on, or its first one. Bytes below 32 draw as a space. Glyphs are laid out in pixels,
/// y up, the pen on the baseline; with a matrix that maps one unit to one pixel, text whose pen
/// stands on whole pixels has exactly the coverage that FreeType renders.
///
/// There are two ways to draw, and one object can do both:
/// - at once, one draw call a character: `renderFont`;
/// - in a batch, any number of strings with one draw call: `addText` for each, then `render` every
///   frame. The batch is uploaded again only after a change.
///
/// Text drawn smaller than 1:1 is averaged down (mipmaps), larger it blurs; choose the pixel size
/// that is drawn. The atlas holds at most 4096 rows of 256 pixels, enough for all characters of a
/// usual font up to a pixel size of about 80; beyond that, characters that find no room draw as
/// nothing, and a distance-field font is the better choice.
///
/// Copies share the GL objects until one of them changes, and the last owner deletes them. All
/// operations, construction and destruction included, run on the thread that owns the current
/// OpenGL context. Diagnostics are lines on the standard output; nothing throws.
///
/// @code
/// Orlek::OpenGL::TextureFont font;
/// if (font.load("DejaVuSans.ttf", 16)) {
///     font.setColor({1.0F, 0.8F, 0.0F, 1.0F});
///     font.renderFont(100.0, 40.0, "EDDF", Orlek::OpenGL::TextureFont::CENTER);
/// }
/// @endcode
class ORLEK_EXPORT TextureFont {
public:
    /// Number of glyph slots. Slot i holds the character code 32 + i.
    static constexpr int MAX_CHAR = 224;
    /// Primitive-restart marker in the index list of the batch.
    static constexpr std::uint32_t RESTART_INDEX = 0xFFFFFFFFU;

    /// The point of a text's box that lies on the position where it is drawn.
    ///
    /// The box is as wide as the sum of the advances and as high as the highest glyph of the whole
    /// font, and stands on the baseline: descenders hang below it. Any other value draws as
    /// `BOTTOM_LEFT`.
    enum Alignment : int {
        TOP_LEFT = 0,       ///< Left end, top of the box.
        CENTER_LEFT = 1,    ///< Left end, half of the height.
        BOTTOM_LEFT = 2,    ///< Left end of the baseline.
        TOP_CENTER = 3,     ///< Half of the width, top of the box.
        CENTER = 4,         ///< Half of the width, half of the height.
        BOTTOM_CENTER = 5,  ///< Half of the width, on the baseline.
        TOP_RIGHT = 6,      ///< Right end, top of the box.
        CENTER_RIGHT = 7,   ///< Right end, half of the height.
        BOTTOM_RIGHT = 8    ///< Right end of the baseline.
    };

    /// Makes a font without glyphs, in white. The first construction in a process starts FreeType
    /// and prints "INIT Freetype done"; if it fails it prints "init freetype failed !", the font
    /// cannot load, and the next construction tries again. No GL call.
    TextureFont();
    /// Shares the GL objects of @p other and copies everything else.
    TextureFont(const TextureFont& other);
    /// Shares the GL objects of @p other and copies everything else; its own are given up.
    /// @return this object.
    TextureFont& operator=(const TextureFont& other);
    /// Does what `clear` does, so the GL context must be current unless the font is empty.
    ~TextureFont();

    /// Reads a font file and builds the atlas.
    /// @param fileName path of a regular file of at most 1 GiB, of any format that FreeType opens
    ///        (TrueType, OpenType, Type 1 ...) but PFR and Type 42; the first face in it is used.
    /// @param pixelSize pixel height, 1 to 256, as in `loadData`.
    /// @return false when the file cannot be read, after the line
    ///         "TextureFont::load could not open <file name>"; else what `loadData` returns.
    bool load(const char* fileName, int pixelSize);

    /// Builds the atlas from a font in memory, with FreeType's autohinter. It takes the place of an
    /// earlier atlas and empties the batch, but leaves both when it fails before OpenGL has
    /// taken it. A usual font takes some milliseconds; after a second of the thread's processor
    /// time for each 10 MiB, one at least, nothing more is read of one. Leaves its texture bound to
    /// the active unit.
    /// @param name used in the message about a font that cannot be opened.
    /// @param data the font's bytes; read during the call only. Bitmap fonts have
    ///        eight bits a pixel or one; two or four are read as if they were ones.
    /// @param size number of bytes.
    /// @param pixelSize pixel height of the font's em square, 1 to 256.
    /// @return true when the atlas and its GL objects were made. Failures print
    ///         "FT_New_Face failed <code> ! <name>" (no font, no data, characters made of more
    ///         than 256 parts or on more than 16 levels, or that much work),
    ///         "FT_Set_Pixel_Sizes failed !" (a size out of range, or not in a bitmap font) or
    ///         "pixelData: out of memory", and OpenGL's are lines of its own. A character that
    ///         cannot be measured prints "FT_Load_Glyph failed!", one that cannot be rendered
    ///         nothing; the others are built.
    bool loadData(const char* name, const char* data, int size, int pixelSize);

    /// Appends one string to the batch. No GL call.
    /// @param text any bytes; an empty string adds nothing.
    /// @param transform applied to the text, which is laid out in pixels with its anchor at the
    ///        origin; the fourth row is not used.
    /// @param align the anchor.
    void addText(const std::string& text, Math::Matrix4<float> transform, Alignment align);

    /// Draws the batch in the current colour and with the current matrix of the matrix stack; does
    /// nothing while it is empty. Leaves GL_BLEND enabled with
    /// glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA). GL errors are printed as those of
    /// "TextureFont".
    void render();

    /// Draws one string at once, its anchor at the origin of the current matrix. Leaves blending as
    /// `render` does; does nothing without an atlas.
    /// @param text any bytes.
    /// @param align the anchor.
    void renderFont(const std::string& text, Alignment align);

    /// Draws one string at once with its anchor at (x, y, 0).
    /// @param x, y position in the units of the current matrix, which is restored afterwards.
    /// @param text any bytes.
    /// @param align the anchor.
    void renderFont(double x, double y, const std::string& text, Alignment align);

    /// Sets the colour of the next draw.
    /// @param color red, green, blue and alpha, 0 to 1; opaque white at construction.
    void setColor(Math::Vector4<float> color);

    /// Empties the batch. No GL call.
    void clearVertex();

    /// Deletes the atlas, unless a copy still uses it, and empties the batch. The font draws
    /// nothing until it is loaded again; the glyphs' sizes stay. Needs the current GL context.
    void clear();

    /// @return the GL name of the atlas texture, 0 without an atlas. Each texel is sampled as
    ///         (0, 0, 0, coverage). The font owns it.
    unsigned int texture();

private:
    static bool mInitDone;
    static FT_LibraryRec_* mFtLibrary;

    Detail::GlyphSet mGlyphs;
    Detail::AtlasText mText;
    std::shared_ptr<Detail::Texture> mTexture;
    Math::Vector4<float> mColor{1.0F, 1.0F, 1.0F, 1.0F};
};

}  // namespace Orlek::OpenGL
