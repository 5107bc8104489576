// Where edges cross they get a corner, at the point of the grid next to the crossing (snap
// rounding: Hobby, Practical segment intersection with finite precision output, 1999). That bends
// the edges by less than a step, which can make new crossings, so it is done until there are none.
// It comes to an end, as each part of an edge lies in a smaller box of the grid than the whole one.
// All decisions are made in whole numbers of at most 56 bits.
//
// The sweep takes long to join thousands of corners that lie in one place in pairs. So an outline
// of many crossings is left to it as it is when one round of bending by a step has made no new
// ones: its own errors are millions of times smaller. Otherwise a coarse grid keeps crossings
// apart.
#include "rendering/geometry/SweepOutline.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <utility>

#include "rendering/geometry/ViewAxis.h"

namespace Orlek::Detail {

namespace {

using Place = std::array<double, 3>;
using Corner = Math::Vector3<float>;
using Corners = std::vector<OutlineCorner>;
using Outline = std::span<const Corner>;

Place placeOf(const Math::Vector3<float>& p) {
    return {p.x, p.y, p.z};
}

std::int32_t rounded(double value) {
    return static_cast<std::int32_t>(std::lrint(value));
}

// Coordinates along one axis of the grid.
class GridAxis {
public:
    GridAxis(Outline outline, float Corner::*axis, int bits) : mAxis(axis) {
        float extent = 0.0F;
        for (const Corner& corner : outline) {
            extent = std::max(extent, std::fabs(corner.*axis));
        }
        mStepsPerUnit = extent > 0.0F ? std::ldexp(1.0, bits - 1 - std::ilogb(extent)) : 1.0;
    }

    std::int32_t of(const Corner& corner) const {
        return rounded(double{corner.*mAxis} * mStepsPerUnit);
    }

private:
    float Corner::*mAxis;
    double mStepsPerUnit;
};

Corners onGrid(Outline outline, int bits) {
    constexpr std::array axes{&Corner::x, &Corner::y, &Corner::z};
    const std::size_t view = viewAxis(outline);
    const GridAxis s(outline, axes[(view + 1) % 3], bits);
    const GridAxis t(outline, axes[(view + 2) % 3], bits);
    Corners corners;
    corners.reserve(outline.size());
    for (const Corner& corner : outline) {
        const GridPoint at{s.of(corner), t.of(corner)};
        if (corners.empty() || at != corners.back().at) {
            corners.push_back({at, placeOf(corner)});
        }
    }
    return corners;
}

// Twice the area of a triangle, positive when it turns to the left.
std::int64_t turn(const GridPoint& a, const GridPoint& b, const GridPoint& c) {
    return (std::int64_t{b.s} - a.s) * (std::int64_t{c.t} - a.t) -
           (std::int64_t{b.t} - a.t) * (std::int64_t{c.s} - a.s);
}

bool onOneSide(std::int64_t a, std::int64_t b) {
    return (a > 0 && b > 0) || (a < 0 && b < 0);
}

double share(std::int64_t part, std::int64_t rest) {
    return static_cast<double>(part) / static_cast<double>(part - rest);
}

// A corner that an edge needs.
struct Cut {
    std::size_t edge;
    double along;  // 0 at the edge's start, 1 at its end
    GridPoint at;
};

using Edges = std::vector<std::size_t>;  // by the corner with which they begin

const GridPoint& startOf(std::size_t edge, const Corners& corners) {
    return corners[edge].at;
}

const GridPoint& endOf(std::size_t edge, const Corners& corners) {
    return corners[edge + 1 < corners.size() ? edge + 1 : 0].at;
}

Edges allEdges(const Corners& corners) {
    Edges edges(corners.size());
    std::iota(edges.begin(), edges.end(), 0U);
    return edges;
}

// In their order, without those that lie on an earlier one from end to end.
Edges distinctEdges(const Corners& corners) {
    const auto ends = [&](std::size_t edge) {
        const auto place = [](const GridPoint& p) { return std::pair(p.s, p.t); };
        return std::minmax({place(startOf(edge, corners)), place(endOf(edge, corners))});
    };
    Edges edges = allEdges(corners);
    std::ranges::sort(edges, {}, [&](std::size_t edge) { return std::pair(ends(edge), edge); });
    const auto sameEnds = [&](std::size_t a, std::size_t b) { return ends(a) == ends(b); };
    edges.erase(std::unique(edges.begin(), edges.end(), sameEnds), edges.end());
    std::ranges::sort(edges);
    return edges;
}

// Looks for the corners that edges need, until there are more than `most`.
class CutFinder {
public:
    CutFinder(const Corners& corners, const Edges& edges, std::size_t most) : mCorners(corners) {
        EdgeBoxes(boxesOf(edges)).eachPair([&](std::size_t i, std::size_t j) {
            compare(edges[i], edges[j]);
            return mCuts.size() <= most;
        });
        std::ranges::sort(mCuts, {}, [](const Cut& cut) { return std::pair(cut.edge, cut.along); });
    }

