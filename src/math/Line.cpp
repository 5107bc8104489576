// The line segment: meeting, crossing and distance.
#include <Orlek/Math/Line.h>

#include <cmath>

#include "math/Crossing.h"

namespace Orlek::Math {

bool Line::cross(Line other) const {
    constexpr double parallel = 1e-12;
    const auto mine = Detail::directedLine(mP1, mP2);
    const auto theirs = Detail::directedLine(other.mP1, other.mP2);
    if (std::abs(Detail::directionCross(mine, theirs)) < parallel)
        return false;
    return Detail::crossInfinite(mine, theirs)->withinBoth();
}

Vector2<double> Line::crossLine(Line other, bool& ok) const {
    constexpr double parallel = 1e-6;
    const auto mine = Detail::directedLine(mP1, mP2);
    const auto theirs = Detail::directedLine(other.mP1, other.mP2);
    ok = !(std::abs(Detail::directionCross(mine, theirs)) < parallel);
    return ok ? Detail::crossInfinite(mine, theirs)->point : Vector2<double>(0.0, 0.0);
}

double Line::distanceToPoint(Vector2<double> point, bool& within, double& t) const {
    const Vector2<double> d = mP2 - mP1;
    t = ((point.x - mP1.x) * d.x + (point.y - mP1.y) * d.y) / (d.x * d.x + d.y * d.y);
    within = 0.0 < t && t < 1.0;
    if (t < 0.0)
        return (point - mP1).Length();
    if (t > 1.0)
        return (point - mP2).Length();
    const Vector2<double> foot(mP1.x + t * d.x, mP1.y + t * d.y);
    return (point - foot).Length();
}

}  // namespace Orlek::Math
