#pragma once

/// @file
/// Closed rings in the plane: intersection, union and difference, containment, orientation.
///
/// With x to the right and y up, clockwise is the usual sense. docs/polygons.md shows what the
/// operations give, also where rings touch or overlap along an edge. Everything here is a plain
/// value: different objects may be used from different threads at the same time, one object only
/// from one.

#include <Orlek/Export.h>
#include <Orlek/Math/Vector2.h>

#include <array>
#include <cstdint>
#include <list>
#include <vector>

namespace Orlek::Math {

/// A simple polygon: a closed ring of vertices in double precision.
///
/// The edge from the last vertex back to the first is implied. A copy copies everything. Vertices
/// of any value are taken: not finite, huge, denormal, repeated. They can make a result useless,
/// never the call unsafe.
/// @code
/// Orlek::Math::Polygon2D sector;
/// for (const Orlek::Math::Vector2<double> corner : {...}) sector.addVertex(corner);
/// for (const auto& part : sector.boolOperation(view, Orlek::Math::Polygon2D::Intersection))
///     outline.addLineLoop(part.vertexes());
/// @endcode
class ORLEK_EXPORT Polygon2D {
public:
    /// What boolOperation forms.
    enum BoolOperation {
        Intersection = 0,  ///< What lies in both polygons.
        Union = 1,         ///< What lies in either.
        Difference = 2     ///< What lies in this polygon and not in the other.
    };

    /// A node of the graph that boolOperation builds: a vertex or a crossing.
    struct PolygonNode {
        Vector2<double> point;  ///< Where it lies.
        /// Indices of the nodes that follow: one for a vertex; for a crossing the way along this
        /// polygon, then the way along the other.
        std::vector<std::uint32_t> successors;
        bool visited = false;  ///< Whether a result ring has passed here.
    };

    /// A crossing of an edge of this polygon with an edge of the other.
    struct Cross {
        std::uint32_t index;                 ///< Its position in the list of crossings.
        std::array<std::uint32_t, 2> edgeA;  ///< Nodes at the ends of this polygon's edge.
        double tA;  ///< Position on the whole edge of this polygon, 0 at its start, 1 at its end.
        std::array<std::uint32_t, 2> edgeB;  ///< Nodes at the ends of the other polygon's edge.
        double tB;                           ///< Position on the whole edge of the other polygon.
        std::uint32_t node;                  ///< The node of the crossing itself.
        Vector2<float> point;                ///< Where it lies, rounded to single precision.
    };

    /// Appends a vertex.
    /// @param vertex the vertex; it is widened to double.
    void addVertex(Vector2<float> vertex);
    /// Appends a vertex.
    /// @param vertex the vertex.
    void addVertex(Vector2<double> vertex);
    /// Replaces the ring.
    /// @param vertexes the new ring, copied and widened to double.
    void setVertexes(std::vector<Vector2<float>>& vertexes);
    /// Replaces the ring.
    /// @param vertexes the new ring, copied.
    void setVertexes(std::vector<Vector2<double>>& vertexes);
    /// @return the ring, each vertex rounded to single precision.
    std::vector<Vector2<float>> vertexes() const;
    /// @return a copy of the ring.
    std::vector<Vector2<double>> vertexesD() const;
    /// Empties the ring.
    void clear();
    /// Reverses the order of the vertices.
    void invert();

    /// Tells whether a point lies inside, by the number of edges above it.
    ///
    /// A ray goes up from the point for 1e15 units; the point is inside when it crosses an odd
    /// number of edges. A vertex exactly above the point counts once for each of its two edges,
    /// an upright edge never counts. The edges are tested as crossLines tests them. Takes time in
    /// proportion to the number of vertices.
    /// @param point the point.
    /// @return true inside; false for an empty ring. On the ring itself either.
    bool pointInside(Vector2<double> point) const;
    /// Tells whether a point lies inside, by the number of edges above it.
    /// @param point the point; it is widened to double.
    /// @return true inside; false for an empty ring. On the ring itself either.
    bool pointInside(Vector2<float> point) const;

    /// Forms the intersection, the union or the difference with another polygon.
    ///
    /// This polygon is made clockwise; it keeps that order of its vertices, and the graph of the
    /// operation, until the next one; neither when a ring is empty. Of two rings, one empty, the
    /// union gives the other and the difference this one, unless it is empty itself. Rings that
    /// contain each other are recognised by their vertices: when all of one lie inside the other,
    /// the intersection is the inner ring, the union the outer, and the difference is empty, even
    /// where a hole would be left. When no vertex of @p other lies inside this polygon the two
    /// count as apart, even where they cross like a plus: the difference is this polygon,
    /// intersection and union are empty. Otherwise the results are the rings along the edges of
    /// both that turn most to the right (intersection, difference) or to the left (union) at each
    /// crossing, in the order of this polygon's edges, and on one edge in that of the other's, each
    /// from its first crossing on; holes are rings of the opposite orientation. Edges that overlap
    /// along a line do not cross, and a crossing at a vertex counts for each pair of edges that
    /// meets there: with such rings the result can differ from that of set theory.
    ///
    /// Takes time that grows little faster than the number of vertices and crossings for outlines,
    /// and in proportion to the product of the numbers of edges at worst, with rings that fill the
    /// plane with edges. Memory is in proportion to vertices and crossings.
    /// @param other the other polygon.
    /// @param operation what to form; no other values than those of BoolOperation.
    /// @return the rings. Empty, with a line on the standard output, when the rings cross more than
    ///         8,388,608 times (about 1.2 GB of graph).
    std::list<Polygon2D> boolOperation(Polygon2D other, BoolOperation operation);

private:
    void insertNode(Cross& cross);
    int getNextUnvisitedCrossNode();

    std::vector<PolygonNode> mNodes;
    std::vector<Cross> mCrosses;
    std::vector<Vector2<double>> mVertexes;
};

/// Tells which way round a ring goes; all sums are formed in single precision.
/// @param ring the vertices; the closing edge is implied.
/// @return 1 for clockwise, 0 for counter-clockwise; 1 also for a ring without area.
ORLEK_EXPORT int getWindingDirection(std::vector<Vector2<float>> ring);

/// Tells which way round a ring goes.
/// @param ring the vertices; the closing edge is implied.
/// @return 1 for clockwise, 0 for counter-clockwise; 1 also for a ring without area.
ORLEK_EXPORT int getWindingDirection(std::vector<Vector2<double>> ring);

/// Tells whether a point lies to the right of every edge of a ring, or on it.
///
/// For a convex clockwise ring this is whether the point lies inside; Polygon2D::pointInside serves
/// other rings.
/// @param point the point; NaN counts as to the right.
/// @param ring the vertices; the closing edge is implied. One that is repeated makes an edge that
///        counts as one to the east.
/// @return true when it does, also for an empty ring.
ORLEK_EXPORT bool pointInPolygon(Vector2<double> point, std::vector<Vector2<double>> ring);

}  // namespace Orlek::Math
