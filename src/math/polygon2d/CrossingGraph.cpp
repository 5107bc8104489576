// Inserting one crossing after the other moves each later one of the same edge to one of the
// halves: before the inserted one when its position is smaller, else behind it. In the end the
// crossings follow each other along the edge by position, equal ones by index, and each holds as
// its edge those neighbours that were there when it was inserted, which are its neighbours among
// the crossings of smaller index. So one sort of the crossings of an edge gives the order, and
// taking them out again, the last inserted first, gives the neighbours.
#include "math/polygon2d/CrossingGraph.h"

#include <numeric>

namespace Orlek::Detail {
namespace {

using Cross = Math::Polygon2D::Cross;
using PolygonNode = Math::Polygon2D::PolygonNode;

std::uint32_t narrow(std::size_t value) {
    return static_cast<std::uint32_t>(value);
}

/// What a crossing holds about one of the two rings.
struct Side {
    std::array<std::uint32_t, 2> Cross::*edge;
    double Cross::*position;
    std::size_t successor;  ///< Which way on from the crossing follows the ring.
};

constexpr Side sideA{&Cross::edgeA, &Cross::tA, 0};
constexpr Side sideB{&Cross::edgeB, &Cross::tB, 1};

class EdgeSplitter {
public:
    EdgeSplitter(std::vector<Cross>& crosses, std::vector<PolygonNode>& nodes, Side side)
        : mCrosses(crosses), mNodes(nodes), mSide(side) {}

    /// @param group the indices of all crossings of one edge, rising.
    void split(std::span<const std::uint32_t> group) {
        const auto [start, end] = mCrosses[group.front()].*mSide.edge;
        sortByPosition(group);
        PolygonNode* before = &mNodes[start];
        std::size_t way = 0;
        for (const std::uint32_t rank : mOrder) {
            before->successors[way] = mCrosses[group[rank]].node;
            before = &mNodes[mCrosses[group[rank]].node];
            way = mSide.successor;
        }
        before->successors[way] = end;
        if (group.size() > 1)
            recordEdges(group, start, end);
    }

private:
    void sortByPosition(std::span<const std::uint32_t> group) {
        mOrder.resize(group.size());
        std::iota(mOrder.begin(), mOrder.end(), 0U);
        if (group.size() < 2)
            return;
        std::sort(mOrder.begin(), mOrder.end(), [&](std::uint32_t a, std::uint32_t b) {
            const double positionA = mCrosses[group[a]].*mSide.position;
            const double positionB = mCrosses[group[b]].*mSide.position;
            return positionA < positionB || (positionA == positionB && a < b);
        });
    }

    /// Places are counted from 1 along the edge; 0 is its start and the one behind the last its
    /// end.
    void recordEdges(std::span<const std::uint32_t> group, std::uint32_t start, std::uint32_t end) {
        const std::size_t count = group.size();
        mPlaceOf.resize(count);
        mBefore.resize(count + 2);
        mAfter.resize(count + 2);
        mNodeAt.assign(count + 2, start);
        mNodeAt[count + 1] = end;
        for (std::size_t place = 1; place <= count; ++place) {
            const std::uint32_t rank = mOrder[place - 1];
            mPlaceOf[rank] = place;
            mNodeAt[place] = mCrosses[group[rank]].node;
            mBefore[place] = place - 1;
            mAfter[place] = place + 1;
        }
        for (std::size_t rank = count; rank-- > 0;) {
            const std::size_t before = mBefore[mPlaceOf[rank]];
            const std::size_t after = mAfter[mPlaceOf[rank]];
            mCrosses[group[rank]].*mSide.edge = {mNodeAt[before], mNodeAt[after]};
            mAfter[before] = after;
            mBefore[after] = before;
        }
    }

    std::vector<Cross>& mCrosses;
    std::vector<PolygonNode>& mNodes;
    Side mSide;
    std::vector<std::uint32_t> mOrder;
    std::vector<std::uint32_t> mNodeAt;
    std::vector<std::size_t> mPlaceOf;
    std::vector<std::size_t> mBefore;
    std::vector<std::size_t> mAfter;
};

/// Splits all edges of one ring, whose nodes start at a number.
void splitRing(std::size_t firstNode, std::size_t size, std::vector<Cross>& crosses,
               std::vector<PolygonNode>& nodes, Side side) {
    std::vector<std::size_t> ends(size + 1, 0);  // of the groups, first where they start
    for (const Cross& cross : crosses)
        ++ends[(cross.*side.edge)[0] - firstNode + 1];
    std::partial_sum(ends.begin(), ends.end(), ends.begin());
    std::vector<std::uint32_t> grouped(crosses.size());
    for (const Cross& cross : crosses)
        grouped[ends[(cross.*side.edge)[0] - firstNode]++] = cross.index;
    EdgeSplitter splitter(crosses, nodes, side);
    std::size_t first = 0;
    for (std::size_t edge = 0; edge < size; ++edge) {
        if (ends[edge] > first)
            splitter.split(std::span(grouped).subspan(first, ends[edge] - first));
        first = ends[edge];
    }
}

void layRing(Ring ring, std::size_t firstNode, std::vector<PolygonNode>& nodes) {
    for (std::size_t i = 0; i < ring.size(); ++i) {
        PolygonNode& node = nodes[firstNode + i];
        node.point = ring[i];
        node.successors.assign(1, narrow(firstNode + (i + 1) % ring.size()));
        node.visited = false;
    }
}

}  // namespace

void layNodes(Ring self, Ring other, const std::vector<Cross>& crosses,
              std::vector<PolygonNode>& nodes) {
    nodes.resize(self.size() + other.size() + crosses.size());
    layRing(self, 0, nodes);
    layRing(other, self.size(), nodes);
    for (const Cross& cross : crosses) {
        PolygonNode& node = nodes[cross.node];
        node.point = edgeLine(self, cross.edgeA[0]).at(cross.tA);
        node.successors.clear();
        node.visited = false;
    }
}

void splitEdges(std::size_t selfSize, std::size_t otherSize, std::vector<Cross>& crosses,
                std::vector<PolygonNode>& nodes) {
    for (const Cross& cross : crosses)
        nodes[cross.node].successors.assign(2, 0);
    splitRing(0, selfSize, crosses, nodes, sideA);
    splitRing(selfSize, otherSize, crosses, nodes, sideB);
}

}  // namespace Orlek::Detail
