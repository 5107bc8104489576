// The limit of crossings, whichever way they are found.
#include "math/polygon2d/EdgeCrossings.h"

#include <gtest/gtest.h>

#include "math/PolygonRings.h"

namespace {

using namespace Orlek::Detail;

TEST(EdgeCrossings, RefuseMoreThanTheirLimit) {
    OrlekTest::Rules::RingMaker make(22);
    const auto self = make.scribble(40);
    const auto other = make.scribble(40);
    std::vector<Orlek::Math::Polygon2D::Cross> crosses;
    constexpr std::size_t never = 0;  // products of sizes up to which there are no boxes
    constexpr std::size_t always = 1000000;
    for (const std::size_t largestPlain : {always, never}) {
        const RingPair rings(self, other, largestPlain);
        ASSERT_TRUE(findCrossings(rings, crosses));
        const std::size_t count = crosses.size();
        EXPECT_GT(count, 50U);
        EXPECT_TRUE(findCrossings(rings, crosses, count));
        EXPECT_EQ(crosses.size(), count);
        EXPECT_FALSE(findCrossings(rings, crosses, count - 1));
        EXPECT_TRUE(crosses.empty());
    }
}

}  // namespace
