// Where labels go so that they can be read.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "MapView.h"

namespace MovingMap {

/// An upright rectangle of the picture.
struct Box {
    Point low;
    Point high;

    bool overlaps(const Box& other) const;
    bool contains(const Box& other) const;
    Box grown(double margin) const;
};

/// Whether the straight line between two points touches the box.
bool touches(const Box& box, Point a, Point b);

/// Finds free places for labels around their points, one label after the other.
class LabelPlacer {
public:
    /// @param area labels lie inside it
    explicit LabelPlacer(const Box& area) : mArea(area) {}

    /// A place that no label shall cover.
    void block(const Box& box) { mBlocked.push_back(box); }

    /// A line that labels avoid.
    void avoid(const std::vector<Point>& polyline);

    /// Chooses the best of the places around a point for a label of this size: right, left, above,
    /// below and between, first close by, then further away. A place that touches a blocked box, an
    /// earlier label or a line is taken only when there is no free one. The chosen place is blocked
    /// for later labels.
    /// @param kept in: the place of an earlier picture, which is taken again unless another one is
    ///        clearly better, so that labels of what moves do not jump; out: the place chosen
    Box place(Point point, Point size, double unit, std::size_t* kept = nullptr);

    /// Chooses the best of some places for the middle of a label, the first of several that are
    /// equally good, and blocks it. Nothing when each of them touches a blocked box or an earlier
    /// label, or leaves the area.
    std::optional<Box> placeOneOf(const std::vector<Point>& middles, Point size);

private:
    double cost(const Box& box) const;

    Box mArea;
    std::vector<Box> mBlocked;
    struct Segment {
        Point a;
        Point b;
    };
    std::vector<Segment> mLines;
};

}  // namespace MovingMap
