// Independent line segments.
#pragma once

#include <Orlek/Export.h>
#include <Orlek/Math/Vector2.h>
#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>
#include <Orlek/OpenGL/LineStyle.h>

#include <memory>
#include <vector>

namespace Orlek::Detail {
class Mesh;
}

namespace Orlek::OpenGL {

/// A retained drawing of independent segments, one for each pair of vertices.
///
/// Filled once, drawn every frame: the first render() creates the GL objects, and vertices are
/// uploaded again only after they changed. Copies share GL objects until one of them changes.
/// render(), clear(), assignment and destruction belong to the thread whose GL context is current;
/// what is left undeleted then is deleted at the next upload of any drawable.
///
/// @code
/// Orlek::OpenGL::Lines grid;
/// for (float x = 0; x <= 500; x += 50) {
///     grid.addVertex(Orlek::Math::Vector2<float>(x, 0));
///     grid.addVertex(Orlek::Math::Vector2<float>(x, 500));
/// }
/// grid.setColor({1, 1, 1, 0.4F});
/// grid.render();  // in every frame
/// @endcode
class ORLEK_EXPORT Lines {
public:
    /// An object without vertices: opaque white, 1 pixel wide, antialiased, solid.
    Lines();
    /// Takes everything over and shares the GL objects.
    Lines(const Lines& other);
    /// Takes everything over and shares the GL objects; the last owner's are deleted.
    Lines& operator=(const Lines& other);
    /// Deletes the GL objects unless a copy still draws with them; needs the context current.
    ~Lines();

    /// Appends a vertex. Vertices 2k and 2k + 1 form segment k; an odd last one is not drawn.
    /// @param position x and y in model coordinates; z is 0.
    void addVertex(Math::Vector2<float> position);
    /// Appends a vertex. @param position x, y and z in model coordinates.
    void addVertex(Math::Vector3<float> position);
    /// Appends a vertex. @param position x, y and z in model coordinates; w is dropped.
    void addVertex(Math::Vector4<float> position);

    /// Replaces all vertices by the two vertical sides of a rectangle: x = 0 and x = width, each
    /// from y = 0 to y = height.
    /// @param width, height in model coordinates.
    void setRect(unsigned int width, unsigned int height);

    /// Removes all vertices.
    void clearVertex();

    /// Deletes the GL objects unless a copy still draws with them; the vertices remain and the
    /// next render() creates the objects anew. To be called before the context goes away.
    void clear();

    /// @param color red, green, blue, alpha, 0 to 1. Alpha takes effect with antialiasing.
    void setColor(Math::Vector4<float> color);
    /// @param width in pixels, above 0; the driver limits it.
    void setLineWidth(float width);
    /// @param on smooth edges, and blending. Off: hard edges, and blending is switched off.
    void setAntiAlias(bool on);
    /// @param pattern one bit a pixel along the line, bit 0 first; 0: solid.
    void setStipple(unsigned short pattern);

    /// Draws with the current matrix. With fewer than 2 vertices nothing happens. GL errors are
    /// printed on the standard output with the label "Lines". Blending stays as setAntiAlias()
    /// says; smoothing and stipple are off afterwards.
    void render();

private:
    std::shared_ptr<Detail::Mesh> mMesh;
    Detail::LineStyle mStyle;
    std::vector<Math::Vector3<float>> mVertices;
    bool mDirty = false;
};

}  // namespace Orlek::OpenGL
