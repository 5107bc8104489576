// A ring of vertices, its edges, which way round it goes and whether a point lies inside.
#pragma once

#include <Orlek/Math/Vector2.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "math/Crossing.h"

namespace Orlek::Detail {

using RingPoint = Math::Vector2<double>;
using Ring = std::span<const RingPoint>;

/// The end of the edge that starts at a vertex; the last edge ends at the first vertex.
template <typename Point>
Point edgeEnd(std::span<const Point> ring, std::size_t edge) {
    return ring[edge + 1 == ring.size() ? 0 : edge + 1];
}

inline DirectedLine edgeLine(Ring ring, std::size_t edge) {
    return directedLine(ring[edge], edgeEnd(ring, edge));
}

/// The orientation of a ring, 1 for clockwise and 0 for counter-clockwise, from the areas under
/// its edges, summed in the type of the points that the function makes of the vertices.
template <typename Point, typename Convert>
int windingDirection(std::span<const Point> ring, Convert convert) {
    decltype(convert(ring[0]).x) sum = 0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const auto from = convert(ring[i]);
        const auto to = convert(edgeEnd(ring, i));
        sum += (to.x - from.x) * (to.y + from.y);
    }
    return sum < 0 ? 0 : 1;
}

/// The way up from a point, for 1e15 units, whose crossings with a ring tell what is inside.
inline DirectedLine rayUp(RingPoint point) {
    constexpr double length = 1e15;
    return directedLine(point, {point.x, point.y + length});
}

/// Whether the ray counts the edge.
inline bool rayCrosses(const DirectedLine& ray, RingPoint from, RingPoint to) {
    const auto crossing = crossInfinite(ray, directedLine(from, to));
    return crossing && crossing->withinBoth();
}

/// Beyond this magnitude, or where it is not a number, a coordinate follows no bound of rounding
/// errors, because products of it overflow.
inline constexpr double largestTame = 1e100;

/// crossLines answers in floating point. Whatever it reports lies no farther outside the extents of
/// the edges than this part of the largest coordinate involved, along the axis in which the first
/// edge extends. RingBoxes.cpp proves it, with a fourth of this, and has the other axis.
inline constexpr double roundingMargin = 0x1p-46;

/// Whether a point lies inside: an odd number of edges is above it.
bool pointInsideRing(Ring ring, RingPoint point);

}  // namespace Orlek::Detail
