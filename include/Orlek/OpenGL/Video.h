// Moving pictures.
#pragma once

#include <Orlek/Export.h>
#include <Orlek/Math/Vector2.h>
#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>

#include <memory>
#include <vector>

namespace Orlek::Detail {
class Mesh;
class PixelBuffer;
class Texture;
}  // namespace Orlek::Detail

namespace Orlek::OpenGL {

/// A texture of fixed size that is refreshed frame by frame, drawn on a quad of the frame's size
/// around the origin: camera pictures, video streams, pictures that the application computes.
///
/// Frames go through a pixel buffer, so that putFrame() returns when the frame is copied.
///
/// init(), putFrame(), clear() and render() belong to the thread whose GL context is current. The
/// destructor makes no GL call: call clear() before the context goes away, or what is left is
/// deleted at the next upload of any drawable. After init() the object and its copies belong to
/// that thread in all. Copies share the picture, also frames put later into any of them, until one
/// of them calls init().
///
/// @code
/// Orlek::OpenGL::Video camera;
/// camera.init(640, 480);
/// camera.putFrame(rgb.data());  // when a frame has come
/// camera.render();              // in every frame
/// @endcode
class ORLEK_EXPORT Video {
public:
    /// The restart index of the drawing classes: 0xFFFFFFFF as an int. Nothing of this class
    /// needs it.
    static constexpr int RESTART_INDEX = -1;

    /// An object without picture and vertices: opaque white.
    Video();
    /// Takes everything over and shares the GL objects.
    Video(const Video& other);
    /// Takes everything over and shares the GL objects. Makes no GL call.
    Video& operator=(const Video& other);
    /// Makes no GL call.
    ~Video();

    /// Makes the texture and, in place of all vertices, the quad that shows frames upright, one
    /// unit a pixel, with its centre in the origin. Releases an earlier texture. The picture is
    /// undefined until the first putFrame(). A size larger than the largest texture, or without
    /// memory, is refused with a printed line; everything stays as it was then. The texture stays
    /// bound to the active unit, no pixel buffer does.
    /// @param width, height of the frames in pixels.
    void init(unsigned width, unsigned height);

    /// Replaces the picture. It stays when the driver cannot take a frame. Leaves no 2D texture
    /// bound to the active unit and no pixel buffer bound.
    /// @param rgb height rows of width pixels of 3 bytes (red, green, blue) without padding, the
    /// top row first; copied. Null, or no init() before: nothing happens.
    void putFrame(const unsigned char* rgb);

    /// Appends a vertex to the triangle strip, which has the four of the quad after init().
    /// @param p x, y and z in model coordinates.
    /// @param uv texture coordinates; (0, 0) is the left of the top row, (1, 1) the right of the
    /// bottom row.
    void addVertex(Math::Vector3<float> p, Math::Vector2<float> uv);
    /// Appends a vertex to the triangle strip.
    /// @param p x, y and z in model coordinates; w is dropped. @param uv texture coordinates.
    void addVertex(Math::Vector4<float> p, Math::Vector2<float> uv);

    /// Removes all vertices, the quad too. Picture and GL objects remain.
    void clearVertex();

    /// Deletes the GL objects, with them the picture, unless a copy still draws with them; init()
    /// starts again.
    void clear();

    /// Draws the picture with the current matrix; nothing without vertices or before init(). Leaves
    /// blending by source alpha enabled, texture unit 0 active and empty. GL errors are printed on
    /// the standard output with the label "Video".
    void render();

    /// @param color factor of the picture's colours: red, green, blue, alpha, 0 to 1. Opaque white
    /// at first.
    void setColor(Math::Vector4<float> color);

    /// @return the width of the frames in pixels; 0 before init().
    unsigned width();
    /// @return the height of the frames in pixels; 0 before init().
    unsigned height();

private:
    void setData();

    std::shared_ptr<Detail::Texture> mTexture;
    std::vector<Math::Vector3<float>> mVertices;
    std::vector<Math::Vector2<float>> mUVs;
    bool mDirty = true;
    unsigned mWidth = 0;
    unsigned mHeight = 0;
    std::shared_ptr<Detail::Mesh> mMesh;
    std::shared_ptr<Detail::PixelBuffer> mPbo;
    Math::Vector4<float> mColor{1.0F, 1.0F, 1.0F, 1.0F};
};

}  // namespace Orlek::OpenGL
