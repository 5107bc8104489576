// Closed outlines.
#pragma once

#include <Orlek/Export.h>
#include <Orlek/Math/Vector2.h>
#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>
#include <Orlek/OpenGL/IndexedPoints.h>
#include <Orlek/OpenGL/LineStyle.h>

#include <memory>
#include <vector>

namespace Orlek::Detail {
class Mesh;
}

namespace Orlek::OpenGL {

/// A retained drawing of any number of closed outlines in one draw call.
///
/// Filled once, drawn every frame: the first render() creates the GL objects, and vertices are
/// uploaded again only after they changed. Copies share GL objects until one of them changes.
/// render(), clear(), assignment and destruction belong to the thread whose GL context is current;
/// what is left undeleted then is deleted at the next upload of any drawable.
///
/// @code
/// Orlek::OpenGL::LineLoops loop;
/// loop.addLineLoop(std::vector<Orlek::Math::Vector2<float>>{{100, 80}, {540, 80}, {320, 340}});
/// loop.setColor({1, 0, 1, 1});
/// loop.render(1.0);  // in every frame
/// @endcode
class ORLEK_EXPORT LineLoops {
public:
    /// Separates the loops in the index list: 0xFFFFFFFF as an int.
    static constexpr int RESTART_INDEX = -1;

    /// An object without vertices: opaque white, 1 pixel wide, antialiased, solid.
    LineLoops();
    /// Takes everything over and shares the GL objects.
    LineLoops(const LineLoops& other);
    /// Takes everything over and shares the GL objects; the last owner's are deleted.
    LineLoops& operator=(const LineLoops& other);
    /// Deletes the GL objects unless a copy still draws with them; needs the context current.
    ~LineLoops();

    /// Appends a closed loop; an empty list changes nothing. Vertices added one by one that stand
    /// last are continued by it and are not closed back any more.
    /// @param points corners in model coordinates, z 0; the last is joined to the first.
    void addLineLoop(std::vector<Math::Vector2<float>> points);
    /// Appends a closed loop. @param points corners in model coordinates.
    void addLineLoop(std::vector<Math::Vector3<float>> points);
    /// Appends a closed loop. @param points corners in model coordinates; w is dropped.
    void addLineLoop(std::vector<Math::Vector4<float>> points);

    /// Appends a vertex to a loop that is built vertex by vertex. It continues the vertex added
    /// last, or begins a new line behind a loop; what is drawn is closed back to the object's first
    /// vertex.
    /// @param position x and y in model coordinates; z is 0.
    void addVertex(Math::Vector2<float> position);
    /// Appends a vertex. @param position x, y and z in model coordinates.
    void addVertex(Math::Vector3<float> position);
    /// Appends a vertex. @param position x, y and z in model coordinates; w is dropped.
    void addVertex(Math::Vector4<float> position);

    /// Replaces everything by a closed loop: a rectangle with one corner in the origin.
    /// @param width, height in model coordinates.
    void setRect(unsigned int width, unsigned int height);

    /// Removes all loops and vertices.
    void clearVertex();

    /// Deletes the GL objects unless a copy still draws with them; the loops remain and the
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

    /// Draws with the current matrix. Without at least 2 vertices nothing happens. GL errors are
    /// printed on the standard output with the label "LineLoops". Blending stays as setAntiAlias()
    /// says; smoothing, stipple and primitive restart are off afterwards.
    /// @param scale the view scale, any number that changes with the zoom: a change by more than
    /// 0.001 makes stippled lines measure their lengths in pixels anew (vertex attribute 5).
    void render(double scale);

private:
    template <typename Vector>
    void appendLoop(const std::vector<Vector>& points);
    Detail::IndexedPoints closedPoints() const;
    void setData(double scale);

    std::shared_ptr<Detail::Mesh> mMesh;
    Detail::LineStyle mStyle;
    Detail::IndexedPoints mPoints;
    bool mDirty = false;
    bool mLoopClosed = false;
    double mLastScale = 0.0;
};

}  // namespace Orlek::OpenGL
