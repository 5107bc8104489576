#include "text/raster/NearestSweeps.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace Orlek::Detail {
namespace {

constexpr float slack = 0.001F;
constexpr std::size_t groupSize = 4;

// Four pixels at a time; a compiler extension of gcc and clang for every processor.
using Four = float __attribute__((vector_size(16)));
using FourBools = int __attribute__((vector_size(16)));

Four four(const float* values) {
    Four result;
    std::memcpy(&result, values, sizeof result);
    return result;
}

void store(float* values, const Four& four) {
    std::memcpy(values, &four, sizeof four);
}

bool any(const FourBools& bools) {
    std::uint64_t halves[2];
    std::memcpy(halves, &bools, sizeof bools);
    return (halves[0] | halves[1]) != 0;
}

/// The points of four neighbours, seen from four pixels.
struct FourPoints {
    Four x;
    Four y;
    Four known;    ///< Squared distances of the neighbours themselves.
    Four squared;  ///< Squared distances of the pixels from the points.

    FourPoints(const EdgeDistances& edges, std::size_t k, const Four& column, float row)
        : x(four(edges.x + k)), y(four(edges.y + k)), known(four(edges.squared + k)) {
        const Four dx = x - column;
        const Four dy = y - row;
        squared = dx * dx + dy * dy;
    }

    /// Which pixels with these distances would take them.
    FourBools taken(const Four& best) const { return (best > known) & (best > squared + slack); }
};

struct Point {
    float x;
    float y;
};

/// A pixel during its visit.
struct Visit {
    float column;
    float row;
    float best;
    Point nearest{};
    bool changed = false;

    void meet(const Point& point) {
        const float dx = point.x - column;
        const float dy = point.y - row;
        const float squared = dx * dx + dy * dy;
        if (best > squared + slack) {
            best = squared;
            nearest = point;
            changed = true;
        }
    }

    void meetIfNearer(const EdgeDistances& edges, std::size_t n) {
        if (best > edges.squared[n]) {
            meet({edges.x[n], edges.y[n]});
        }
    }

    bool settle(const EdgeDistances& edges, std::size_t k) const {
        if (changed) {
            edges.squared[k] = best;
            edges.x[k] = nearest.x;
            edges.y[k] = nearest.y;
        }
        return changed;
    }
};

Four columnsFrom(std::size_t x) {
    const auto first = static_cast<float>(x);
    return Four{first, first + 1.0F, first + 2.0F, first + 3.0F};
}

/// The first column of a group by its word and bit; column 0 belongs to none.
std::size_t columnOf(std::size_t word, std::size_t bit) {
    return ((word - 1) * GroupFlags::wordBits + bit) * groupSize + 1;
}

constexpr std::size_t lastBit = GroupFlags::wordBits - 1;

}  // namespace

NearestSweeps::NearestSweeps(const CoverageImage& image, const EdgeDistances& edges)
    : mWidth(image.width),
      mHeight(image.height),
      mEdges(edges),
      mBefore((image.width + groupSize - 1) / groupSize, image.height),
      mNow(mBefore) {
    const std::size_t pixels = mWidth * mHeight;
    std::fill_n(edges.squared, pixels, noEdge);
    std::fill_n(edges.x, pixels, 0.0F);
    std::fill_n(edges.y, pixels, 0.0F);
    seedEdges(image, edges,
              [&](std::size_t x, std::size_t y) { mBefore.set((x - 1) / groupSize, y); });
    // Of the first two sweeps, which have none before them, each must look at all that is known.
    mNow = mBefore;
}

bool NearestSweeps::iterate() {
    if (mHeight < 3) {
        return false;
    }
    bool changed = false;
    for (std::size_t y = 1; y < mHeight - 1; ++y) {
        changed |= forwardRow(y);
    }
    nextSweep();
    for (std::size_t y = mHeight - 1; y-- > 1;) {
        changed |= backwardRow(y);
    }
    nextSweep();
    return changed;
}

void NearestSweeps::nextSweep() {
    std::swap(mBefore, mNow);
    mNow.clear();
}

bool NearestSweeps::forwardRow(std::size_t y) {
    const std::uint64_t* const before = mBefore.row(y);
    const std::uint64_t* const beforeBelow = mBefore.row(y - 1);
    const std::uint64_t* const nowBelow = mNow.row(y - 1);
    std::uint64_t* const now = mNow.row(y);
    const auto below = [&](std::size_t j) { return beforeBelow[j] | nowBelow[j]; };
    bool changed = false;
    for (std::size_t j = 1; j <= mNow.words(); ++j) {
        const std::uint64_t own = before[j] | now[j];
        const std::uint64_t side = below(j);
        std::uint64_t due = own | own << 1 | side | side << 1 | side >> 1 |
                            (before[j - 1] | now[j - 1] | below(j - 1)) >> lastBit |
                            below(j + 1) << lastBit;
        while (due != 0) {
            const auto bit = static_cast<std::size_t>(std::countr_zero(due));
            const std::uint64_t flag = std::uint64_t{1} << bit;
            due &= due - 1;
            if (forwardGroup(columnOf(j, bit), y)) {
                now[j] |= flag;
                due |= flag << 1;
                changed = true;
            }
        }
    }
    return changed;
}

