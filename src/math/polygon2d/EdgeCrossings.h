// All crossings of the edges of two rings, in the order of a plain double loop.
#pragma once

#include <Orlek/Math/Polygon2D.h>

#include "math/polygon2d/RingRelation.h"

namespace Orlek::Detail {

/// More crossings than this are refused: each takes about 140 bytes of the graph.
inline constexpr std::size_t mostCrossings = std::size_t{1} << 23U;

/// Fills the list with all crossings, by edges of this ring and then of the other. The nodes are
/// numbered after the vertices of both.
/// @return false when there are too many; the list is then empty.
bool findCrossings(const RingPair& rings, std::vector<Math::Polygon2D::Cross>& found,
                   std::size_t limit = mostCrossings);

}  // namespace Orlek::Detail