    const std::vector<Cut>& cuts() const { return mCuts; }

private:
    const GridPoint& start(std::size_t edge) const { return startOf(edge, mCorners); }
    const GridPoint& end(std::size_t edge) const { return endOf(edge, mCorners); }

    std::vector<GridBox> boxesOf(const Edges& edges) const {
        std::vector<GridBox> boxes;
        boxes.reserve(edges.size());
        for (const std::size_t edge : edges) {
            boxes.emplace_back(start(edge), end(edge));
        }
        return boxes;
    }

    void compare(std::size_t i, std::size_t j) {
        const std::int64_t startOfJ = turn(start(i), end(i), start(j));
        const std::int64_t endOfJ = turn(start(i), end(i), end(j));
        if (onOneSide(startOfJ, endOfJ)) {
            return;
        }
        const std::int64_t startOfI = turn(start(j), end(j), start(i));
        const std::int64_t endOfI = turn(start(j), end(j), end(i));
        if (onOneSide(startOfI, endOfI)) {
            return;
        }
        if (startOfJ != 0 && endOfJ != 0 && startOfI != 0 && endOfI != 0) {
            const GridPoint at = pointAlong(i, share(startOfI, endOfI));
            add({i, share(startOfI, endOfI), at});
            add({j, share(startOfJ, endOfJ), at});
            return;
        }
        addWhereOnEdge(i, startOfJ, start(j));
        addWhereOnEdge(i, endOfJ, end(j));
        addWhereOnEdge(j, startOfI, start(i));
        addWhereOnEdge(j, endOfI, end(i));
    }

    GridPoint pointAlong(std::size_t edge, double along) const {
        const auto between = [along](double from, double to) {
            return rounded(from + (to - from) * along);
        };
        return {between(start(edge).s, end(edge).s), between(start(edge).t, end(edge).t)};
    }

    void addWhereOnEdge(std::size_t edge, std::int64_t side, const GridPoint& point) {
        const GridPoint& from = start(edge);
        const GridPoint& to = end(edge);
        if (side != 0 || point == from || point == to || !GridBox(from, to).meets({point, point})) {
            return;
        }
        const bool alongS = from.s != to.s;
        const double part = alongS ? point.s - from.s : point.t - from.t;
        add({edge, part / (alongS ? to.s - from.s : to.t - from.t), point});
    }

    void add(const Cut& cut) {
        if (cut.at != start(cut.edge) && cut.at != end(cut.edge)) {
            mCuts.push_back(cut);
        }
    }

    const Corners& mCorners;
    std::vector<Cut> mCuts;
};

OutlineCorner cornerAt(const Cut& cut, const OutlineCorner& from, const OutlineCorner& to) {
    OutlineCorner corner{cut.at, from.place};
    for (std::size_t axis = 0; axis < 3; ++axis) {
        corner.place[axis] += (to.place[axis] - from.place[axis]) * cut.along;
    }
    return corner;
}

Corners withCuts(const Corners& corners, const std::vector<Cut>& cuts) {
    Corners all;
    all.reserve(corners.size() + cuts.size());
    auto cut = cuts.begin();
    for (std::size_t i = 0; i < corners.size(); ++i) {
        all.push_back(corners[i]);
        for (; cut != cuts.end() && cut->edge == i; ++cut) {
            if (cut->at != all.back().at) {
                all.push_back(cornerAt(*cut, corners[i], corners[(i + 1) % corners.size()]));
            }
        }
    }
    return all;
}

bool meetsBetweenCorners(const Corners& corners) {
    return !CutFinder(corners, distinctEdges(corners), 0).cuts().empty();
}

}  // namespace

std::vector<OutlineCorner> sweepOutline(std::span<const Math::Vector3<float>> outline) {
    constexpr int fine = 26;
    constexpr int coarse = 17;
    constexpr std::size_t fewCuts = 1000;
    constexpr std::size_t mostCuts = std::size_t{1} << 20U;
    constexpr int mostRounds = 30;
    if (outline.empty()) {
        return {};
    }
    Corners corners = onGrid(outline, fine);
    const std::size_t given = corners.size();
    for (int round = 0; round < mostRounds; ++round) {
        const CutFinder finder(corners, allEdges(corners), round == 0 ? mostCuts : fewCuts);
        const std::vector<Cut>& cuts = finder.cuts();
        if (cuts.empty()) {
            return corners;
        }
        if (corners.size() - given + cuts.size() > fewCuts) {
            const bool wide = round == 0 && cuts.size() <= mostCuts &&
                              !meetsBetweenCorners(withCuts(corners, cuts));
            return onGrid(outline, wide ? fine : coarse);
        }
        corners = withCuts(corners, cuts);
    }
    return onGrid(outline, coarse);
}

}  // namespace Orlek::Detail
