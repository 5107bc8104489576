// Outlines as they go to the sweep: that they meet themselves in corners only, whatever is nearly
// so.
#include "rendering/geometry/SweepOutline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace {

using Orlek::Detail::GridPoint;
using Orlek::Detail::OutlineCorner;
using Orlek::Detail::sweepOutline;
using Vertex = Orlek::Math::Vector3<float>;

double turn(const GridPoint& a, const GridPoint& b, const GridPoint& c) {
    return (double{1} * b.s - a.s) * (double{1} * c.t - a.t) -
           (double{1} * b.t - a.t) * (double{1} * c.s - a.s);
}

bool within(const GridPoint& a, const GridPoint& b, const GridPoint& p) {
    return p != a && p != b && turn(a, b, p) == 0.0 && std::min(a.s, b.s) <= p.s &&
           p.s <= std::max(a.s, b.s) && std::min(a.t, b.t) <= p.t && p.t <= std::max(a.t, b.t);
}

bool meetBetweenCorners(const GridPoint& a, const GridPoint& b, const GridPoint& p,
                        const GridPoint& q) {
    return within(a, b, p) || within(a, b, q) || within(p, q, a) || within(p, q, b) ||
           (turn(a, b, p) * turn(a, b, q) < 0.0 && turn(p, q, a) * turn(p, q, b) < 0.0);
}

bool meetsOnlyInCorners(const std::vector<OutlineCorner>& corners) {
    const std::size_t n = corners.size();
    for (std::size_t i = 0; i < n; ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            if (meetBetweenCorners(corners[i].at, corners[(i + 1) % n].at, corners[j].at,
                                   corners[(j + 1) % n].at)) {
                return false;
            }
        }
    }
    return true;
}

// Corners on whole numbers, many of them off by some of the last bits of a float.
std::vector<Vertex> narrowOutline(std::mt19937& random, bool sloping, std::size_t corners = 20) {
    std::uniform_int_distribution<int> whole(0, 4);
    std::uniform_int_distribution<int> bits(-8, 8);
    std::vector<Vertex> outline(corners);
    const auto coordinate = [&] {
        return static_cast<float>(whole(random) + std::ldexp(bits(random), -20));
    };
    for (Vertex& corner : outline) {
        corner = Vertex(coordinate(), coordinate(), 0.0F);
        corner.z = sloping ? corner.x * 1000.0F : 7.0F;
    }
    return outline;
}

TEST(SweepOutline, MeetsItselfInCornersOnly) {
    std::mt19937 random(5);
    std::size_t crossings = 0;
    for (int round = 0; round < 300; ++round) {
        const std::vector<Vertex> outline = narrowOutline(random, round % 2 == 0);
        const std::vector<OutlineCorner> corners = sweepOutline(outline);
        EXPECT_TRUE(meetsOnlyInCorners(corners)) << round;
        auto next = corners.begin();
        for (const Vertex& corner : outline) {
            next = std::find_if(next, corners.end(), [&](const OutlineCorner& other) {
                return other.place == std::array<double, 3>{corner.x, corner.y, corner.z};
            });
            ASSERT_NE(next, corners.end()) << "all corners, in their order";
            ++next;
        }
        crossings += corners.size() - outline.size();
    }
    EXPECT_GT(crossings, 10000U);
}

TEST(SweepOutline, LeavesThousandsOfCrossingsToTheSweepUnlessTheyAreNarrow) {
    std::mt19937 random(5);
    std::uniform_real_distribution<float> anywhere(1.0F, 2.0F);
    std::vector<Vertex> wide(100);
    std::vector<Vertex> line(1000);  // two thirds of a million overlaps
    for (Vertex& corner : wide) {
        corner = Vertex(anywhere(random), anywhere(random), 0.0F);
    }
    for (Vertex& corner : line) {
        corner = Vertex(anywhere(random), 1.0F, 0.0F);
    }
    for (const auto& [outline, bits] : {std::pair(wide, 26), std::pair(line, 26),
                                        std::pair(narrowOutline(random, false, 300), 17)}) {
        const std::vector<OutlineCorner> corners = sweepOutline(outline);
        ASSERT_LE(corners.size(), outline.size()) << "no new ones, " << bits;
        const int greatest =
            std::ranges::max_element(corners, {}, [](const auto& c) { return c.at.s; })->at.s;
        EXPECT_EQ(std::ilogb(greatest), bits - 1);
    }
}

TEST(SweepOutline, LooksWhereTheOutlineIsWide) {
    const std::vector<Vertex> walls[] = {{{0, 0, 0}, {0, 4, 0}, {0, 4, 3}, {0, 0, 3}},
                                         {{0, 5, 0}, {4, 5, 0}, {4, 5, 3}, {0, 5, 3}},
                                         {{1, 1, 0}, {4, 4, 0}, {4, 4, 1}, {1, 1, 1}}};
    for (const auto& wall : walls) {
        const std::vector<OutlineCorner> corners = sweepOutline(wall);
        ASSERT_EQ(corners.size(), 4U);
        EXPECT_NE(turn(corners[0].at, corners[1].at, corners[2].at), 0.0);
        EXPECT_NE(turn(corners[2].at, corners[3].at, corners[0].at), 0.0);
    }
}

}  // namespace
