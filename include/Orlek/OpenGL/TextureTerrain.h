// Terrain with height colours and shaded relief.
#pragma once

#include <Orlek/Export.h>
#include <Orlek/Math/Vector2.h>
#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>

#include <memory>
#include <vector>

namespace Orlek::Detail {
class Mesh;
class Texture;
struct TextureImage;
struct TextureRecipe;
}  // namespace Orlek::Detail

namespace Orlek::OpenGL {

/// A textured triangle strip drawn with the terrain program: a map image, a texture of surface
/// normals and heights, and a 1D texture of colours by height.
///
/// The class computes no heights and no normals; the application builds the textures. With N the
/// decoded normal, L the unit vector towards the light and Ch the colour of the height, a pixel is
///
/// - b = (1 - factor) + factor max(L . N, 0), or 1 without shading,
/// - c = osm (map color b) + (1 - osm) (Ch b),
/// - (contrast (c - 0.5) + 0.5) brightness.
///
/// load(), loadNormals(), clear() and render() belong to the thread whose GL context is current.
/// The destructor makes no GL call: call clear() before the context goes away, or what is left is
/// deleted at the next upload of any drawable. Once loaded or drawn, the object and its copies
/// belong to that thread in all. Copies share GL objects until one of them changes.
///
/// @code
/// Orlek::OpenGL::TextureTerrain relief;
/// relief.loadNormals(normals.data(), 256, 256, 0x1908);  // GL_RGBA
/// relief.setColorMap(heightColors);
/// relief.setShading(true);
/// relief.setLightDirection({1, -1, -1});
/// for (float x : {0.0F, 1.0F}) {
///     for (float y : {0.0F, 1.0F}) relief.addVertex({x * 800, y * 600, 0.0F}, {x, y});
/// }
/// relief.render();  // in every frame
/// @endcode
class ORLEK_EXPORT TextureTerrain {
public:
    /// An object without geometry and textures; see the setters for the initial values.
    TextureTerrain();
    /// Takes everything over and shares the GL objects.
    TextureTerrain(const TextureTerrain& other);
    /// Takes everything over and shares the GL objects. Makes no GL call.
    TextureTerrain& operator=(const TextureTerrain& other);
    /// Makes no GL call.
    ~TextureTerrain();

    /// Appends a vertex to the triangle strip.
    /// @param position x, y and z in model coordinates.
    /// @param uv texture coordinates, 0 to 1.
    void addVertex(Math::Vector3<float> position, Math::Vector2<float> uv);
    /// Appends a vertex to the triangle strip.
    /// @param position x, y and z in model coordinates; w is dropped.
    /// @param uv texture coordinates, 0 to 1.
    void addVertex(Math::Vector4<float> position, Math::Vector2<float> uv);

    /// Removes all vertices.
    void clearVertex();

    /// Deletes the GL objects unless a copy still draws with them (the colour map is the
    /// application's). Vertices and parameters remain: after load() and loadNormals() the next
    /// render() draws again.
    void clear();

    /// Makes the map texture and releases an earlier one. An image that is larger than the
    /// largest texture, has a format that OpenGL does not have or finds no memory is refused with a
    /// printed line, and the earlier one stays; so in loadNormals().
    /// @param pixels height rows of width pixels of unsigned bytes without padding, the row at
    /// v = 0 first; read and not kept. Null: nothing happens.
    /// @param width, height in pixels.
    /// @param format GL pixel format of the data, such as GL_RGBA (0x1908) or GL_RGB (0x1907).
    void load(const unsigned char* pixels, unsigned width, unsigned height, unsigned format);
    /// Makes the map texture from an image block.
    /// @param image width and height (unsigned 32-bit each), 4 bytes that are not read, then the
    /// pixels; read and not kept. Null: nothing happens.
    /// @param format GL pixel format of the data.
    void load(const void* image, unsigned format);

    /// Makes the texture of normals and heights and releases an earlier one.
    /// @param data height rows of width pixels of unsigned shorts: normal x, y, z from 0 (-1) to
    /// 65535 (1), height from 0 to 65535 as the colour map has it; read and not kept. Null:
    /// nothing happens. The stored precision is the driver's choice, at least 8 bits.
    /// @param width, height in pixels.
    /// @param format GL pixel format of the data, GL_RGBA (0x1908).
    void loadNormals(const unsigned short* data, unsigned width, unsigned height, unsigned format);

    /// @return the width in pixels of the texture made last, by load() or loadNormals().
    unsigned width();
    /// @return the height in pixels of the texture made last, by load() or loadNormals().
    unsigned height();

    /// @param color tint of the map image: red, green, blue, alpha, 0 to 1. Opaque white at first.
    void setColor(Math::Vector4<float> color);
    /// @param texture GL name of a 1D texture of colours by height; stays the application's. 0 (at
    /// first) for none.
    void setColorMap(unsigned texture);
    /// @param direction the way the light goes, from the light to the ground, in the coordinates of
    /// the normals; any length above 0. (0, 0, 0) at first.
    void setLightDirection(Math::Vector3<float> direction);
    /// @param on shade by the normals, if there are any. Off at first.
    void setShading(bool on);
    /// @param brightness factor of all colours, 1 at first.
    void setShadingBrightness(double brightness);
    /// @param contrast factor about medium grey, 1 at first.
    void setShadingContrast(double contrast);
    /// @param factor share of the shading, 0 (none) to 1 (unlit slopes black); 0.5 at first.
    void setShadingFactor(double factor);
    /// @param share of the map image against the height colours: 1 shows the map only, 0 (at
    /// first) the height colours only.
    void setTerrainOsm(double share);

    /// Draws with the current matrix. Uses the texture units 0 to 2 and leaves unit 0 active and
    /// empty. Blending by source alpha stays enabled. GL errors are printed on the standard output
    /// with the label "TextureTerrain".
    void render();

private:
    void replaceTexture(std::shared_ptr<Detail::Texture>& texture,
                        const Detail::TextureRecipe& recipe, const Detail::TextureImage& image);
    void setData();

    std::shared_ptr<Detail::Texture> mTexture;
    std::shared_ptr<Detail::Texture> mTextureNormal;
    unsigned mColorMap = 0;
    std::vector<Math::Vector3<float>> mVertices;
    std::vector<Math::Vector2<float>> mUVs;
    bool mDirty = true;
    bool mShading = false;
    unsigned mWidth = 0;
    unsigned mHeight = 0;
    double mShadingFactor = 0.5;
    double mContrast = 1.0;
    double mBrightness = 1.0;
    double mOsm = 0.0;
    std::shared_ptr<Detail::Mesh> mMesh;
    Math::Vector4<float> mColor{1.0F, 1.0F, 1.0F, 1.0F};
    Math::Vector3<float> mLightDirection;
};

}  // namespace Orlek::OpenGL
