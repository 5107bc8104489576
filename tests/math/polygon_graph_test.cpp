// The graph of a polygon operation: nodes, crossings and their order as inserting one crossing
// after the other leaves them, whichever way they were found and whatever the size of the rings.
#include <gtest/gtest.h>

#include "math/PolygonRings.h"
#include "math/polygon2d/CrossingGraph.h"
#include "math/polygon2d/EdgeCrossings.h"

namespace {

using namespace OrlekTest::Rules;
using Orlek::Detail::RingPair;
using Orlek::Math::Polygon2D;

constexpr std::size_t never = 0;
constexpr std::size_t always = 1000000;

/// What crossings and nodes hold, as numbers to compare.
template <typename Crosses, typename Nodes>
std::vector<double> contents(const Crosses& crosses, const Nodes& nodes) {
    std::vector<double> all;
    for (const auto& c : crosses) {
        all.insert(all.end(), {double(c.index), double(c.edgeA[0]), double(c.edgeA[1]), c.tA,
                               double(c.edgeB[0]), double(c.edgeB[1]), c.tB, double(c.node),
                               c.point.x, c.point.y});
    }
    for (const auto& node : nodes) {
        all.insert(all.end(), {node.point.x, node.point.y, double(node.visited)});
        all.insert(all.end(), node.successors.begin(), node.successors.end());
    }
    return all;
}

/// @param largestPlain the product of sizes up to which there are no boxes.
std::vector<double> graphOf(const Ring& self, const Ring& other, std::size_t largestPlain) {
    std::vector<Polygon2D::Cross> crosses;
    std::vector<Polygon2D::PolygonNode> nodes;
    EXPECT_TRUE(Orlek::Detail::findCrossings(RingPair(self, other, largestPlain), crosses));
    Orlek::Detail::layNodes(self, other, crosses, nodes);
    Orlek::Detail::splitEdges(self.size(), other.size(), crosses, nodes);
    return contents(crosses, nodes);
}

TEST(CrossingGraph, IsThatOfInsertingOneByOne) {
    RingMaker make(21);
    std::size_t graphs = 0;
    for (int round = 0; round < 600; ++round) {
        const bool gridded = round % 2 == 0;
        const std::size_t size = make.count(3, round % 20 == 0 ? 90 : 14);
        Polygon judge{{}, {}, gridded ? make.onGrid(size, 5) : make.scribble(size)};
        const Ring other = gridded ? make.onGrid(size, 5) : make.scribble(size);
        judge.boolOperation(other, unite);
        if (judge.nodes.empty())
            continue;
        for (Node& node : judge.nodes)
            node.visited = false;
        const Ring oriented =
            winding<float>(other) == 1 ? other : Ring(other.rbegin(), other.rend());
        const auto expected = contents(judge.crosses, judge.nodes);
        EXPECT_EQ(graphOf(judge.vertexes, oriented, always), expected) << round;
        EXPECT_EQ(graphOf(judge.vertexes, oriented, never), expected) << round;
        ++graphs;
    }
    EXPECT_GT(graphs, 300U);
}

TEST(EdgeCrossings, RefuseMoreThanTheirLimit) {
    RingMaker make(22);
    const Ring self = make.scribble(40);
    const Ring other = make.scribble(40);
    std::vector<Polygon2D::Cross> crosses;
    for (const std::size_t largestPlain : {always, never}) {
        const RingPair rings(self, other, largestPlain);
        ASSERT_TRUE(Orlek::Detail::findCrossings(rings, crosses));
        const std::size_t count = crosses.size();
        EXPECT_GT(count, 50U);
        EXPECT_TRUE(Orlek::Detail::findCrossings(rings, crosses, count));
        EXPECT_EQ(crosses.size(), count);
        EXPECT_FALSE(Orlek::Detail::findCrossings(rings, crosses, count - 1));
        EXPECT_TRUE(crosses.empty());
    }
}

}  // namespace
