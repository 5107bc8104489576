// Index lists and lengths of lines: values worked out by hand.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "rendering/geometry/Adjacency.h"
#include "rendering/geometry/ImageBlock.h"
#include "rendering/geometry/LineMeasure.h"

namespace {

using namespace Orlek;
using Indices = std::vector<std::uint32_t>;
using Points = std::vector<Math::Vector3<float>>;

constexpr std::uint32_t R = 0xFFFFFFFFU;
constexpr Math::Matrix4<float> identity{{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}};

struct AdjacencyCase {
    const char* what;
    Indices plain;
    Indices adjacency;
};

TEST(Adjacency, DoublesTheEndsOfEveryStrip) {
    const AdjacencyCase cases[] = {
        {"nothing", {}, {}},
        {"one loop with its restart value", {0, 1, 2, 3, 4, R}, {0, 0, 1, 2, 3, 4, 4, R}},
        {"two loops", {0, 1, 2, R, 3, 4, 5, R}, {0, 0, 1, 2, 2, R, 3, 3, 4, 5, 5, R}},
        {"an open end", {0, 1, 2}, {0, 0, 1, 2, 2}},
        {"an open end behind a loop", {0, 1, R, 2, 3}, {0, 0, 1, 1, R, 2, 2, 3, 3}},
        {"one vertex", {7}, {7, 7}},
        {"an empty strip between two",
         {0, 1, R, R, 2, 3, R},
         {0, 0, 1, 1, R, R, R, R, 2, 2, 3, 3, R}},
        {"an empty strip first", {R, 0, 1, R}, {R, R, 0, 0, 1, 1, R}},
    };
    for (const AdjacencyCase& c : cases) {
        EXPECT_EQ(Detail::adjacencyIndices(c.plain, R), c.adjacency) << c.what;
    }
    EXPECT_EQ(Detail::adjacencyIndices(Indices{0, 1, 0x12FFFFFF}, 0x12FFFFFF),
              (Indices{0, 0, 1, 1, 0x12FFFFFF}));
}

TEST(LineMeasure, CountsPixels) {
    const Points line{{0, 0, 0}, {0.1F, 0, 0}, {0.1F, 0.2F, 0}};
    EXPECT_EQ(Detail::measureLine(line, identity, {200, 100}), (std::vector<float>{0, 10, 20}));
    EXPECT_TRUE(Detail::measureLine(Points(), identity, {200, 100}).empty());
}

TEST(LineMeasure, UsesTheMatrixWithoutItsLastRow) {
    // x' = 0.1 y + 0.5, y' = 0.2 x, z' = 3 z; the last row must have no effect.
    const Math::Matrix4<float> matrix{{0, 0.2F, 0, 9, 0.1F, 0, 0, 9, 0, 0, 3, 9, 0.5F, 0, 0, 9}};
    const Points line{{0, 0, 0}, {1, 1, 1}};
    const std::vector<float> positions = Detail::measureLine(line, matrix, {400, 300});
    ASSERT_EQ(positions.size(), 2U);
    EXPECT_FLOAT_EQ(positions[1], std::sqrt(20.0F * 20.0F + 30.0F * 30.0F + 3.0F * 3.0F));
}

// A sum kept in float would stall at 2^24 pixels.
TEST(LineMeasure, KeepsTheSumInDouble) {
    Points line;
    for (int i = 0; i < 1001; ++i) {
        line.emplace_back(static_cast<float>(i % 2) * 20000.0F, 0.0F, 0.0F);
    }
    line.emplace_back(0.25F, 0.0F, 0.0F);
    line.emplace_back(0.0F, 0.0F, 0.0F);
    const std::vector<float> positions = Detail::measureLine(line, identity, {2, 2});
    EXPECT_EQ(positions[1000], 20000000.0F);
}

TEST(ImageBlock, ReadsSizesAndFindsPixels) {
    const std::uint32_t block[] = {640, 480, 0xDEADBEEF, 42};
    const Detail::ImageBlock image = Detail::ImageBlock::parse(block);
    EXPECT_EQ(image.width, 640U);
    EXPECT_EQ(image.height, 480U);
    EXPECT_EQ(image.pixels, reinterpret_cast<const unsigned char*>(&block[3]));
}

}  // namespace
