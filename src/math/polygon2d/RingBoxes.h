// A hierarchy of boxes over the edges of a ring. The edges stay in their order: eight consecutive
// ones share a box, eight consecutive boxes a larger one, up to one box over all. Neighbours along
// a ring are neighbours in the plane, so the boxes are small, and what a query finds comes in
// rising order without sorting. Whatever the ring, it takes less than a third of the ring's own
// memory, and 512 bytes.
//
// The boxes are wide enough that an edge which crossLines reports to cross, rounding included,
// always meets the other's box.
#pragma once

#include <bit>
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
    /// Whether the edge between two points may meet the box. Without branches, which would mostly
    /// be guessed wrong.
    bool mayMeet(RingPoint from, RingPoint to) const {
        const double west = std::min(from.x, to.x);
        const double east = std::max(from.x, to.x);
        const double south = std::min(from.y, to.y);
        const double north = std::max(from.y, to.y);
        const bool beside = (east < left) | (right < west);
        const bool apart = (north < bottom) | (top < south);
        return !(beside | apart);
    }
    /// Whether it is without bounds, as around edges of which nothing is known.
    bool isEverywhere() const { return left == -std::numeric_limits<double>::infinity(); }
    void include(const Box& other);
};

/// Consecutive indices.
struct Range {
    std::size_t first;
    std::size_t end;
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
    /// Levels are counted from the groups of eight edges, 0, up to the single box over all.
    std::size_t topLevel() const { return mLevels.size() - 1; }
    std::size_t count(std::size_t level) const { return mLevels[level].count; }
    const Box& box(std::size_t level, std::size_t index) const {
        return mBoxes[mLevels[level].first + index];
    }
    /// What a box of a level above 0 is made of, on the level below.
    Range children(std::size_t level, std::size_t index) const {
        return {index * fanOut, std::min((index + 1) * fanOut, mLevels[level - 1].count)};
    }
    Range edges(std::size_t group) const {
        return {group * fanOut, std::min((group + 1) * fanOut, mRing.size())};
    }
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
    const auto [first, end] = edges(group);
    const bool all = mBoxes[group].isEverywhere();
    unsigned meeting = 0;
    for (std::size_t i = 0; first + i < end; ++i) {
        const bool meets = all | box.mayMeet(mRing[first + i], edgeEnd(mRing, first + i));
        meeting |= static_cast<unsigned>(meets) << i;
    }
    for (; meeting != 0; meeting &= meeting - 1) {
        const std::size_t edge = first + static_cast<std::size_t>(std::countr_zero(meeting));
        visit(edge, mRing[edge], edgeEnd(mRing, edge));
    }
}

}  // namespace Orlek::Detail
