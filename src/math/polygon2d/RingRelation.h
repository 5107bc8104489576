// How two rings lie to each other, judged by their vertices alone.
#pragma once

#include "math/polygon2d/RingBoxes.h"

namespace Orlek::Detail {

enum class RingRelation { otherInside, thisInside, apart, crossing };

/// Two rings with what finds their edges; without boxes where the rings are so small that a plain
/// loop is faster.
struct RingPair {
    Ring self;
    Ring other;
    RingBoxes selfBoxes;
    RingBoxes otherBoxes;

    /// @param largestPlain the product of the numbers of edges up to which there are no boxes.
    RingPair(Ring selfRing, Ring otherRing, std::size_t largestPlain = 512);
};

/// All vertices of the other ring inside this one; else all of this one inside the other; else no
/// vertex of the other inside this one.
RingRelation relationOf(const RingPair& rings);

}  // namespace Orlek::Detail
