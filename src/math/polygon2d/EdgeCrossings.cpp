// Small rings are compared edge by edge. In large ones the boxes of both are gone through together,
// from the top down; in the end only edges whose boxes meet are compared.
#include "math/polygon2d/EdgeCrossings.h"

#include <limits>
#include <numeric>

namespace Orlek::Detail {
namespace {

using Cross = Math::Polygon2D::Cross;

constexpr std::size_t mostNodes = std::numeric_limits<int>::max();

class CrossingList {
public:
    CrossingList(const RingPair& rings, std::vector<Cross>& found, std::size_t limit)
        : mRings(rings), mFound(found), mLimit(limit) {
        mFound.clear();
    }

    bool tooLong() const { return mTooLong; }

    /// Compares an edge of this ring with one of the other.
    void compare(std::size_t edgeA, const DirectedLine& lineA, std::size_t edgeB,
                 const DirectedLine& lineB) {
        const auto crossing = crossInfinite(lineA, lineB);
        if (!crossing || !crossing->withinBoth())
            return;
        mTooLong = mTooLong || mFound.size() == mLimit;
        if (mTooLong)
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
    std::size_t mLimit;
    bool mTooLong = false;
};

void compareAll(const RingPair& rings, CrossingList& list) {
    for (std::size_t i = 0; i < rings.self.size(); ++i) {
        const DirectedLine lineA = edgeLine(rings.self, i);
        for (std::size_t j = 0; j < rings.other.size(); ++j)
            list.compare(i, lineA, j, edgeLine(rings.other, j));
    }
}

/// Goes down the boxes of this ring and along with them those of the other that they meet.
class BoxSearch {
public:
    BoxSearch(const RingPair& rings, CrossingList& list)
        : mRings(rings), mSelf(rings.selfBoxes), mOther(rings.otherBoxes), mList(list) {}

    void run() {
        const std::size_t top = mSelf.topLevel();
        mNear.resize(top + 1);
        mNear[top].resize(mOther.count(otherLevel(top)));
        std::iota(mNear[top].begin(), mNear[top].end(), 0U);
        search(top, 0);
    }

private:
    /// The level of the other's boxes that are held against those of a level of this ring.
    std::size_t otherLevel(std::size_t level) const { return std::min(level, mOther.topLevel()); }

    void search(std::size_t level, std::size_t index) {
        if (level == 0)
            return compareEdges(index);
        const auto [first, end] = mSelf.children(level, index);
        for (std::size_t child = first; child < end && !mList.tooLong(); ++child) {
            gatherNear(level - 1, mSelf.box(level - 1, child));
            if (!mNear[level - 1].empty())
                search(level - 1, child);
        }
    }

    /// Which of the other's boxes one of this ring meets, out of those that its parent met.
    void gatherNear(std::size_t level, const Box& box) {
        const std::size_t fromLevel = otherLevel(level + 1);
        const std::size_t toLevel = otherLevel(level);
        mNear[level].clear();
        for (const std::uint32_t parent : mNear[level + 1]) {
            const Range same{parent, parent + std::size_t{1}};
            const auto [first, end] =
                toLevel < fromLevel ? mOther.children(fromLevel, parent) : same;
            for (std::size_t i = first; i < end; ++i)
                if (box.meets(mOther.box(toLevel, i)))
                    mNear[level].push_back(static_cast<std::uint32_t>(i));
        }
    }

    void compareEdges(std::size_t group) {
        const auto [first, end] = mSelf.edges(group);
        for (std::size_t edge = first; edge < end; ++edge) {
            const Box box = mSelf.edge(edge);
            const DirectedLine line = edgeLine(mRings.self, edge);
            for (const std::uint32_t near : mNear[0])
                if (box.meets(mOther.box(0, near)))
                    mOther.edgesOf(near, box, [&](std::size_t j, RingPoint from, RingPoint to) {
                        mList.compare(edge, line, j, directedLine(from, to));
                    });
        }
    }

    const RingPair& mRings;
    const RingBoxes& mSelf;
    const RingBoxes& mOther;
    CrossingList& mList;
    std::vector<std::vector<std::uint32_t>> mNear;  ///< For each level of this ring's boxes.
};

}  // namespace

bool findCrossings(const RingPair& rings, std::vector<Cross>& found, std::size_t limit) {
    CrossingList list(rings, found, limit);
    if (rings.self.size() + rings.other.size() > mostNodes - limit)
        return false;
    if (rings.selfBoxes.empty())
        compareAll(rings, list);
    else
        BoxSearch(rings, list).run();
    if (list.tooLong())
        found = {};
    return !list.tooLong();
}

}  // namespace Orlek::Detail
