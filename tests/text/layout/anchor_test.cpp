#include "text/layout/Anchor.h"

#include <gtest/gtest.h>

#include "text/layout/CharacterSlots.h"

namespace Orlek::Detail {
namespace {

TEST(Anchor, GivesNineOffsetsAndNoneForAnyOtherValue) {
    constexpr float width = 35.0F;
    constexpr float height = 19.0F;
    struct {
        int alignment;
        float x;
        float y;
    } const cases[] = {{0, 0.0F, -19.0F},   {1, 0.0F, -9.5F},   {2, 0.0F, 0.0F},
                       {3, -17.5F, -19.0F}, {4, -17.5F, -9.5F}, {5, -17.5F, 0.0F},
                       {6, -35.0F, -19.0F}, {7, -35.0F, -9.5F}, {8, -35.0F, 0.0F},
                       {9, 0.0F, 0.0F},     {-1, 0.0F, 0.0F}};
    for (const auto& expected : cases) {
        const Math::Vector2<float> offset = anchorOffset(expected.alignment, width, height);
        EXPECT_EQ(offset.x, expected.x) << expected.alignment;
        EXPECT_EQ(offset.y, expected.y) << expected.alignment;
    }
}

TEST(CharacterSlots, TakesBytesAsUnsignedAndControlBytesAsSpace) {
    EXPECT_EQ(slotOf('\0'), 0U);
    EXPECT_EQ(slotOf('\x1f'), 0U);
    EXPECT_EQ(slotOf(' '), 0U);
    EXPECT_EQ(slotOf('!'), 1U);
    EXPECT_EQ(slotOf('\x80'), 96U);
    EXPECT_EQ(slotOf('\xff'), 223U);
    EXPECT_EQ(characterOf(223), 255U);
}

}  // namespace
}  // namespace Orlek::Detail
