// Polygon2D judges by vertices which outlines are apart or contain each other. So that it can, each
// edge gets a vertex between every two of its crossings with the other outline. Outlines from one
// source share corners and edges; shifting one of them by a small part of a pixel parts them.
#include "PolygonCut.h"

#include <Orlek/Math.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace MovingMap {

namespace {

using Orlek::Math::Polygon2D;

constexpr double speck = 1.0;  // Square pixels.
const Point shift(0.0137, 0.0071);
// Not the middle: there outlines that are alike on both sides have vertices, and a vertex exactly
// above a point misleads the test whether the point lies inside.
constexpr double aside = 0.4731;

double areaOf(const Polyline& outline) {
    double twice = 0.0;
    const Point& origin = outline.front();
    for (std::size_t i = 2; i < outline.size(); ++i) {
        const Point a = outline[i - 1] - origin;
        const Point b = outline[i] - origin;
        twice += a.x * b.y - a.y * b.x;
    }
    return std::abs(twice) / 2.0;
}

double areaOf(const std::vector<Polyline>& outlines) {
    double sum = 0.0;
    for (const Polyline& outline : outlines) {
        sum += areaOf(outline);
    }
    return sum;
}

Polyline shifted(Polyline outline) {
    for (Point& point : outline) {
        point += shift;
    }
    return outline;
}

// Where an edge crosses an outline, 0 at the edge's start and 1 at its end, in rising order.
std::vector<double> crossingsOf(Point a, Point b, const Polyline& outline) {
    std::vector<double> places;
    for (std::size_t i = 0, j = outline.size() - 1; i < outline.size(); j = i++) {
        Point cross;
        double t = 0.0;
        double s = 0.0;
        if (Orlek::Math::crossLines(a, b, outline[j], outline[i], cross, t, s)) {
            places.push_back(t);
        }
    }
    std::sort(places.begin(), places.end());
    return places;
}

Polyline withVertexBetweenCrossings(const Polyline& outline, const Polyline& other) {
    const Box box = boxAround(other);
    Polyline result;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Point& a = outline[i];
        const Point& b = outline[(i + 1) % outline.size()];
        result.push_back(a);
        if (!touches(box, a, b)) {
            continue;
        }
        const std::vector<double> places = crossingsOf(a, b, other);
        for (std::size_t k = 1; k < places.size(); ++k) {
            const double t = places[k - 1] + (places[k] - places[k - 1]) * aside;
            result.emplace_back(a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t);
        }
    }
    return result;
}

Polygon2D polygon(Polyline outline) {
    Polygon2D result;
    result.setVertexes(outline);
    return result;
}

std::vector<Polyline> cut(const Polyline& outline, const Polyline& other,
                          Polygon2D::BoolOperation operation) {
    std::vector<Polyline> parts;
    for (const Polygon2D& part :
         polygon(withVertexBetweenCrossings(outline, other))
             .boolOperation(polygon(withVertexBetweenCrossings(other, outline)), operation)) {
        Polyline points = part.vertexesD();
        if (points.size() >= 3 && areaOf(points) >= speck) {
            parts.push_back(std::move(points));
        }
    }
    return parts;
}

bool isWithin(double area, double least, double most) {
    const double tolerance = 0.01 * most + 2.0 * speck;
    return area >= least - tolerance && area <= most + tolerance;
}

// What `other` lies wholly within is cut in two first, through `other`, so that no hole remains.
std::vector<Polyline> cutAroundHole(const Polyline& outline, const Polyline& other) {
    const Box all = boxAround(outline).grown(1.0);
    const Box hole = boxAround(other);
    const double seam = hole.low.x + (hole.high.x - hole.low.x) * aside;
    std::vector<Polyline> parts;
    for (const Box& half :
         {Box{all.low, Point(seam, all.high.y)}, Box{Point(seam, all.low.y), all.high}}) {
        for (const Polyline& piece : cut(outline, rectangle(half), Polygon2D::Intersection)) {
            for (Polyline& part : cut(piece, other, Polygon2D::Difference)) {
                parts.push_back(std::move(part));
            }
        }
    }
    return parts;
}

}  // namespace

Box boxAround(const Polyline& outline) {
    Box box{outline.front(), outline.front()};
    for (const Point& point : outline) {
        box.low = Point(std::min(box.low.x, point.x), std::min(box.low.y, point.y));
        box.high = Point(std::max(box.high.x, point.x), std::max(box.high.y, point.y));
    }
    return box;
}

Polyline rectangle(const Box& box) {
    return {box.low, Point(box.low.x, box.high.y), box.high, Point(box.high.x, box.low.y)};
}

std::vector<Polyline> partsInside(const Polyline& outline, const Polyline& other) {
    if (!boxAround(outline).overlaps(boxAround(other))) {
        return {};
    }
    const double area = areaOf(outline);
    if (area < speck) {
        return {outline};
    }
    std::vector<Polyline> parts = cut(outline, shifted(other), Polygon2D::Intersection);
    const bool sound = isWithin(areaOf(parts), 0.0, std::min(area, areaOf(other)));
    return sound ? parts : std::vector<Polyline>{outline};
}

std::vector<Polyline> partsOutside(const Polyline& outline, const Polyline& other) {
    const double area = areaOf(outline);
    if (area < speck || !boxAround(outline).overlaps(boxAround(other))) {
        return {outline};
    }
    const Polyline apart = shifted(other);
    std::vector<Polyline> parts = cut(outline, apart, Polygon2D::Difference);
    if (parts.empty() && polygon(outline).pointInside(apart.front())) {
        parts = cutAroundHole(outline, apart);
    }
    const bool sound = isWithin(areaOf(parts), area - areaOf(other), area);
    return sound ? parts : std::vector<Polyline>{outline};
}

}  // namespace MovingMap
