// Images and pieces of images.
#pragma once

#include <Orlek/Export.h>
#include <Orlek/Math/Vector2.h>
#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>
#include <Orlek/OpenGL/IndexedPoints.h>

#include <memory>
#include <vector>

namespace Orlek::Detail {
class Mesh;
class Texture;
}  // namespace Orlek::Detail

namespace Orlek::OpenGL {

/// An image in a texture of the object's own, drawn on a quad of the image's size around the
/// origin, or on any number of triangle strips of the application's in one draw call.
///
/// load() makes the texture and the quad. To draw pieces of the image instead, such as the symbols
/// of a sheet, call clearVertex() and add strips. Texture coordinates run from (0, 0), the left of
/// the image's first row, to (1, 1), the right of its last.
///
/// The driver compresses the texture where it can, so colours may differ a little from the image's
/// where many meet within 4 x 4 pixels.
///
/// load(), createTexture(), clear() and render() belong to the thread whose GL context is current.
/// The destructor makes no GL call: call clear() before the context goes away, or what is left is
/// deleted at the next upload of any drawable. Once loaded or drawn, the object and its copies
/// belong to that thread in all. Copies share GL objects until one of them changes.
///
/// @code
/// Orlek::OpenGL::Texture aircraft;
/// aircraft.load(pixels.data(), 64, 64, 0x1908);  // GL_RGBA
/// Orlek::OpenGL::MatrixTranslate(400, 300, 0);
/// aircraft.render();  // in every frame
/// @endcode
class ORLEK_EXPORT Texture {
public:
    /// Separates the strips in the index list: 0xFFFFFFFF as an int.
    static constexpr int RESTART_INDEX = -1;

    /// An object without image and vertices: opaque white, no mipmaps, clamped to the edge.
    Texture();
    /// Takes everything over and shares the GL objects.
    Texture(const Texture& other);
    /// Takes everything over and shares the GL objects. Makes no GL call.
    Texture& operator=(const Texture& other);
    /// Makes no GL call.
    ~Texture();

    /// Makes the texture and, in place of all vertices, the quad that shows it upright, one unit a
    /// pixel, with its centre in the origin and its first row at +y. Releases an earlier texture.
    /// An image that is larger than the largest texture, has a format that OpenGL does not have or
    /// finds no memory is refused with a printed line; texture and vertices stay then. The texture
    /// stays bound to the active unit.
    /// @param pixels height rows of width pixels of unsigned bytes without padding; read and not
    /// kept. Null: nothing happens.
    /// @param width, height in pixels.
    /// @param format GL pixel format of the data, such as GL_RGBA (0x1908), GL_RGB (0x1907),
    /// GL_BGRA (0x80E1) or GL_RED (0x1903).
    void load(const unsigned char* pixels, unsigned width, unsigned height, unsigned format);
    /// Makes the texture and the quad from an image block.
    /// @param image width and height (unsigned 32-bit each), 4 bytes that are not read, then the
    /// pixels; read and not kept. Null: nothing happens.
    /// @param format GL pixel format of the data.
    void load(const void* image, unsigned format);

    /// Makes a texture that is not the object's: uncompressed, linear filters, no mipmaps, repeated
    /// beyond its edges. Discards pending GL errors and leaves none; leaves the texture bound.
    /// @param image an image block of RGBA bytes, see load(); read and not kept.
    /// @return its GL name, which the caller deletes; 0 when image is null, without OpenGL, and
    /// with a printed line for an image that is larger than the largest texture or finds no memory.
    unsigned createTexture(const void* image);

    /// Appends a triangle strip that is not joined to what follows, but continues what stands
    /// before it and has no end: the quad of load(), or vertices that were added one by one.
    /// @param positions in model coordinates.
    /// @param uvs texture coordinates, one a position. While the object has fewer of them than
    /// vertices, all are ignored and everything shows the texel at (0, 0).
    void addTexture(std::vector<Math::Vector3<float>> positions,
                    std::vector<Math::Vector2<float>> uvs);
    /// Appends a triangle strip that is not joined to what follows.
    /// @param positions in model coordinates; w is dropped. @param uvs texture coordinates.
    void addTexture(std::vector<Math::Vector4<float>> positions,
                    std::vector<Math::Vector2<float>> uvs);

    /// Appends a vertex to the strip that is under way: the quad of load(), the vertices added
    /// since, or a new strip after addTexture().
    /// @param p x, y and z in model coordinates. @param uv texture coordinates.
    void addVertex(Math::Vector3<float> p, Math::Vector2<float> uv);
    /// Appends a vertex to the strip that is under way.
    /// @param p x, y and z in model coordinates; w is dropped. @param uv texture coordinates.
    void addVertex(Math::Vector4<float> p, Math::Vector2<float> uv);

    /// Removes all vertices, the quad too. Image and GL objects remain.
    void clearVertex();

    /// Deletes the GL objects, with them the image, unless a copy still draws with them, and
    /// removes all vertices. Colour, mipmap and wrap settings remain; load() starts again.
    void clear();

    /// Draws all strips with the current matrix; nothing without vertices or image. Leaves blending
    /// by source alpha enabled, texture unit 0 active and empty, primitive restart off. GL errors
    /// are printed on the standard output with the label "Texture".
    void render();

    /// @param color factor of the image's colours: red, green, blue, alpha, 0 to 1. Opaque white at
    /// first.
    void setColor(Math::Vector4<float> color);
    /// @param on make mipmaps at the next load(), for images that are drawn much smaller than they
    /// are. Off at first.
    void setUseMipMaps(bool on);
    /// @param mode GL wrap mode of both directions from the next load() on, such as GL_REPEAT
    /// (0x2901) or GL_MIRRORED_REPEAT (0x8370). GL_CLAMP_TO_EDGE (0x812F) at first.
    void setWrapMode(unsigned mode);

    /// @return the width in pixels of the image loaded last; 0 before.
    unsigned width();
    /// @return the height in pixels of the image loaded last; 0 before.
    unsigned height();

private:
    template <typename Vector>
    void appendStrip(const std::vector<Vector>& positions,
                     const std::vector<Math::Vector2<float>>& uvs);
    void setData();

    std::shared_ptr<Detail::Texture> mTexture;
    Detail::IndexedPoints mPoints;
    std::vector<Math::Vector2<float>> mUVs;
    bool mDirty = true;
    unsigned mWidth = 0;
    unsigned mHeight = 0;
    bool mUseMipMaps = false;
    unsigned mWrapMode = 0x812F;
    std::shared_ptr<Detail::Mesh> mMesh;
    Math::Vector4<float> mColor{1.0F, 1.0F, 1.0F, 1.0F};
};

}  // namespace Orlek::OpenGL
