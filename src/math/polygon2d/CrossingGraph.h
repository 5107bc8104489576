// The graph of two rings and their crossings.
#pragma once

#include <Orlek/Math/Polygon2D.h>

#include "math/polygon2d/Ring.h"

namespace Orlek::Detail {

/// Fills the nodes: the vertices of this ring, those of the other, each followed by the next of
/// its ring, then the crossings, followed by nothing yet.
void layNodes(Ring self, Ring other, const std::vector<Math::Polygon2D::Cross>& crosses,
              std::vector<Math::Polygon2D::PolygonNode>& nodes);

/// Splits the edges of both rings at all crossings. Nodes and crossings are then as if the
/// crossings had been inserted one after the other.
/// @param selfSize, otherSize the numbers of vertices of the rings.
void splitEdges(std::size_t selfSize, std::size_t otherSize,
                std::vector<Math::Polygon2D::Cross>& crosses,
                std::vector<Math::Polygon2D::PolygonNode>& nodes);

}  // namespace Orlek::Detail
