// A hierarchy of boxes over the edges of a ring. The edges stay in their order: eight consecutive
// ones share a box, eight consecutive boxes a larger one, up to one box over all. Neighbours along
// a ring are neighbours in the plane, so the boxes are small, and what a query finds comes in
// rising order without sorting. Whatever the ring, it takes an eighth of the ring's own memory.
//
// The boxes are wide enough that an edge which crossLines reports to cross, rounding included,
// always meets the other's box.
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

#include "math/polygon2d/Ring.h"

namespace Orlek::Detail {

struct Box {
    double left;
    double right;
    double bottom;
    double top;

    bool meets(const Box& other) const {
        return left <= other.right && other.left <= right && bottom <= other.top &&
               other.bottom <= top;
    }
    /// Whether the edge between two points may meet the box; true also for what is not a number.
    bool mayMeet(RingPoint from, RingPoint to) const {
        return !((from.x < left && to.x < left) || (right < from.x && right < to.x) ||
                 (from.y < bottom && to.y < bottom) || (top < from.y && top < to.y));
    }
    /// Whether it is without bounds, as around edges of which nothing is known.
    bool isEverywhere() const { return left == -std::numeric_limits<double>::infinity(); }
    void include(const Box& other);
};

/// The largest magnitude of the tame coordinates of a ring.
double magnitude(Ring ring);

class RingBoxes {
public:
    static constexpr std::size_t fanOut = 8;

    RingBoxes() = default;
    /// @param reach the magnitude of everything that the edges are tested against.
    RingBoxes(Ring ring, double reach);

    bool empty() const { return mBoxes.empty(); }
    /// Groups of eight edges, the last of fewer.
    std::size_t groupCount() const { return mLevels.empty() ? 0 : mLevels[0].count; }
    const Box& group(std::size_t index) const { return mBoxes[index]; }
    /// The box of a single edge.
    Box edge(std::size_t index) const;
    /// The box of the ray up from a tame point.
    Box rayBox(RingPoint from) const;
    /// Calls with index and ends of each edge of a group that may meet a box, in rising order.
    template <typename Visit>
    void edgesOf(std::size_t group, const Box& box, Visit visit) const;
    /// Lists the groups whose boxes meet a box, in rising order.
    void groupsAt(const Box& box, std::vector<std::uint32_t>& found) const;

private:
    struct Level {
        std::size_t first;  ///< Where its boxes start.
        std::size_t count;
    };

    void addLevel();
    void descend(std::size_t level, std::size_t index, const Box& box,
                 std::vector<std::uint32_t>& found) const;

    Ring mRing;
    double mMargin = 0.0;
    std::vector<Box> mBoxes;
    std::vector<Level> mLevels;  ///< From the groups up.
};

template <typename Visit>
void RingBoxes::edgesOf(std::size_t group, const Box& box, Visit visit) const {
    const bool all = mBoxes[group].isEverywhere();
    const std::size_t first = group * fanOut;
    const std::size_t end = std::min(first + fanOut, mRing.size());
    RingPoint from = mRing[first];
    for (std::size_t i = first; i < end; ++i) {
        const RingPoint to = edgeEnd(mRing, i);
        if (all || box.mayMeet(from, to))
            visit(i, from, to);
        from = to;
    }
}

}  // namespace Orlek::Detail
