// Crossing p1 + t d1 with p3 + s d2: eliminating t leaves s; t then follows from the coordinate in
// which d1 is not zero.
#include "math/Crossing.h"

#include <cmath>

namespace Orlek::Detail {

DirectedLine directedLine(Math::Vector2<double> from, Math::Vector2<double> to) {
    return {from, to - from};
}

DirectedLine directedLine(Math::Vector2<float> from, Math::Vector2<float> to) {
    const float dx = to.x - from.x;
    const float dy = to.y - from.y;
    return {{from.x, from.y}, {dx, dy}};
}

double directionCross(const DirectedLine& first, const DirectedLine& second) {
    return second.direction.y * first.direction.x - second.direction.x * first.direction.y;
}

std::optional<Crossing> crossInfinite(const DirectedLine& first, const DirectedLine& second) {
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
    return Crossing{{p1.x + t * d1.x, p1.y + t * d1.y}, t, s};
}

}  // namespace Orlek::Detail
