// Open polylines in the line width of the context.
#pragma once

#include <Orlek/Export.h>
#include <Orlek/Math/Vector2.h>
#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>
#include <Orlek/OpenGL/StripSet.h>

#include <vector>

namespace Orlek::OpenGL {

/// LineStrips without its line state: plain strips in whatever line width the GL context has,
/// solid.
///
/// Data, colours, copies and threads are as in LineStrips. Nothing is measured, and the indices are
/// uploaded as they are, so that many long strips cost less to upload.
///
/// @code
/// Orlek::OpenGL::LineStripsSimple trace;
/// trace.setUseMultiColor(true);
/// trace.addVertex(Orlek::Math::Vector2<float>(10, 10), {0, 1, 0, 1});
/// trace.addVertex(Orlek::Math::Vector2<float>(90, 40), {1, 0, 0, 1});
/// trace.render(-1);  // in every frame
/// @endcode
class ORLEK_EXPORT LineStripsSimple {
public:
    /// Separates the strips in the index list. Vertex indices must stay below it.
    static constexpr int RESTART_INDEX = 0x12FFFFFF;

    /// An object without vertices: opaque white, 1 pixel wide, antialiased, solid, one colour.
    LineStripsSimple();
    /// Takes everything over and shares the GL objects.
    LineStripsSimple(const LineStripsSimple& other);
    /// Takes everything over and shares the GL objects; the last owner's are deleted.
    LineStripsSimple& operator=(const LineStripsSimple& other);
    /// Deletes the GL objects unless a copy still draws with them; needs the context current.
    ~LineStripsSimple();

    /// Appends a strip and ends it. Vertices that were added one by one and stand last are
    /// continued by it. An empty list only ends what stands last.
    /// @param points in model coordinates, z 0; they get no colours of their own.
    void addLineStrip(std::vector<Math::Vector2<float>> points);
    /// Appends a strip. @param points in model coordinates.
    void addLineStrip(std::vector<Math::Vector3<float>> points);
    /// Appends a strip. @param points in model coordinates; w is dropped.
    void addLineStrip(std::vector<Math::Vector4<float>> points);

    /// Appends a vertex to the strip that stands last, or begins one behind an addLineStrip().
    /// @param position x and y in model coordinates; z is 0.
    void addVertex(Math::Vector2<float> position);
    /// Appends a vertex. @param position x, y and z in model coordinates.
    void addVertex(Math::Vector3<float> position);
    /// Appends a vertex. @param position x, y and z in model coordinates; w is dropped.
    void addVertex(Math::Vector4<float> position);
    /// Appends a vertex with its colour.
    /// @param position x and y in model coordinates; z is 0.
    /// @param color red, green, blue, alpha, 0 to 1.
    void addVertex(Math::Vector2<float> position, Math::Vector4<float> color);
    /// Appends a vertex. @param position x, y, z. @param color red, green, blue, alpha, 0 to 1.
    void addVertex(Math::Vector3<float> position, Math::Vector4<float> color);
    /// Appends a vertex. @param position w is dropped. @param color red, green, blue, alpha, 0
    /// to 1.
    void addVertex(Math::Vector4<float> position, Math::Vector4<float> color);

    /// @param on draw each vertex in its own colour. Takes effect when every vertex was added with
    /// one; otherwise, and by default, all is drawn in the colour of setColor().
    void setUseMultiColor(bool on);

    /// Replaces everything, colours included, by one closed strip around a rectangle with one
    /// corner in the origin. @param width, height in model coordinates.
    void setRect(unsigned int width, unsigned int height);

    /// Removes all vertices, colours and strips.
    void clearVertex();

    /// Deletes the GL objects unless a copy still draws with them; the strips remain and the
    /// next render() creates the objects anew. To be called before the context goes away.
    void clear();

    /// @param color red, green, blue, alpha, 0 to 1. Alpha takes effect with antialiasing.
    void setColor(Math::Vector4<float> color);
    /// Kept, but without effect: the strips are drawn in the context's line width.
    /// @param width in pixels, above 0.
    void setLineWidth(float width);
    /// @param on smooth edges, and blending. Off: hard edges, and blending is switched off.
    void setAntiAlias(bool on);
    /// Kept, but without effect: the strips are drawn solid.
    /// @param pattern one bit a pixel; 0: solid.
    void setStipple(unsigned short pattern);

    /// Draws with the current matrix. Discards pending GL errors first; with fewer than 2 index
    /// entries that is all. GL errors are printed on the standard output with the label
    /// "LineStripsSimple". Blending stays as setAntiAlias() says; smoothing and primitive restart
    /// are off afterwards, line width and stipple are neither set nor reset.
    /// @param count entries of the index list to draw: a strip of k vertices has k + 1, the last of
    /// them the restart value, and 2 <= count <= k shows the first count - 1 segments of the first
    /// strip. 0 draws nothing; negative or too many: all.
    void render(int count);

private:
    Detail::StripSet mStrips;
};

}  // namespace Orlek::OpenGL
