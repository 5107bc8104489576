#include "text/layout/TextBatch.h"

#include <gtest/gtest.h>

#include <array>
#include <span>

#include "text/layout/GlyphRun.h"

namespace Orlek::Detail {
namespace {

OpenGL::GlyphInfo glyphWithQuad(float width, float height, float advance) {
    OpenGL::GlyphInfo glyph;
    glyph.advance = advance;
    glyph.vertices = {
        {0.0F, 0.0F, 0.0F}, {0.0F, height, 0.0F}, {width, height, 0.0F}, {width, 0.0F, 0.0F}};
    glyph.uvs = {{0.0F, 0.0F}, {0.0F, 1.0F}, {1.0F, 1.0F}, {1.0F, 0.0F}};
    return glyph;
}

struct Lists {
    std::vector<Math::Vector3<float>> vertices;
    std::vector<Math::Vector2<float>> uvs;
    std::vector<std::uint32_t> indices;
};

// Column-major: x' = -y + 100, y' = 2 x + 50, z' = 3 x + 7; the fourth row is not used.
constexpr Math::Matrix4<float> placement{{0, 2, 3, 9, -1, 0, 0, 9, 0, 0, 1, 9, 100, 50, 7, 9}};

void append(Lists& lists, std::span<const OpenGL::GlyphInfo> glyphs, Math::Vector2<float> shift) {
    TextBatch batch({lists.vertices, lists.uvs, lists.indices}, glyphs.size(), placement, 77U);
    for (const OpenGL::GlyphInfo& glyph : glyphs) {
        batch.append(glyph, shift);
    }
}

TEST(TextBatch, TransformsShiftedCornersAndEndsEachGlyphWithRestart) {
    Lists lists;
    const OpenGL::GlyphInfo glyph[] = {glyphWithQuad(4.0F, 8.0F, 5.0F)};
    append(lists, glyph, {10.0F, 1.0F});
    append(lists, glyph, {0.0F, 0.0F});
    ASSERT_EQ(lists.vertices.size(), 8U);
    EXPECT_EQ(lists.vertices[2].x, -9.0F + 100.0F);
    EXPECT_EQ(lists.vertices[2].y, 2.0F * 14.0F + 50.0F);
    EXPECT_EQ(lists.vertices[2].z, 3.0F * 14.0F + 7.0F);
    EXPECT_EQ(lists.uvs[6].x, 1.0F);
    EXPECT_EQ(lists.indices, (std::vector<std::uint32_t>{0, 1, 2, 3, 77, 4, 5, 6, 7, 77}));
}

TEST(TextBatch, TakesTheShorterListOfCorners) {
    Lists lists;
    OpenGL::GlyphInfo glyphs[] = {glyphWithQuad(4.0F, 8.0F, 5.0F), {}};
    glyphs[0].uvs.resize(3);
    append(lists, glyphs, {0.0F, 0.0F});
    EXPECT_EQ(lists.vertices.size(), 3U);
    EXPECT_EQ(lists.uvs.size(), 3U);
    EXPECT_EQ(lists.indices, (std::vector<std::uint32_t>{0, 1, 2, 77, 77}));
}

TEST(GlyphRun, WalksThePenByTheAdvances) {
    std::array<OpenGL::GlyphInfo, slotCount> glyphs;
    glyphs[0].advance = 3.0F;
    glyphs[slotOf('A')].advance = 7.5F;
    glyphs[slotOf('\xe4')].advance = 6.0F;
    const GlyphRun run(glyphs, "A\x01\xe4");
    std::vector<std::size_t> slots;
    std::vector<float> pens;
    run.walk([&](std::size_t slot, const OpenGL::GlyphInfo&, float pen) {
        slots.push_back(slot);
        pens.push_back(pen);
    });
    EXPECT_EQ(slots, (std::vector<std::size_t>{33, 0, 196}));
    EXPECT_EQ(pens, (std::vector<float>{0.0F, 7.5F, 10.5F}));
    EXPECT_EQ(run.width(), 16.5F);
    EXPECT_EQ(GlyphRun(glyphs, "").width(), 0.0F);
}

}  // namespace
}  // namespace Orlek::Detail
