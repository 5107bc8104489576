// Pairs of edges of a closed outline that may meet.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace Orlek::Detail {

/// A point whose coordinates are whole and below 2^29 in size.
struct GridPoint {
    std::int32_t s = 0;
    std::int32_t t = 0;
    bool operator==(const GridPoint&) const = default;
};

/// The closed octagon around points, with upright and with diagonal sides: the latter tell slanting
/// neighbours apart.
class GridBox {
public:
    GridBox(const GridPoint& a, const GridPoint& b)
        : mLow{std::min(a.s, b.s), std::min(a.t, b.t), std::min(a.s + a.t, b.s + b.t),
               std::min(a.s - a.t, b.s - b.t)},
          mHigh{std::max(a.s, b.s), std::max(a.t, b.t), std::max(a.s + a.t, b.s + b.t),
                std::max(a.s - a.t, b.s - b.t)} {}

    void include(const GridBox& other) {
        for (std::size_t i = 0; i < sides; ++i) {
            mLow[i] = std::min(mLow[i], other.mLow[i]);
            mHigh[i] = std::max(mHigh[i], other.mHigh[i]);
        }
    }

    [[nodiscard]] bool meets(const GridBox& other) const {
        int apart = 0;
        for (std::size_t i = 0; i < sides; ++i) {
            apart |= static_cast<int>(mLow[i] > other.mHigh[i]) |
                     static_cast<int>(other.mLow[i] > mHigh[i]);
        }
        return apart == 0;
    }

private:
    static constexpr std::size_t sides = 4;
    std::array<std::int32_t, sides> mLow;
    std::array<std::int32_t, sides> mHigh;
};

/// Boxes around each edge, around each two that follow each other, around each two of those ...:
/// parts of an outline that are apart are told apart at once.
class EdgeBoxes {
public:
    explicit EdgeBoxes(std::vector<GridBox> edges) {
        mLevels.push_back(std::move(edges));
        while (mLevels.back().size() > 1) {
            mLevels.push_back(joined(mLevels.back()));
        }
    }

    /// Calls visit(i, j), i < j, for each two edges whose boxes meet, neighbours among them, until
    /// it gives false.
    template <typename Visit>
    void eachPair(Visit&& visit) const {
        for (std::size_t level = 1; level < mLevels.size(); ++level) {
            const std::size_t below = mLevels[level - 1].size();
            for (std::size_t i = 0; i + 1 < below; i += 2) {
                if (!compare(level - 1, i, i + 1, visit)) {
                    return;
                }
            }
        }
    }

private:
    static std::vector<GridBox> joined(const std::vector<GridBox>& boxes) {
        std::vector<GridBox> pairs;
        pairs.reserve((boxes.size() + 1) / 2);
        for (std::size_t i = 0; i < boxes.size(); i += 2) {
            pairs.push_back(boxes[i]);
            pairs.back().include(boxes[std::min(i + 1, boxes.size() - 1)]);
        }
        return pairs;
    }

    template <typename Visit>
    bool compare(std::size_t level, std::size_t i, std::size_t j, Visit& visit) const {
        const GridBox* const boxes = mLevels[level].data();
        if (!boxes[i].meets(boxes[j])) {
            return true;
        }
        if (level == 0) {
            return visit(i, j);
        }
        const std::size_t count = mLevels[level - 1].size();
        const std::size_t endOfJ = std::min(2 * j + 2, count);
        for (std::size_t a = 2 * i; a < std::min(2 * i + 2, count); ++a) {
            for (std::size_t b = 2 * j; b < endOfJ; ++b) {
                if (!compare(level - 1, a, b, visit)) {
                    return false;
                }
            }
        }
        return true;
    }

    std::vector<std::vector<GridBox>> mLevels;
};

}  // namespace Orlek::Detail
