// Atlases and batches when memory runs out: each allocation of some size fails in turn.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "support/Capture.h"
#include "support/FailingAllocation.h"
#include "text/FreeTypeReference.h"
#include "text/layout/TextBatch.h"
#include "text/raster/FieldAtlas.h"

namespace Orlek::Detail {
namespace {

FT_LibraryRec_* library() {
    static FT_LibraryRec_* const shared = openFreeType();
    return shared;
}

struct Outcome {
    bool built = false;
    std::string lines;
    GlyphAtlas atlas;
};

Outcome build(const std::string& bytes, int failing) {
    FontFace face(library(), bytes.data(), static_cast<int>(bytes.size()));
    GlyphSet font;
    Outcome outcome;
    outcome.lines = OrlekTest::captureStdout([&] {
        OrlekTest::failingAllocation(
            failing, [&] { outcome.built = buildFieldAtlas(face, outcome.atlas, font); });
    });
    return outcome;
}

std::vector<std::uint8_t> coverage(const std::string& bytes) {
    FontFace face(library(), bytes.data(), static_cast<int>(bytes.size()));
    GlyphSet font;
    GlyphAtlas atlas;
    EXPECT_TRUE(buildAtlas(face, fieldDesignSize,
                           {.shelfWidth = 1024, .gap = 2 * fieldPadding, .padding = fieldPadding},
                           atlas, font));
    return atlas.pixels;
}

TEST(AtlasMemory, LacksTheAtlasOrKeepsPlainCoverage) {
    const std::string bytes = OrlekTest::wholeText(OrlekTest::sansFont);
    const Outcome whole = build(bytes, 0);
    ASSERT_TRUE(whole.built);
    int refused = 0;
    int plain = 0;
    int failing = 1;
    for (bool reached = true; reached; ++failing) {
        const Outcome outcome = build(bytes, failing);
        if (!outcome.built) {
            EXPECT_EQ(outcome.lines, "pixelData: out of memory\n");
            ++refused;
            continue;
        }
        EXPECT_EQ(outcome.lines, "");
        reached = outcome.atlas.pixels != whole.atlas.pixels;
        if (reached) {
            EXPECT_EQ(outcome.atlas.pixels, coverage(bytes));
            ++plain;
        }
    }
    EXPECT_EQ(refused, 1);
    EXPECT_GT(plain, 0);
}

TEST(BatchMemory, KeepsWhatItHasWhenThereIsNoneForMore) {
    constexpr Math::Matrix4<float> here{{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}};
    constexpr std::size_t many = 1000;
    for (int failing = 1; failing <= 3; ++failing) {
        std::vector<Math::Vector3<float>> vertices(4);
        std::vector<Math::Vector2<float>> uvs(4);
        std::vector<std::uint32_t> indices(5);
        OrlekTest::failingAllocation(failing, [&] {
            EXPECT_THROW(TextBatch({vertices, uvs, indices}, many, {1.0F, here}, 77U),
                         std::bad_alloc);
        });
        EXPECT_EQ(vertices.size(), 4U);
        EXPECT_EQ(uvs.size(), 4U);
        EXPECT_EQ(indices.size(), 5U);
    }
}

}  // namespace
}  // namespace Orlek::Detail
