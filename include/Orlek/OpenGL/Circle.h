// Filled discs.
#pragma once

#include <Orlek/Export.h>
#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace Orlek::Detail {
class Mesh;
}

namespace Orlek::OpenGL {

/// A retained drawing of a filled disc around the origin, solid or through OpenGL's polygon
/// stipple; place it with the matrix stack. (Math::Circle is the circle of plane geometry.)
///
/// The first render() creates the GL objects. Copies share GL objects until one of them changes.
/// render() and clear() need the thread whose GL context is current; construction, assignment and
/// destruction make no GL call (what they leave is deleted at the next upload of any drawable).
/// Once drawn, the object and its copies belong to that thread in all.
///
/// @code
/// Orlek::OpenGL::Circle disc;
/// disc.setCircle(12.0, 36);
/// disc.render();  // in every frame
/// @endcode
class ORLEK_EXPORT Circle {
public:
    /// An object without a disc: opaque white, solid.
    Circle();
    /// Takes everything over, the address of the pattern included, and shares the GL objects.
    Circle(const Circle& other);
    /// Takes everything over, the address of the pattern included, and shares the GL objects.
    Circle& operator=(const Circle& other);
    /// Makes no GL call; see clear().
    ~Circle();

    /// Appends a disc: its centre, then the rim clockwise from twelve o'clock (y up) back to its
    /// start. After a first render() it is not shown until clearVertex() or clear() has been
    /// called, so call the first before to replace a disc.
    /// @param radius in model coordinates. @param segments corners of the rim; 0: nothing happens;
    ///        more than 1,000,000: nothing but the line "Error <Circle> <Nix> 1281".
    void setCircle(double radius, unsigned segments);

    /// Removes all discs.
    void clearVertex();

    /// @param color red, green, blue, alpha, 0 to 1.
    void setColor(Math::Vector4<float> color);

    /// Sets the polygon stipple: 32 x 32 pixels that repeat from the lower left corner of the
    /// window; only where a bit is set the disc is drawn.
    /// @param pattern 128 bytes as glPolygonStipple takes them: 4 for each row, the lowest row
    /// first, the leftmost pixel in the highest bit of the first byte. They are the caller's and
    /// must live as long as the disc is drawn with them. Null: solid.
    void setPattern(unsigned char* pattern);

    /// Deletes the GL objects unless a copy still draws with them; the disc remains and the
    /// next render() creates the objects anew. To be called before the context goes away.
    void clear();

    /// Draws with the current matrix. Without a disc nothing happens. Blending by alpha is on and
    /// polygon stipple off afterwards. GL errors are printed on the standard output, after each
    /// step with the name of the GL function.
    void render();

private:
    void setData();

    std::shared_ptr<Detail::Mesh> mMesh;
    Math::Vector4<float> mColor{1.0F, 1.0F, 1.0F, 1.0F};
    std::vector<Math::Vector3<float>> mVertices;
    bool mDirty = false;
    unsigned char* mPattern = nullptr;
};

}  // namespace Orlek::OpenGL
