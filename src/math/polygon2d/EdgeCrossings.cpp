// Small rings are compared edge by edge. In large ones each group of edges of this ring looks for
// the groups of the other that its box meets; only their edges are compared with its own.
#include "math/polygon2d/EdgeCrossings.h"

namespace Orlek::Detail {
namespace {

using Cross = Math::Polygon2D::Cross;

constexpr std::size_t mostNodes = std::numeric_limits<int>::max();

class CrossingList {
public:
    CrossingList(const RingPair& rings, std::vector<Cross>& found) : mRings(rings), mFound(found) {
        mFound.clear();
    }

    bool tooLong() const { return mFound.size() > mostCrossings; }

    /// Compares an edge of this ring with one of the other.
    void compare(std::size_t edgeA, const DirectedLine& lineA, std::size_t edgeB,
                 const DirectedLine& lineB) {
        const auto crossing = crossInfinite(lineA, lineB);
        if (!crossing || !crossing->withinBoth())
            return;
        const std::size_t otherFirst = mRings.self.size();
        const std::size_t crossFirst = otherFirst + mRings.other.size();
        mFound.push_back(
            {index(mFound.size()),
             {index(edgeA), index((edgeA + 1) % mRings.self.size())},
             crossing->t,
             {index(otherFirst + edgeB), index(otherFirst + (edgeB + 1) % mRings.other.size())},
             crossing->s,
             index(crossFirst + mFound.size()),
             crossing->point});
    }

private:
    static std::uint32_t index(std::size_t value) { return static_cast<std::uint32_t>(value); }

    const RingPair& mRings;
    std::vector<Cross>& mFound;
};

void compareAll(const RingPair& rings, CrossingList& list) {
    for (std::size_t i = 0; i < rings.self.size(); ++i) {
        const DirectedLine lineA = edgeLine(rings.self, i);
        for (std::size_t j = 0; j < rings.other.size(); ++j)
            list.compare(i, lineA, j, edgeLine(rings.other, j));
    }
}

/// Compares an edge of this ring with those groups of the other that its box meets.
void compareNear(const RingPair& rings, std::size_t edge, const std::vector<std::uint32_t>& groups,
                 CrossingList& list) {
    const Box box = rings.selfBoxes.edge(edge);
    const DirectedLine lineA = edgeLine(rings.self, edge);
    for (const std::uint32_t group : groups)
        if (box.meets(rings.otherBoxes.group(group)))
            rings.otherBoxes.edgesOf(group, box, [&](std::size_t j, RingPoint from, RingPoint to) {
                list.compare(edge, lineA, j, directedLine(from, to));
            });
}

void compareNear(const RingPair& rings, CrossingList& list) {
    std::vector<std::uint32_t> near;
    for (std::size_t group = 0; group < rings.selfBoxes.groupCount() && !list.tooLong(); ++group) {
        rings.otherBoxes.groupsAt(rings.selfBoxes.group(group), near);
        if (near.empty())
            continue;
        const std::size_t first = group * RingBoxes::fanOut;
        const std::size_t end = std::min(first + RingBoxes::fanOut, rings.self.size());
        for (std::size_t edge = first; edge < end; ++edge)
            compareNear(rings, edge, near, list);
    }
}

}  // namespace

bool findCrossings(const RingPair& rings, std::vector<Cross>& found) {
    CrossingList list(rings, found);
    if (rings.self.size() + rings.other.size() > mostNodes - mostCrossings)
        return false;
    if (rings.selfBoxes.empty())
        compareAll(rings, list);
    else
        compareNear(rings, list);
    if (list.tooLong())
        found = {};
    return !list.tooLong();
}

}  // namespace Orlek::Detail
