// Every step visits a node that was not visited, so a walk ends.
#include "math/polygon2d/RingWalk.h"

namespace Orlek::Detail {
namespace {

using PolygonNode = Math::Polygon2D::PolygonNode;

std::uint32_t nodeAfter(const std::vector<PolygonNode>& nodes, const PolygonNode& node, Turn turn) {
    if (node.successors.size() == 1)
        return node.successors[0];
    const Math::Vector2<double> c = node.point;
    const Math::Vector2<double> a = nodes[node.successors[0]].point;
    const Math::Vector2<double> b = nodes[node.successors[1]].point;
    const double otherTurn = (b.x - c.x) * (a.y - c.y) - (a.x - c.x) * (b.y - c.y);
    const bool takeOther = turn == Turn::right ? otherTurn > 0.0 : otherTurn < 0.0;
    return node.successors[takeOther ? 1 : 0];
}

}  // namespace

int nextUnvisitedCross(const std::vector<PolygonNode>& nodes, int from) {
    for (std::size_t i = static_cast<std::size_t>(from); i < nodes.size(); ++i)
        if (!nodes[i].visited && nodes[i].successors.size() > 1)
            return static_cast<int>(i);
    return -1;
}

std::vector<Math::Vector2<double>> walkRing(std::vector<PolygonNode>& nodes, int start, Turn turn) {
    std::vector<Math::Vector2<double>> ring;
    for (auto at = static_cast<std::uint32_t>(start); !nodes[at].visited;
         at = nodeAfter(nodes, nodes[at], turn)) {
        nodes[at].visited = true;
        ring.push_back(nodes[at].point);
    }
    return ring;
}

}  // namespace Orlek::Detail
