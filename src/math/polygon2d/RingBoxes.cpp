// How wide a box must be. Let u be 2^-53, M the largest coordinate, d the direction of this
// polygon's edge, L = |d.x| + |d.y|, and let d.x not be 0. crossLines computes s as a quotient N /
// D whose terms are off by at most 8 u M L and 4 u M L, so that the point at s on the other edge
// lies within 14 u M L / |d.x| of the line of this one, measured along y. t is computed from the x
// of that point, which is off by at most 11 u M. Where 0 <= s <= 1 and 0 <= t <= 1 are found, the
// point is on the other edge, its x is within 15 u M of the extent of this edge, and its y within
// 29 u M L / |d.x|. Where d.x is 0, the same holds with x and y exchanged. The bounds need products
// that neither overflow nor lose all their digits: edges with coordinates beyond 1e100, and edges
// shorter than 1e-200 but not without length, get a box without bounds.
#include "math/polygon2d/RingBoxes.h"

#include <cmath>
#include <limits>

namespace Orlek::Detail {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double shortestTame = 1e-200;
constexpr double smallestReach = 1e-100;
constexpr Box nowhere{infinity, -infinity, infinity, -infinity};
constexpr Box everywhere{-infinity, infinity, -infinity, infinity};

bool tame(RingPoint point) {
    return std::abs(point.x) <= largestTame && std::abs(point.y) <= largestTame;
}

Box widened(RingPoint from, RingPoint to, double marginX, double marginY) {
    return {std::min(from.x, to.x) - marginX, std::max(from.x, to.x) + marginX,
            std::min(from.y, to.y) - marginY, std::max(from.y, to.y) + marginY};
}

/// Most edges are content with a margin for the steepest of them, which needs no division.
Box boxAround(RingPoint from, RingPoint to, double margin) {
    constexpr double steep = 1023.0;
    const double dx = std::abs(to.x - from.x);
    const double dy = std::abs(to.y - from.y);
    if (!tame(from) || !tame(to))
        return everywhere;
    if (dx > shortestTame && dy <= steep * dx)
        return widened(from, to, margin, margin * (1.0 + steep));
    if (dx + dy < shortestTame && dx + dy > 0.0)
        return everywhere;
    return widened(from, to, margin, dx > 0.0 ? margin * (1.0 + dy / dx) : margin);
}

}  // namespace

void Box::include(const Box& other) {
    left = std::min(left, other.left);
    right = std::max(right, other.right);
    bottom = std::min(bottom, other.bottom);
    top = std::max(top, other.top);
}

double magnitude(Ring ring) {
    double largest = 0.0;
    for (const RingPoint point : ring)
        for (const double value : {std::abs(point.x), std::abs(point.y)})
            if (largest < value && value <= largestTame)
                largest = value;
    return largest;
}

RingBoxes::RingBoxes(Ring ring, double reach)
    : mRing(ring), mMargin(std::max(reach, smallestReach) * roundingMargin) {
    mBoxes.reserve(ring.size() / (fanOut - 1) + 16);
    for (std::size_t first = 0; first < ring.size(); first += fanOut) {
        Box all = nowhere;
        for (std::size_t i = first; i < std::min(first + fanOut, ring.size()); ++i)
            all.include(edge(i));
        mBoxes.push_back(all);
    }
    mLevels.push_back({0, mBoxes.size()});
    while (mLevels.back().count > 1)
        addLevel();
}

void RingBoxes::addLevel() {
    const auto [start, count] = mLevels.back();
    const std::size_t first = mBoxes.size();
    for (std::size_t i = 0; i < count; i += fanOut) {
        Box all = nowhere;
        for (std::size_t k = i; k < std::min(i + fanOut, count); ++k)
            all.include(mBoxes[start + k]);
        mBoxes.push_back(all);
    }
    mLevels.push_back({first, mBoxes.size() - first});
}

Box RingBoxes::edge(std::size_t index) const {
    return boxAround(mRing[index], edgeEnd(mRing, index), mMargin);
}

Box RingBoxes::rayBox(RingPoint from) const {
    if (!tame(from))
        return everywhere;
    return {from.x - mMargin, from.x + mMargin, from.y - mMargin, infinity};
}

void RingBoxes::groupsAt(const Box& box, std::vector<std::uint32_t>& found) const {
    found.clear();
    descend(topLevel(), 0, box, found);
}

void RingBoxes::descend(std::size_t level, std::size_t index, const Box& box,
                        std::vector<std::uint32_t>& found) const {
    if (!this->box(level, index).meets(box))
        return;
    if (level == 0) {
        found.push_back(static_cast<std::uint32_t>(index));
        return;
    }
    const auto [first, end] = children(level, index);
    for (std::size_t child = first; child < end; ++child)
        descend(level - 1, child, box, found);
}

}  // namespace Orlek::Detail
