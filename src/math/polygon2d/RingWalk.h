// Walks the graph of two rings and gathers the result rings.
#pragma once

#include <Orlek/Math/Polygon2D.h>

namespace Orlek::Detail {

enum class Turn { left, right };

/// The first node from one on that has two ways on and is not visited, or -1.
int nextUnvisitedCross(const std::vector<Math::Polygon2D::PolygonNode>& nodes, int from);

/// The ring from a node on, up to the first node that was visited before. Marks its nodes visited.
/// @param turn which way to take where there are two.
std::vector<Math::Vector2<double>> walkRing(std::vector<Math::Polygon2D::PolygonNode>& nodes,
                                            int start, Turn turn);

}  // namespace Orlek::Detail
