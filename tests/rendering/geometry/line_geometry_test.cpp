// Index lists and lengths of lines: values worked out by hand.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "rendering/geometry/Adjacency.h"
#include "rendering/geometry/LineMeasure.h"

namespace {

using namespace Orlek;
using Indices = std::vector<std::uint32_t>;
using Points = std::vector<Math::Vector3<float>>;

constexpr std::uint32_t R = 0xFFFFFFFFU;

TEST(Adjacency, DoublesTheEndsOfEveryStrip) {
    const struct {
        const char* what;
        Indices plain, adjacency;
    } rows[] = {
        {"nothing", {}, {}},
        {"two loops", {0, 1, 2, R, 3, 4, 5, R}, {0, 0, 1, 2, 2, R, 3, 3, 4, 5, 5, R}},
        {"an open end behind a loop", {0, 1, R, 2, 3}, {0, 0, 1, 1, R, 2, 2, 3, 3}},
        {"one vertex", {7}, {7, 7, 7}},
        {"an empty strip between two",
         {0, 1, R, R, 2, 3, R},
         {0, 0, 1, 1, R, R, R, R, 2, 2, 3, 3, R}},
        {"an empty strip first", {R, 0, 1, R}, {R, R, R, 0, 0, 1, 1, R}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Detail::adjacencyIndices(row.plain, R), row.adjacency) << row.what;
    }
}

// x' = 0.1 y + 0.5, y' = 0.2 x, z' = 3 z; the last row must have no effect.
TEST(LineMeasure, CountsPixelsWithTheMatrixWithoutItsLastRow) {
    const Math::Matrix4<float> matrix{{0, 0.2F, 0, 9, 0.1F, 0, 0, 9, 0, 0, 3, 9, 0.5F, 0, 0, 9}};
    const Points line{{0, 0, 0}, {1, 1, 1}, {2, 1, 1}};
    const std::vector<float> positions = Detail::measureLine(line, matrix, {400, 300});
    ASSERT_EQ(positions.size(), 3U);
    EXPECT_EQ(positions[0], 0.0F);
    EXPECT_FLOAT_EQ(positions[1], std::sqrt(20.0F * 20.0F + 30.0F * 30.0F + 3.0F * 3.0F));
    EXPECT_FLOAT_EQ(positions[2], positions[1] + 30.0F);
}

// A sum kept in float would stall at 2^24 pixels.
TEST(LineMeasure, KeepsTheSumInDouble) {
    Points line;
    for (int i = 0; i < 20000; ++i) {
        line.emplace_back(static_cast<float>(i % 2) * 1001.0F, 0.0F, 0.0F);
    }
    const Math::Matrix4<float> identity{{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}};
    EXPECT_EQ(Detail::measureLine(line, identity, {2, 2}).back(), 1001.0F * 19999.0F);
}

}  // namespace
