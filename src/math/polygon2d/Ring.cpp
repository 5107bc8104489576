// Counts the edges above a point. Most edges lie wholly to its left or right; whole runs of them
// are passed over by their extent, which takes two comparisons a vertex.
#include "math/polygon2d/Ring.h"

#include <array>
#include <cmath>
#include <limits>

namespace Orlek::Detail {
namespace {

constexpr std::size_t runLength = 64;

/// An extent along x; comparisons pass over what is not a number, as rays do.
struct Extent {
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();

    void add(double value) {
        low = value < low ? value : low;
        high = high < value ? value : high;
    }
};

/// Several extents at once, since each comparison waits for the one before it.
Extent extentOf(Ring vertices) {
    std::array<Extent, 4> parts;
    std::size_t i = 0;
    for (; i + parts.size() <= vertices.size(); i += parts.size())
        for (std::size_t k = 0; k < parts.size(); ++k)
            parts[k].add(vertices[i + k].x);
    for (; i < vertices.size(); ++i)
        parts[0].add(vertices[i].x);
    for (const Extent& part : parts) {
        parts[0].low = std::min(parts[0].low, part.low);
        parts[0].high = std::max(parts[0].high, part.high);
    }
    return parts[0];
}

/// The x that edges within an extent may have to be counted for a point.
Extent countedAround(double x, const Extent& edges) {
    const double largest = std::max({std::abs(edges.low), std::abs(edges.high), std::abs(x)});
    const double margin =
        largest <= largestTame ? largest * roundingMargin : std::numeric_limits<double>::infinity();
    return {x - margin, x + margin};
}

/// Whether the ray counts an odd number of the edges between consecutive vertices.
bool countsOdd(const DirectedLine& ray, Ring vertices) {
    const Extent edges = extentOf(vertices);
    const Extent counted = countedAround(ray.origin.x, edges);
    if (edges.high < counted.low || counted.high < edges.low)
        return false;
    bool odd = false;
    for (std::size_t i = 0; i + 1 < vertices.size(); ++i) {
        const RingPoint from = vertices[i];
        const RingPoint to = vertices[i + 1];
        const bool left = from.x < counted.low && to.x < counted.low;
        const bool right = counted.high < from.x && counted.high < to.x;
        if (!left && !right && rayCrosses(ray, from, to))
            odd = !odd;
    }
    return odd;
}

}  // namespace

bool pointInsideRing(Ring ring, RingPoint point) {
    if (ring.empty())
        return false;
    const DirectedLine ray = rayUp(point);
    bool odd = rayCrosses(ray, ring.back(), ring.front());
    for (std::size_t first = 0; first + 1 < ring.size(); first += runLength)
        if (countsOdd(ray, ring.subspan(first, std::min(runLength + 1, ring.size() - first))))
            odd = !odd;
    return odd;
}

}  // namespace Orlek::Detail
