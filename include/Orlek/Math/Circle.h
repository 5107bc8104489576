#pragma once

/// @file
/// The circle in the plane, its crossings and tangents.

#include <Orlek/Export.h>
#include <Orlek/Math/Vector2.h>

namespace Orlek::Math {

/// A circle. Only the element type double exists.
template <typename T>
struct Circle;

/// A circle in the plane. A plain value; all operations may be called from any thread.
template <>
struct ORLEK_EXPORT Circle<double> {
    double x;       ///< First coordinate of the centre.
    double y;       ///< Second coordinate of the centre.
    double radius;  ///< In the unit of the coordinates; only its square counts.

    /// @param centreX, centreY the centre.
    /// @param radiusValue the radius.
    Circle(double centreX, double centreY, double radiusValue)
        : x(centreX), y(centreY), radius(radiusValue) {}

    /// Intersects this circle with another one.
    /// @param other the other circle.
    /// @param[out] first, second the crossings: where the centres are level, the one with the
    ///             greater y first, otherwise the one with the greater x. Unchanged when the result
    ///             is false.
    /// @return true when the circles cross; circles that touch, that are concentric or of which one
    ///         lies outside or inside the other do not.
    bool cross(const Circle<double>& other, Vector2<double>& first, Vector2<double>& second) const;

    /// Finds the points where the tangents through a point touch this circle.
    ///
    /// They lie on the circle whose diameter runs from the centre to the point (Thales).
    /// @param point the point.
    /// @param[out] first, second the tangent points, in the order of cross(); unchanged when the
    ///             result is false.
    /// @return false when the point lies inside or on the circle; on it but for rounding, which
    ///         may make it either.
    bool tangent(const Vector2<double>& point, Vector2<double>& first,
                 Vector2<double>& second) const;
};

}  // namespace Orlek::Math
