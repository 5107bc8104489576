#pragma once

/// @file
/// Angles, crossings and parallels in the plane, with x east and y north.
///
/// All functions may be called from any thread.

#include <Orlek/Export.h>
#include <Orlek/Math/Vector2.h>

namespace Orlek::Math {

/// Gives the unsigned angle between two vectors.
///
/// The scalar product and the lengths are formed in single precision.
/// @param a, b the vectors.
/// @return the angle in degrees, in [0, 180]. NaN for a zero vector, and where rounding takes the
///         cosine beyond 1, which can happen for parallel vectors.
ORLEK_EXPORT double angle(Vector2<float> a, Vector2<float> b);

/// Intersects two segments; the directions and the crossing are rounded to single precision.
///
/// A caller that wants the crossing of the infinite lines uses @p cross whatever the result.
/// @param p1, p2 the ends of the first segment.
/// @param p3, p4 the ends of the second segment.
/// @param[out] cross the crossing of the infinite lines.
/// @param[out] t its place along the first segment, 0 at p1 and 1 at p2.
/// @param[out] s its place along the second segment, 0 at p3 and 1 at p4.
/// @return true when the crossing lies on both segments, ends included. False also for parallel
///         segments, which leave the outputs unchanged.
ORLEK_EXPORT bool crossLines(Vector2<float> p1, Vector2<float> p2, Vector2<float> p3,
                             Vector2<float> p4, Vector2<float>& cross, double& t, double& s);

/// Intersects two segments in double precision.
///
/// A caller that wants the crossing of the infinite lines uses @p cross whatever the result.
/// @param p1, p2 the ends of the first segment.
/// @param p3, p4 the ends of the second segment.
/// @param[out] cross the crossing of the infinite lines.
/// @param[out] t its place along the first segment, 0 at p1 and 1 at p2.
/// @param[out] s its place along the second segment, 0 at p3 and 1 at p4.
/// @return true when the crossing lies on both segments, ends included. False also for parallel
///         segments, which leave the outputs unchanged.
ORLEK_EXPORT bool crossLines(Vector2<double> p1, Vector2<double> p2, Vector2<double> p3,
                             Vector2<double> p4, Vector2<double>& cross, double& t, double& s);

/// Shifts a segment sideways.
/// @param p1, p2 the ends of the segment; equal ones give NaN.
/// @param distance how far, in the unit of the coordinates.
/// @param side 0 shifts to the left, seen from p1 to p2 with y up; any other value to the right.
/// @param[out] q1, q2 the ends of the shifted segment.
ORLEK_EXPORT void getParallelLine(Vector2<float> p1, Vector2<float> p2, double distance, int side,
                                  Vector2<float>& q1, Vector2<float>& q2);

/// Finds the corner of the polyline a-b-c when it is shifted sideways.
/// @param a, b, c the points of the polyline, b the corner.
/// @param distance how far, in the unit of the coordinates.
/// @param side 0 shifts to the left, seen from a to b with y up; any other value to the right.
/// @param[out] corner the crossing of the two shifted lines; unchanged when they are parallel, for
///             which rounding decides: test for a straight line before. NaN when points are equal.
ORLEK_EXPORT void getInnerCross(Vector2<float> a, Vector2<float> b, Vector2<float> c,
                                double distance, int side, Vector2<float>& corner);

}  // namespace Orlek::Math
