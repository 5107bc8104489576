// Text from strokes, without a font file.
#pragma once

#include <Orlek/Export.h>
#include <Orlek/Math/Matrix4.h>
#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>
#include <Orlek/OpenGL/StrokeSet.h>
#include <Orlek/OpenGL/TextureFont.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Orlek::Detail {
class Mesh;
class StrokeCharacters;
}  // namespace Orlek::Detail

namespace Orlek::OpenGL {

/// Draws text with a built-in stroke font: antialiased polylines of any size and width.
///
/// It needs no font file and no texture, stays sharp at every size, and has one width for all
/// characters. The codes 32 to 126 are ASCII, the codes 1 to 31 symbols of maps and instruments
/// (docs/strokefont.md shows all):
///
/// | code | symbol            | code | symbol         | code | symbol          |
/// |------|-------------------|------|----------------|------|-----------------|
/// | 1    | triangle up       | 12   | VOR            | 22   | arrow up        |
/// | 2    | triangle down     | 14   | VOR/DME        | 23   | arrow down      |
/// | 3    | triangle left     | 15   | NDB            | 25   | arrow left      |
/// | 4    | triangle right    | 16   | waypoint       | 26   | arrow right     |
/// | 5    | square            | 17   | crossed circle | 27   | degree sign     |
/// | 6    | diamond           | 18   | airport        | 28   | plus or minus   |
/// | 7    | circle            | 19   | heliport       | 29   | check mark      |
/// | 8    | cross             | 20   | obstacle       | 30   | heading bug     |
/// | 11   | star              | 21   | aircraft       | 31   | holding pattern |
///
/// Code 0 is blank like the space; 9, 10, 13, 24 and 127 draw a box. Bytes from 128 on draw nothing
/// and leave no gap, though they count in the width that centres or right-aligns a text.
///
/// A drawing size is the height of the line of text: capitals are 0.857 of it high and 0.559 wide,
/// the pen moves on by 0.822 of it, descenders hang 0.286 of it below the baseline.
///
/// There are two ways to draw, and one object can do both:
/// - at once, one draw call a stroke: `renderFont`;
/// - in a batch, any number of texts with one draw call: `addText` for each, then `render` every
///   frame. The batch is uploaded again only after a change.
///
/// Copies share the GL objects until one of them changes, and the last owner deletes them. All
/// operations belong to the thread whose OpenGL context is current; of those that make no GL call
/// it is said. Diagnostics are lines on the standard output; nothing throws.
///
/// @code
/// Orlek::OpenGL::VectorFont font;
/// font.setColor({0.0F, 1.0F, 0.0F, 1.0F});
/// font.renderFont(320.0, 20.0, "HDG 274\x1b", 16.0, Orlek::OpenGL::VectorFont::BOTTOM_CENTER);
/// @endcode
class ORLEK_EXPORT VectorFont {
public:
    /// Primitive-restart marker in the index list of the batch.
    static constexpr std::uint32_t RESTART_INDEX = 0xFFFFFFFFU;

    /// The anchor of a text: a point of the box that stands on the baseline, is as high as the
    /// drawing size, and as wide as all bytes of the text. Any other value draws as `BOTTOM_LEFT`.
    using Alignment = TextureFont::Alignment;
    using enum TextureFont::Alignment;

    /// A font in white with lines of 1.5 pixels. It has no characters yet; no GL call.
    VectorFont();
    /// Shares the GL objects of @p other and copies everything else.
    VectorFont(const VectorFont& other);
    /// Shares the GL objects of @p other and copies everything else; its own are given up.
    /// @return this object.
    VectorFont& operator=(const VectorFont& other);
    /// Deletes the GL objects unless a copy still draws with them; needs the context current then.
    ~VectorFont();

    /// Takes the characters of a set in place of the built-in ones and makes the GL objects. Does
    /// nothing when the object has characters already: after an earlier call, or after the first
    /// `addText` or `renderFont`, which take the built-in ones.
    /// @param set a well-formed set, read during the call only; null does nothing. Characters from
    ///        128 on are not read, those that the set lacks draw nothing. At most 1,048,576
    ///        records are read.
    void vectorFontInit(CHARSET_STRUCT* set);

    /// Appends one text to the batch.
    /// @param text any bytes; an empty text adds nothing.
    /// @param transform applied to the text, which has its anchor at the origin; the fourth row is
    ///        not used.
    /// @param size drawing height, in the units before @p transform.
    /// @param align the anchor.
    void addText(const std::string& text, Math::Matrix4<float> transform, double size,
                 Alignment align);

    /// Draws the batch in the current colour and width and with the current matrix of the matrix
    /// stack; does nothing while it is empty. Leaves GL_BLEND enabled with
    /// glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA), line smoothing and primitive restart
    /// disabled, and the line width set. GL errors are printed as those of "VectorFont".
    void render();

    /// Draws one text at once with its anchor at (x, y, 0). Leaves GL_BLEND and GL_LINE_SMOOTH
    /// enabled and the line width set. Does not set the blend function: set one, such as
    /// glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA), or the smooth edges will not be blended.
    /// @param x, y position in the units of the current matrix, which is the same afterwards.
    /// @param text any bytes.
    /// @param size drawing height, in the units of the current matrix.
    /// @param align the anchor.
    void renderFont(double x, double y, const std::string& text, double size, Alignment align);

    /// Draws one text at once with its anchor at the origin of the current matrix.
    /// @param text any bytes.
    /// @param size drawing height, in the units of the current matrix.
    /// @param align the anchor.
    void renderFont(const std::string& text, double size, Alignment align);

    /// Sets the colour of the next draw. No GL call.
    /// @param color red, green, blue and alpha, 0 to 1; opaque white at construction.
    void setColor(Math::Vector4<float> color);

    /// Sets the line width of the next draw. No GL call.
    /// @param width in pixels, 1.5 at construction; the driver limits it. With one that
    ///        is not above 0 the width of the GL context stays, and each draw prints its GL error.
    void setLineWidth(double width);

    /// Empties the batch. No GL call.
    void clearVertex();

    /// Deletes the GL objects unless a copy still draws with them. Characters and batch remain, and
    /// the next draw makes the objects anew. To be called before the context goes away.
    void clear();

private:
    void takeSet(const CHARSET_STRUCT& set);
    void takeBuiltInSet();
    void setPoints();
    void setData();

    std::shared_ptr<const Detail::StrokeCharacters> mCharacters;  // null until initialised
    std::shared_ptr<Detail::Mesh> mPointMesh;
    std::shared_ptr<Detail::Mesh> mBatchMesh;
    std::vector<Math::Vector3<float>> mVertices;
    std::vector<std::uint32_t> mIndices;
    bool mDirty = false;
    Math::Vector4<float> mColor{1.0F, 1.0F, 1.0F, 1.0F};
    double mLineWidth = 1.5;
};

/// A grey that stands out from a colour, judged by its red alone.
/// @param c red, green, blue and alpha, 0 to 1.
/// @return 1 minus the red of @p c in all three channels, and its alpha.
ORLEK_EXPORT Math::Vector4<float> getOppositeColor(Math::Vector4<float> c);

}  // namespace Orlek::OpenGL
