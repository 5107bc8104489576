#include "text/layout/TextBatch.h"

#include <gtest/gtest.h>

namespace Orlek::Detail {
namespace {

// Column-major: x' = -y + 100, y' = 2 x + 50, z' = 3 x + 7; the fourth row is not used.
constexpr Math::Matrix4<float> placement{{0, 2, 3, 9, -1, 0, 0, 9, 0, 0, 1, 9, 100, 50, 7, 9}};

TEST(TextBatch, TransformsShiftedCornersAndEndsEachGlyphWithRestart) {
    OpenGL::GlyphInfo glyph;
    glyph.vertices = {{0.0F, 0.0F, 0.0F}, {0.0F, 8.0F, 0.0F}, {4.0F, 8.0F, 0.0F}, {4.0F, 0, 0}};
    glyph.uvs = {{0.0F, 0.0F}, {0.0F, 1.0F}, {1.0F, 1.0F}, {1.0F, 0.0F}};
    std::vector<Math::Vector3<float>> vertices;
    std::vector<Math::Vector2<float>> uvs;
    std::vector<std::uint32_t> indices;
    {
        TextBatch batch({vertices, uvs, indices}, 3, {1.0F, placement}, 77U);
        batch.append(glyph, {10.0F, 1.0F});
        glyph.uvs.resize(3);  // the shorter list of corners counts
        batch.append(glyph, {0.0F, 0.0F});
        batch.append({}, {0.0F, 0.0F});
    }
    ASSERT_EQ(vertices.size(), 7U);
    EXPECT_EQ(vertices[2].x, -9.0F + 100.0F);
    EXPECT_EQ(vertices[2].y, 2.0F * 14.0F + 50.0F);
    EXPECT_EQ(vertices[2].z, 3.0F * 14.0F + 7.0F);
    ASSERT_EQ(uvs.size(), 7U);
    EXPECT_EQ(uvs[6].x, 1.0F);
    EXPECT_EQ(indices, (std::vector<std::uint32_t>{0, 1, 2, 3, 77, 4, 5, 6, 77, 77}));
}

}  // namespace
}  // namespace Orlek::Detail
