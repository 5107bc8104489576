// Open polylines.
#pragma once

#include <Orlek/Export.h>
#include <Orlek/Math/Vector2.h>
#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>
#include <Orlek/OpenGL/StripSet.h>

#include <vector>

namespace Orlek::OpenGL {

/// A retained drawing of any number of open polylines in one draw call, in one colour or with a
/// colour for each vertex.
///
/// Filled once, drawn every frame: the first render() creates the GL objects, and vertices are
/// uploaded again only after they changed. Copies share GL objects until one of them changes.
/// render(), clear(), assignment and destruction belong to the thread whose GL context is current;
/// what is left undeleted then is deleted at the next upload of any drawable.
///
/// @code
/// Orlek::OpenGL::LineStrips track;
/// track.addLineStrip(std::vector<Orlek::Math::Vector2<float>>{{10, 10}, {60, 90}, {120, 40}});
/// track.addLineStrip(std::vector<Orlek::Math::Vector2<float>>{{200, 10}, {260, 80}});
/// track.setLineWidth(3);
/// track.setStipple(0x0FFF);
/// track.render(-1);  // in every frame
/// @endcode
class ORLEK_EXPORT LineStrips {
public:
    /// Separates the strips in the index list. Vertex indices must stay below it.
    static constexpr int RESTART_INDEX = 0x12FFFFFF;

    /// An object without vertices: opaque white, 1 pixel wide, antialiased, solid, one colour.
    LineStrips();
    /// Takes everything over and shares the GL objects.
    LineStrips(const LineStrips& other);
    /// Takes everything over and shares the GL objects; the last owner's are deleted.
    LineStrips& operator=(const LineStrips& other);
    /// Deletes the GL objects unless a copy still draws with them; needs the context current.
    ~LineStrips();

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
    /// @param width in pixels, above 0; the driver limits it.
    void setLineWidth(float width);
    /// @param on smooth edges, and blending. Off: hard edges, and blending is switched off.
    void setAntiAlias(bool on);
    /// @param pattern one bit a pixel along each strip, bit 0 first; 0: solid.
    void setStipple(unsigned short pattern);

    /// Draws with the current matrix. Discards pending GL errors first; with fewer than 2 index
    /// entries that is all. The lengths in pixels of stippled strips (vertex attribute 5) are
    /// measured at an upload only, the first stippled draw among them, under its matrix and
    /// viewport. GL errors are printed on the standard output with the label "LineStrips". Blending
    /// stays as setAntiAlias() says; smoothing, stipple and primitive restart are off afterwards.
    /// @param count entries of the uploaded index list to draw: a strip of k vertices has k + 3,
    /// its ends doubled and a restart value behind it, and 4 <= count <= k + 2 shows the first
    /// count - 3 segments of the first strip. 0 draws nothing; negative or too many: all.
    void render(int count);

private:
    Detail::StripSet mStrips;
};

}  // namespace Orlek::OpenGL
