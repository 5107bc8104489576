// The rules of polygon operations written out one by one, each as the plain loop that it is, with
// no thought of speed and nothing of the library but the point type. The tests and the fuzz target
// hold the library against them to the last bit.
#pragma once

#include <Orlek/Math/Vector2.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace OrlekTest::Rules {

using Point = Orlek::Math::Vector2<double>;
using Ring = std::vector<Point>;
using Edge = std::array<std::size_t, 2>;

enum Operation { intersection = 0, unite = 1, difference = 2 };

struct Node {
    Point point;
    std::vector<std::size_t> successors;
    bool visited = false;
};

struct Cross {
    std::size_t index;
    Edge edgeA;
    double tA;
    Edge edgeB;
    double tB;
    std::size_t node;
};

inline bool segmentsCross(Point p1, Point p2, Point p3, Point p4, Point& cross, double& t,
                          double& s) {
    const Point d1(p2.x - p1.x, p2.y - p1.y);
    const Point d2(p4.x - p3.x, p4.y - p3.y);
    if (std::abs(d1.x) > 0) {
        const double d = d2.x * d1.y - d2.y * d1.x;
        if (d == 0)
            return false;
        s = (p3.y * d1.x - d1.x * p1.y - p3.x * d1.y + d1.y * p1.x) / d;
        t = (s * d2.x + p3.x - p1.x) / d1.x;
    } else {
        const double d = d2.y * d1.x - d2.x * d1.y;
        if (d == 0)
            return false;
        s = (p3.x * d1.y - d1.y * p1.x - p3.y * d1.x + d1.x * p1.y) / d;
        t = (s * d2.y + p3.y - p1.y) / d1.y;
    }
    cross = Point(p1.x + t * d1.x, p1.y + t * d1.y);
    return s >= 0 && s <= 1 && t >= 0 && t <= 1;
}

/// Sums in the type of the numbers: 1 clockwise, 0 counter-clockwise.
template <typename Number>
int winding(const Ring& ring) {
    Number sum = 0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Point& next = ring[(i + 1) % ring.size()];
        const auto x0 = static_cast<Number>(ring[i].x);
        const auto y0 = static_cast<Number>(ring[i].y);
        const auto x1 = static_cast<Number>(next.x);
        const auto y1 = static_cast<Number>(next.y);
        sum += (x1 - x0) * (y1 + y0);
    }
    return ring.size() >= 2 && sum < 0 ? 0 : 1;
}

inline bool inside(const Ring& ring, Point p) {
    int count = 0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        Point cross;
        double t = 0;
        double s = 0;
        if (segmentsCross(p, Point(p.x, p.y + 1e15), ring[i], ring[(i + 1) % ring.size()], cross, t,
                          s))
            ++count;
    }
    return count % 2 == 1;
}

/// What one operation works on and leaves behind.
struct Polygon {
    std::vector<Node> nodes;
    std::vector<Cross> crosses;
    Ring vertexes;

    std::vector<Ring> boolOperation(Ring other, Operation operation) {
        Ring& self = vertexes;
        if (operation == intersection && (self.empty() || other.empty()))
            return {};
        if (operation == unite && self.empty())
            return {other};
        if (operation == unite && other.empty())
            return {self};
        if (operation == difference && self.empty())
            return {};
        if (operation == difference && other.empty())
            return {self};

        if (winding<double>(self) != 1)
            std::reverse(self.begin(), self.end());
        if (winding<float>(other) != (operation == difference ? 0 : 1))
            std::reverse(other.begin(), other.end());

        if (countInside(other, self) == other.size())
            return result(operation, other, self);
        if (countInside(self, other) == self.size())
            return result(operation, self, other);
        if (countInside(other, self) == 0)
            return operation == difference ? std::vector<Ring>{self} : std::vector<Ring>{};

        buildGraph(other);
        for (Cross& cross : crosses)
            insertNode(cross);
        return walk(operation == unite);
    }

private:
    static std::size_t countInside(const Ring& points, const Ring& ring) {
        std::size_t count = 0;
        for (const Point& p : points)
            count += inside(ring, p) ? 1 : 0;
        return count;
    }

    static std::vector<Ring> result(Operation operation, const Ring& inner, const Ring& outer) {
        if (operation == intersection)
            return {inner};
        if (operation == unite)
            return {outer};
        return {};
    }

    void buildGraph(const Ring& other) {
        const std::size_t n = vertexes.size();
        const std::size_t m = other.size();
        nodes.clear();
        for (std::size_t i = 0; i < n; ++i)
            nodes.push_back({vertexes[i], {(i + 1) % n}});
        for (std::size_t j = 0; j < m; ++j)
            nodes.push_back({other[j], {n + (j + 1) % m}});
        crosses.clear();
        for (std::size_t i = 0; i < n; ++i)
            for (std::size_t j = 0; j < m; ++j) {
                const Edge edgeA{i, (i + 1) % n};
                const Edge edgeB{n + j, n + (j + 1) % m};
                Point p;
                double t = 0;
                double s = 0;
                if (!segmentsCross(nodes[edgeA[0]].point, nodes[edgeA[1]].point,
                                   nodes[edgeB[0]].point, nodes[edgeB[1]].point, p, t, s))
                    continue;
                crosses.push_back({crosses.size(), edgeA, t, edgeB, s, nodes.size()});
                nodes.push_back({p, {}});
            }
    }

    void insertNode(const Cross& c) {
        nodes[c.node].successors = {c.edgeA[1], c.edgeB[1]};
        for (const Edge& edge : {c.edgeA, c.edgeB})
            for (std::size_t& next : nodes[edge[0]].successors)
                if (next == edge[1])
                    next = c.node;
        for (Cross& k : crosses) {
            if (k.index <= c.index)
                continue;
            if (k.edgeA == c.edgeA)
                (c.tA > k.tA ? k.edgeA[1] : k.edgeA[0]) = c.node;
            else if (k.edgeB == c.edgeB)
                (c.tB > k.tB ? k.edgeB[1] : k.edgeB[0]) = c.node;
            else if (k.edgeA == c.edgeB)
                (c.tB > k.tA ? k.edgeA[1] : k.edgeA[0]) = c.node;
            else if (k.edgeB == c.edgeA)
                (c.tA > k.tB ? k.edgeB[1] : k.edgeB[0]) = c.node;
        }
    }

    std::size_t nextUnvisitedCrossNode() const {
        std::size_t i = 0;
        while (i < nodes.size() && (nodes[i].visited || nodes[i].successors.size() < 2))
            ++i;
        return i;
    }

    std::vector<Ring> walk(bool uniting) {
        std::vector<Ring> rings;
        std::size_t at = nextUnvisitedCrossNode();
        for (; at < nodes.size(); at = nextUnvisitedCrossNode()) {
            Ring ring;
            do {
                Node& node = nodes[at];
                node.visited = true;
                ring.push_back(node.point);
                at = node.successors[0];
                if (node.successors.size() == 2) {
                    const Point c = node.point;
                    const Point a = nodes[node.successors[0]].point;
                    const Point b = nodes[node.successors[1]].point;
                    const double e = (b.x - c.x) * (a.y - c.y) - (a.x - c.x) * (b.y - c.y);
                    if (uniting ? e < 0 : e > 0)
                        at = node.successors[1];
                }
            } while (!nodes[at].visited);
            rings.push_back(ring);
        }
        return rings;
    }
};

}  // namespace OrlekTest::Rules
