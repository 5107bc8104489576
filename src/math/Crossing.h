// The crossing of two infinite lines, on which all line intersections build.
#pragma once

#include <Orlek/Math/Vector2.h>

#include <optional>

namespace Orlek::Detail {

/// A line through a point along a direction; places on it are counted in lengths of the direction.
struct DirectedLine {
    Math::Vector2<double> origin;
    Math::Vector2<double> direction;
};

DirectedLine directedLine(Math::Vector2<double> from, Math::Vector2<double> to);
/// The direction is formed in single precision.
DirectedLine directedLine(Math::Vector2<float> from, Math::Vector2<float> to);

struct Crossing {
    Math::Vector2<double> point;
    double t;  ///< Place on the first line.
    double s;  ///< Place on the second line.

    /// Whether the crossing lies between the two points of each line, ends included.
    bool withinBoth() const { return 0.0 <= s && s <= 1.0 && 0.0 <= t && t <= 1.0; }
};

/// The cross product of the directions: 0 for parallel lines.
double directionCross(const DirectedLine& first, const DirectedLine& second);

/// Nothing when the lines are exactly parallel.
std::optional<Crossing> crossInfinite(const DirectedLine& first, const DirectedLine& second);

}  // namespace Orlek::Detail
