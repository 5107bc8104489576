// Filled outlines.
#pragma once

#include <Orlek/Export.h>
#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>
#include <Orlek/OpenGL/StippleMask.h>
#include <Orlek/OpenGL/Tesselator.h>

#include <memory>
#include <vector>

namespace Orlek::Detail {
class Mesh;
}

namespace Orlek::OpenGL {

/// A retained drawing of filled outlines in one colour, solid or through a screen stipple.
///
/// Filled once, drawn every frame: the first render() creates the GL objects, and vertices are
/// uploaded again only after they changed. Copies share GL objects until one of them changes.
/// render() and clear() need the thread whose GL context is current; construction, assignment and
/// destruction make no GL call (what they leave is deleted at the next upload of any drawable).
/// Once drawn, the object and its copies belong to that thread in all.
/// See Tesselator for an example.
class ORLEK_EXPORT Polygon {
public:
    /// An object without triangles: opaque white, solid.
    Polygon();
    /// Takes everything over and shares the GL objects.
    Polygon(const Polygon& other);
    /// Takes everything over and shares the GL objects.
    Polygon& operator=(const Polygon& other);
    /// Makes no GL call; see clear().
    ~Polygon();

    /// Appends a filled outline; any number of them are drawn together.
    /// @param polygon what Tesselator::tesselate() gave, in model coordinates.
    void addTessPolygon(Tesselator::TessPolygon polygon);

    /// Removes all filled outlines.
    void clearVertex();

    /// Deletes the GL objects unless a copy still draws with them; the outlines remain and the
    /// next render() creates the objects anew. To be called before the context goes away.
    void clear();

    /// @param color red, green, blue, alpha, 0 to 1.
    void setColor(Math::Vector4<float> color);

    /// Sets the screen stipple: 32 x 32 pixels that repeat from the lower left corner of the
    /// window; only where a bit is set the fill is drawn.
    /// @param pattern 128 bytes, read and not kept: 4 for each row, the lowest row first, the
    /// leftmost pixel in the lowest bit of the first byte (polygon stipple of OpenGL itself, as
    /// Circle uses it, has it in the highest). Null: solid.
    void setPattern(unsigned char* pattern);

    /// Draws with the current matrix, one GL call for each primitive. Without outlines nothing
    /// happens. Blending by alpha is on afterwards. GL errors are printed on the standard output
    /// with the label "Polygon".
    void render();

private:
    struct DrawBatch {
        unsigned type;
        unsigned first;
        unsigned count;
    };

    void setData();

    std::vector<Math::Vector3<float>> mVertices;
    std::vector<DrawBatch> mBatches;
    std::shared_ptr<Detail::Mesh> mMesh;
    Math::Vector4<float> mColor{1.0F, 1.0F, 1.0F, 1.0F};
    bool mDirty = false;
    Detail::StippleMask mStipple;
};

}  // namespace Orlek::OpenGL
