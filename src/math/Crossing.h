// The crossing of two infinite lines, on which all line intersections build. Here and not in a
// source file, because polygon operations spend their time in it.
//
// Crossing p1 + t d1 with p3 + s d2: eliminating t leaves s; t then follows from the coordinate in
// which d1 is not zero.
#pragma once

#include <Orlek/Math/Vector2.h>

#include <cmath>
#include <optional>

namespace Orlek::Detail {

/// A line through a point along a direction; places on it are counted in lengths of the direction.
struct DirectedLine {
    Math::Vector2<double> origin;
    Math::Vector2<double> direction;

    Math::Vector2<double> at(double place) const {
        return {origin.x + place * direction.x, origin.y + place * direction.y};
    }
};

inline DirectedLine directedLine(Math::Vector2<double> from, Math::Vector2<double> to) {
    return {from, to - from};
}

/// The direction is formed in single precision.
inline DirectedLine directedLine(Math::Vector2<float> from, Math::Vector2<float> to) {
    const float dx = to.x - from.x;
    const float dy = to.y - from.y;
    return {{from.x, from.y}, {dx, dy}};
}

struct Crossing {
    Math::Vector2<double> point;
    double t;  ///< Place on the first line.
    double s;  ///< Place on the second line.

    /// Whether the crossing lies between the two points of each line, ends included.
    bool withinBoth() const { return 0.0 <= s && s <= 1.0 && 0.0 <= t && t <= 1.0; }
};

/// The cross product of the directions: 0 for parallel lines.
inline double directionCross(const DirectedLine& first, const DirectedLine& second) {
    return second.direction.y * first.direction.x - second.direction.x * first.direction.y;
}

/// Nothing when the lines are exactly parallel.
inline std::optional<Crossing> crossInfinite(const DirectedLine& first,
                                             const DirectedLine& second) {
    const double cross = directionCross(first, second);
    if (cross == 0.0)
        return std::nullopt;
    const auto [p1, d1] = first;
    const auto [p3, d2] = second;
    double s = 0.0;
    double t = 0.0;
    if (std::abs(d1.x) > 0.0) {
        s = (p3.y * d1.x - d1.x * p1.y - p3.x * d1.y + d1.y * p1.x) / -cross;
        t = (s * d2.x + p3.x - p1.x) / d1.x;
    } else {
        s = (p3.x * d1.y - d1.y * p1.x - p3.y * d1.x + d1.x * p1.y) / cross;
        t = (s * d2.y + p3.y - p1.y) / d1.y;
    }
    return Crossing{first.at(t), t, s};
}

}  // namespace Orlek::Detail