bool NearestSweeps::backwardRow(std::size_t y) {
    const std::uint64_t* const before = mBefore.row(y);
    const std::uint64_t* const beforeAbove = mBefore.row(y + 1);
    const std::uint64_t* const nowAbove = mNow.row(y + 1);
    std::uint64_t* const now = mNow.row(y);
    const auto above = [&](std::size_t j) { return beforeAbove[j] | nowAbove[j]; };
    bool changed = false;
    for (std::size_t j = mNow.words(); j > 0; --j) {
        const std::uint64_t own = before[j] | now[j];
        const std::uint64_t side = above(j);
        std::uint64_t due = own | own >> 1 | side | side << 1 | side >> 1 |
                            (before[j + 1] | now[j + 1] | above(j + 1)) << lastBit |
                            above(j - 1) >> lastBit;
        while (due != 0) {
            const auto bit = lastBit - static_cast<std::size_t>(std::countl_zero(due));
            const std::uint64_t flag = std::uint64_t{1} << bit;
            due ^= flag;
            if (backwardGroup(columnOf(j, bit), y)) {
                now[j] |= flag;
                due |= flag >> 1;
                changed = true;
            }
        }
    }
    return changed;
}

/// Where the group that begins at column x ends: behind its last inner column.
std::size_t NearestSweeps::groupEnd(std::size_t x) const {
    return std::max(x, std::min(x + groupSize, mWidth - 1));
}

bool NearestSweeps::forwardGroup(std::size_t x, std::size_t y) {
    bool changed = false;
    const std::size_t end = groupEnd(x);
    if (end < x + groupSize) {
        while (x < end) {
            changed |= forwardVisit(x++, y);
        }
        return changed;
    }
    const std::size_t k = y * mWidth + x;
    const Four column = columnsFrom(x);
    const auto row = static_cast<float>(y);
    const Four start = four(mEdges.squared + k);
    Four best = start;
    Four nearestX = four(mEdges.x + k);
    Four nearestY = four(mEdges.y + k);
    FourBools taken = FourPoints(mEdges, k - 1, column, row).taken(start);
    for (std::size_t n = k - mWidth - 1; n <= k - mWidth + 1; ++n) {
        const FourPoints points(mEdges, n, column, row);
        const FourBools here = points.taken(best);
        best = here ? points.squared : best;
        nearestX = here ? points.x : nearestX;
        nearestY = here ? points.y : nearestY;
        taken |= here;
    }
    if (!any(taken)) {
        return false;
    }
    store(mEdges.squared + k, best);
    store(mEdges.x + k, nearestX);
    store(mEdges.y + k, nearestY);
    // The left neighbour, one after the other, meets the distance from before the visit.
    for (std::size_t i = 0; i < groupSize; ++i) {
        const std::size_t n = k + i - 1;
        if (start[i] > mEdges.squared[n]) {
            Visit visit{column[i], row, mEdges.squared[k + i]};
            visit.meet({mEdges.x[n], mEdges.y[n]});
            visit.settle(mEdges, k + i);
        }
    }
    return true;
}

bool NearestSweeps::backwardGroup(std::size_t x, std::size_t y) {
    bool changed = false;
    const std::size_t end = groupEnd(x);
    if (end == x + groupSize) {
        const std::size_t k = y * mWidth + x;
        const Four column = columnsFrom(x);
        const auto row = static_cast<float>(y);
        const Four best = four(mEdges.squared + k);
        FourBools taken = FourPoints(mEdges, k + 1, column, row).taken(best);
        for (std::size_t n = k + mWidth - 1; n <= k + mWidth + 1; ++n) {
            taken |= FourPoints(mEdges, n, column, row).taken(best);
        }
        if (!any(taken)) {
            return false;
        }
    }
    for (std::size_t i = end; i-- > x;) {
        changed |= backwardVisit(i, y);
    }
    return changed;
}

bool NearestSweeps::forwardVisit(std::size_t x, std::size_t y) {
    const std::size_t k = y * mWidth + x;
    const float start = mEdges.squared[k];
    Visit visit{static_cast<float>(x), static_cast<float>(y), start};
    visit.meetIfNearer(mEdges, k - mWidth - 1);
    visit.meetIfNearer(mEdges, k - mWidth);
    visit.meetIfNearer(mEdges, k - mWidth + 1);
    if (start > mEdges.squared[k - 1]) {
        visit.meet({mEdges.x[k - 1], mEdges.y[k - 1]});
    }
    return visit.settle(mEdges, k);
}

bool NearestSweeps::backwardVisit(std::size_t x, std::size_t y) {
    const std::size_t k = y * mWidth + x;
    Visit visit{static_cast<float>(x), static_cast<float>(y), mEdges.squared[k]};
    visit.meetIfNearer(mEdges, k + 1);
    visit.meetIfNearer(mEdges, k + mWidth - 1);
    visit.meetIfNearer(mEdges, k + mWidth);
    visit.meetIfNearer(mEdges, k + mWidth + 1);
    return visit.settle(mEdges, k);
}

}  // namespace Orlek::Detail
