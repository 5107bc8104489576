// Counting all crossings would itself take as long as the sweep, so a few edges stand for all: some
// at equal distances along the outline, for many short edges that cross their neighbours, and the
// longest ones, each of which may cross everything.
#include "rendering/geometry/OutlineWork.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <vector>

#include "rendering/geometry/ViewAxis.h"

namespace Orlek::Detail {

namespace {

constexpr std::size_t spreadEdges = 8;
constexpr std::size_t longestEdges = 4;

struct Edge {
    float x0, y0, x1, y1;
};

float coordinate(const Math::Vector3<float>& p, std::size_t axis) {
    return axis == 0 ? p.x : axis == 1 ? p.y : p.z;
}

// Edges in the plane of the sweep, which goes along x; none from a corner to itself.
std::vector<Edge> flattened(std::span<const Math::Vector3<float>> corners) {
    const std::size_t x = (viewAxis(corners) + 1) % 3;
    const std::size_t y = (x + 1) % 3;
    std::vector<Edge> edges;
    edges.reserve(corners.size());
    const Math::Vector3<float>* from = &corners.back();
    for (const Math::Vector3<float>& to : corners) {
        const Edge edge{coordinate(*from, x), coordinate(*from, y), coordinate(to, x),
                        coordinate(to, y)};
        if (edge.x0 != edge.x1 || edge.y0 != edge.y1) {
            edges.push_back(edge);
        }
        from = &to;
    }
    return edges;
}

double side(const Edge& e, double x, double y) {
    return (double{e.x1} - e.x0) * (y - e.y0) - (double{e.y1} - e.y0) * (x - e.x0);
}

bool parted(double a, double b) {
    return (a < 0 && b > 0) || (a > 0 && b < 0);
}

bool mayMeet(float a0, float a1, float b0, float b1) {
    return std::min(a0, a1) <= std::max(b0, b1) && std::min(b0, b1) <= std::max(a0, a1);
}

bool passes(const Edge& e, float x, float y) {
    return side(e, x, y) == 0.0 && mayMeet(e.x0, e.x1, x, x) && mayMeet(e.y0, e.y1, y, y) &&
           !(x == e.x0 && y == e.y0) && !(x == e.x1 && y == e.y1);
}

// Also where an end lies on the other edge, as with edges that overlap; not where ends meet.
bool cross(const Edge& a, const Edge& b) {
    if (!mayMeet(a.x0, a.x1, b.x0, b.x1) || !mayMeet(a.y0, a.y1, b.y0, b.y1)) {
        return false;
    }
    return (parted(side(a, b.x0, b.y0), side(a, b.x1, b.y1)) &&
            parted(side(b, a.x0, a.y0), side(b, a.x1, a.y1))) ||
           passes(a, b.x0, b.y0) || passes(a, b.x1, b.y1) || passes(b, a.x0, a.y0) ||
           passes(b, a.x1, a.y1);
}

double crossings(const std::vector<Edge>& edges, const Edge& edge) {
    return static_cast<double>(
        std::ranges::count_if(edges, [&](const Edge& other) { return cross(edge, other); }));
}

double edgesUnderLine(const std::vector<Edge>& edges, float x) {
    return static_cast<double>(
        std::ranges::count_if(edges, [x](const Edge& e) { return (e.x0 <= x) != (e.x1 <= x); }));
}

double edgesFrom(const std::vector<Edge>& edges, float x, float y) {
    return static_cast<double>(
        std::ranges::count_if(edges, [=](const Edge& e) { return e.x0 == x && e.y0 == y; }));
}

double squaredLength(const Edge& e) {
    const double x = double{e.x1} - e.x0;
    const double y = double{e.y1} - e.y0;
    return x * x + y * y;
}

std::array<Edge, longestEdges> longestOf(const std::vector<Edge>& edges) {
    std::array<Edge, longestEdges> longest{};
    std::ranges::partial_sort_copy(edges, longest, std::ranges::greater{}, squaredLength,
                                   squaredLength);
    return longest;
}

}  // namespace

double outlineWork(std::span<const Math::Vector3<float>> corners) {
    if (corners.empty()) {
        return 0.0;
    }
    const std::vector<Edge> edges = flattened(corners);
    if (edges.size() <= spreadEdges + longestEdges) {
        return 0.0;
    }
    const auto count = static_cast<double>(edges.size());
    const std::array<Edge, longestEdges> longest = longestOf(edges);
    double work = 0.0;
    for (const Edge& edge : longest) {
        work += count * crossings(edges, edge);
    }
    const double part = count / spreadEdges;
    for (std::size_t i = 0; i < spreadEdges; ++i) {
        const Edge& edge = edges[i * edges.size() / spreadEdges + i % 2];  // of both parities
        work += part * (edgesUnderLine(edges, edge.x0) + edgesFrom(edges, edge.x0, edge.y0));
        if (squaredLength(edge) < squaredLength(longest.back())) {
            work += part * count / 2 * crossings(edges, edge);
        }
    }
    return work;
}

}  // namespace Orlek::Detail
