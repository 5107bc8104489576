// Filled triangle strips.
#pragma once

#include <Orlek/Export.h>
#include <Orlek/Math/Vector2.h>
#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>
#include <Orlek/OpenGL/StippleMask.h>

#include <memory>
#include <vector>

namespace Orlek::Detail {
class Mesh;
}

namespace Orlek::OpenGL {

/// A retained drawing of one triangle strip, in one colour or with a colour for each vertex, solid
/// or through a screen stipple.
///
/// Filled once, drawn every frame: the first render() creates the GL objects, and vertices are
/// uploaded again only after they changed. Copies share GL objects until one of them changes.
/// render() and clear() need the thread whose GL context is current; construction, assignment and
/// destruction make no GL call (what they leave is deleted at the next upload of any drawable).
/// Once drawn, the object and its copies belong to that thread in all.
///
/// @code
/// Orlek::OpenGL::TriangleStrip plate;
/// plate.setRect(320, 200);
/// plate.setColor({0, 0, 0, 0.6F});
/// plate.render();  // in every frame
/// @endcode
class ORLEK_EXPORT TriangleStrip {
public:
    /// An object without vertices: opaque white, solid.
    TriangleStrip();
    /// Takes everything over and shares the GL objects.
    TriangleStrip(const TriangleStrip& other);
    /// Takes everything over and shares the GL objects.
    TriangleStrip& operator=(const TriangleStrip& other);
    /// Makes no GL call; see clear().
    ~TriangleStrip();

    /// Appends a vertex without a colour. @param p x and y in model coordinates; z is 0.
    void addVertex(Math::Vector2<float> p);
    /// Appends a vertex without a colour. @param p x, y and z in model coordinates.
    void addVertex(Math::Vector3<float> p);
    /// Appends a vertex without a colour. @param p x, y and z in model coordinates; w is dropped.
    void addVertex(Math::Vector4<float> p);
    /// Appends a vertex. @param p x and y in model coordinates; z is 0.
    /// @param c its red, green, blue and alpha, 0 to 1.
    void addVertex(Math::Vector2<float> p, Math::Vector4<float> c);
    /// Appends a vertex. @param p x, y and z in model coordinates.
    /// @param c its red, green, blue and alpha, 0 to 1.
    void addVertex(Math::Vector3<float> p, Math::Vector4<float> c);
    /// Appends a vertex. @param p x, y and z in model coordinates; w is dropped.
    /// @param c its red, green, blue and alpha, 0 to 1.
    void addVertex(Math::Vector4<float> p, Math::Vector4<float> c);

    /// Removes all vertices and their colours.
    void clearVertex();

    /// Replaces the vertices by a rectangle with one corner in the origin; colours stay.
    /// @param width, height in model coordinates.
    void setRect(unsigned width, unsigned height);

    /// @param color red, green, blue, alpha, 0 to 1, of the whole strip.
    void setColor(Math::Vector4<float> color);

    /// @param on draw with the colours of the vertices, provided that there are as many as
    /// vertices; a screen stipple is not applied then.
    void setUseMultiColor(bool on);

    /// Sets the screen stipple; see Polygon::setPattern.
    /// @param pattern 128 bytes, read and not kept. Null: solid.
    void setPattern(unsigned char* pattern);

    /// Deletes the GL objects unless a copy still draws with them; the vertices remain and the
    /// next render() creates the objects anew. To be called before the context goes away.
    void clear();

    /// Draws with the current matrix. With fewer than 2 vertices nothing happens. Blending by alpha
    /// is on afterwards. GL errors are printed on the standard output, after each step with the
    /// name of the GL function.
    void render();

private:
    void setData();

    std::shared_ptr<Detail::Mesh> mMesh;
    Math::Vector4<float> mColor{1.0F, 1.0F, 1.0F, 1.0F};
    std::vector<Math::Vector3<float>> mVertices;
    std::vector<Math::Vector4<float>> mColors;
    bool mDirty = false;
    bool mUseMultiColor = false;
    Detail::StippleMask mStipple;
};

}  // namespace Orlek::OpenGL
