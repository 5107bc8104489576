// Strips of vertices with a colour for each vertex or one for all: the data of a line strip class.
#pragma once

#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>
#include <Orlek/OpenGL/IndexedPoints.h>
#include <Orlek/OpenGL/LineStyle.h>

#include <memory>
#include <vector>

namespace Orlek::Detail {

class Mesh;
struct LineRecipe;

/// What the line strip classes keep and do, told apart by the recipe that they pass.
struct StripSet {
    std::shared_ptr<Mesh> mesh;                ///< GL objects; null until the first draw.
    LineStyle style;                           ///< Colour, width, antialiasing, stipple.
    IndexedPoints points;                      ///< Vertices, and indices with restart values.
    std::vector<Math::Vector4<float>> colors;  ///< Of the vertices that were added with one.
    bool useColors = false;                    ///< Draw with colors if each vertex has one.
    bool dirty = false;                        ///< Changed since the last upload.
    bool measured = false;                     ///< Uploaded with lengths, for a stipple.

    /// Appends a strip of vectors of two, three or four components, and ends it.
    template <typename Vector>
    void addStrip(const LineRecipe& recipe, const std::vector<Vector>& strip);
    /// Appends a vertex to the current strip.
    void addVertex(const Math::Vector3<float>& position);
    /// Appends a vertex with its colour.
    void addVertex(const Math::Vector3<float>& position, const Math::Vector4<float>& color);
    /// Replaces everything by one closed strip around a rectangle.
    void setRect(const LineRecipe& recipe, unsigned width, unsigned height);
    /// Removes everything that was added.
    void clearVertices();
    /// Draws the first entries of the uploaded index list; negative or too many: all.
    void render(const LineRecipe& recipe, int count);
};

}  // namespace Orlek::Detail
