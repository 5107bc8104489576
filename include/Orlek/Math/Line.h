#pragma once

/// @file
/// The line segment in the plane.

#include <Orlek/Export.h>
#include <Orlek/Math/Vector2.h>

namespace Orlek::Math {

/// A line segment between two points. A plain value; all operations may be called from any thread.
class ORLEK_EXPORT Line {
public:
    /// @param p1, p2 the end points.
    Line(Vector2<double> p1 = Vector2<double>(), Vector2<double> p2 = Vector2<double>())
        : mP1(p1), mP2(p2) {}

    /// @return the first end point.
    Vector2<double> p1() const { return mP1; }
    /// @return the second end point.
    Vector2<double> p2() const { return mP2; }
    /// Replaces the first end point.
    /// @param point the new one.
    void setP1(Vector2<double> point) { mP1 = point; }
    /// Replaces the second end point.
    /// @param point the new one.
    void setP2(Vector2<double> point) { mP2 = point; }

    /// Tests whether two segments meet, ends included.
    /// @param other the other segment.
    /// @return true when they do; false for parallel ones (cross product of the directions below
    ///         1e-12), even where they overlap.
    bool cross(Line other) const;

    /// Crosses the infinite lines through two segments.
    /// @param other the other segment.
    /// @param[out] ok false when the lines are parallel (cross product of the directions below
    ///             1e-6), else true.
    /// @return the crossing; without meaning when @p ok is false.
    Vector2<double> crossLine(Line other, bool& ok) const;

    /// Measures the distance from a point to this segment.
    /// @param point the point.
    /// @param[out] within true when the foot of the perpendicular lies on the segment, ends
    ///             excluded.
    /// @param[out] t the place of the foot along the segment, 0 at p1 and 1 at p2; NaN for a
    ///             segment without length.
    /// @return the distance to the foot, or to the nearer end where the foot lies beyond it; NaN
    ///         for a segment without length.
    double distanceToPoint(Vector2<double> point, bool& within, double& t) const;

private:
    Vector2<double> mP1;
    Vector2<double> mP2;
};

}  // namespace Orlek::Math
