// Asks for the vertices in an order that jumps around the ring, so that one inside and one outside
// are soon found where there are both.
#include "math/polygon2d/RingRelation.h"

#include <numeric>

namespace Orlek::Detail {
namespace {

/// A step with which the multiples reach every index, near the golden section of the count.
std::size_t strideFor(std::size_t count) {
    std::size_t stride = count * 5 / 8 + 1;
    while (std::gcd(stride, count) != 1)
        ++stride;
    return stride;
}

class InsideTest {
public:
    InsideTest(Ring ring, const RingBoxes& boxes) : mRing(ring), mBoxes(boxes) {}

    bool operator()(RingPoint point) {
        if (mBoxes.empty())
            return pointInsideRing(mRing, point);
        const DirectedLine ray = rayUp(point);
        const Box rayBox = mBoxes.rayBox(point);
        mBoxes.groupsAt(rayBox, mGroups);
        bool odd = false;
        for (const std::uint32_t group : mGroups)
            mBoxes.edgesOf(group, rayBox, [&](std::size_t, RingPoint from, RingPoint to) {
                odd = odd != rayCrosses(ray, from, to);
            });
        return odd;
    }

private:
    Ring mRing;
    const RingBoxes& mBoxes;
    std::vector<std::uint32_t> mGroups;
};

struct Found {
    bool inside = false;
    bool outside = false;
};

/// Whether there are vertices inside and outside, looking no further once there are both.
Found whereAre(Ring vertices, InsideTest isInside) {
    Found found;
    const std::size_t stride = strideFor(vertices.size());
    std::size_t at = 0;
    for (std::size_t i = 0; i < vertices.size() && !(found.inside && found.outside); ++i) {
        (isInside(vertices[at]) ? found.inside : found.outside) = true;
        at = (at + stride) % vertices.size();
    }
    return found;
}

/// Whether all are inside; stops at the first that is not.
bool allInside(Ring vertices, InsideTest isInside) {
    const std::size_t stride = strideFor(vertices.size());
    std::size_t at = 0;
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        if (!isInside(vertices[at]))
            return false;
        at = (at + stride) % vertices.size();
    }
    return true;
}

}  // namespace

RingPair::RingPair(Ring selfRing, Ring otherRing, std::size_t largestPlain)
    : self(selfRing), other(otherRing) {
    if (self.size() * other.size() <= largestPlain)
        return;
    const double reach = std::max(magnitude(self), magnitude(other));
    selfBoxes = RingBoxes(self, reach);
    otherBoxes = RingBoxes(other, reach);
}

RingRelation relationOf(const RingPair& rings) {
    const Found others = whereAre(rings.other, {rings.self, rings.selfBoxes});
    if (!others.outside)
        return RingRelation::otherInside;
    if (allInside(rings.self, {rings.other, rings.otherBoxes}))
        return RingRelation::thisInside;
    return others.inside ? RingRelation::crossing : RingRelation::apart;
}

}  // namespace Orlek::Detail
