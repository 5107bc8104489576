// Outlines to triangles.
#pragma once

#include <Orlek/Export.h>
#include <Orlek/Math/Vector2.h>
#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>

#include <array>
#include <memory>
#include <vector>

namespace Orlek::OpenGL {

/// Cuts the inside of one outline into triangles that OpenGL can fill; draw them with Polygon.
///
/// The outline may be concave and may cross itself: a point counts as inside when the outline
/// winds around it at least once in either sense (the non-zero rule). There is one contour, so a
/// hole cannot be given apart. The work is done by the tessellator of GLU, without a GL context.
///
/// A running tessellation is kept in process-wide data: calls of tesselate() must not overlap, not
/// even on different objects.
///
/// @code
/// Orlek::OpenGL::Tesselator tesselator;
/// for (const auto& corner : corners) tesselator.addVertex(corner);
/// Orlek::OpenGL::Polygon polygon;
/// polygon.addTessPolygon(tesselator.tesselate());
/// @endcode
class ORLEK_EXPORT Tesselator {
public:
    /// One GL primitive of a filled outline.
    struct TessPrimitive {
        std::vector<Math::Vector3<float>> vertices;  ///< In the order in which GL draws them.
        unsigned type = 0;   ///< GL_TRIANGLES, GL_TRIANGLE_STRIP or GL_TRIANGLE_FAN (4, 5, 6).
        unsigned start = 0;  ///< Vertices in the primitives before this one.
    };

    /// A filled outline.
    struct TessPolygon {
        std::vector<TessPrimitive> primitives;  ///< In the order to draw them.
    };

    /// A tessellator without an outline.
    Tesselator();
    /// Copies the outline.
    Tesselator(const Tesselator& other);
    /// Copies the outline.
    Tesselator& operator=(const Tesselator& other);
    ~Tesselator();

    /// Appends a corner of the outline. @param p x and y; z is 0.
    void addVertex(Math::Vector2<float> p);
    /// Appends a corner of the outline. @param p x, y and z; the corners ought to lie in a plane.
    void addVertex(Math::Vector3<float> p);
    /// Appends a corner of the outline. @param p x, y and z; w is dropped.
    void addVertex(Math::Vector4<float> p);

    /// Starts a new outline.
    void clearVertex();

    /// Cuts the outline into triangles, which takes up to a minute for thousands of corners that
    /// cross each other; the outline stays. Where it crosses itself, vertices are
    /// added. The last corner is joined to the first.
    /// @return the primitives; none for fewer than 3 corners, for an outline without area, for one
    /// with a coordinate that is not finite, and for one of more than 1,000 corners that crosses
    /// itself so often, or has so many long edges side by side or on one another, that it would
    /// take minutes (3,000 corners at random, a comb of 130,000, for example). Along each axis
    /// corners may count as one that differ by less than the 2^-26th part of the greatest
    /// coordinate; the 2^-17th part where more than a thousand crossings lie hardly apart, or there
    /// are half a million. Otherwise what the tessellator complains about is left out.
    TessPolygon tesselate();

private:
    using Coordinates = std::array<double, 3>;

    static void beginCB(unsigned type);
    static void vertexCB(double* v);
    static void combineCB(double coords[3], double* vertexData[4], float weight[4],
                          double** outData);
    static void endCB();
    static void errorCB(unsigned error);

    static unsigned int mStartPos;
    static std::vector<std::unique_ptr<double[]>> mAllocatedVertices;
    static TessPolygon mTessPolygon;

    std::vector<Math::Vector3<float>> mVertices;
    std::vector<Coordinates> mCoords;
};

}  // namespace Orlek::OpenGL
