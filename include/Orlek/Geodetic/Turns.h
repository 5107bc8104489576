#pragma once

/// @file
/// The geometry of aircraft turns: where a turn ends and the paths flown at a waypoint.
///
/// Points of the plane are in metres, x east and y north; courses in degrees clockwise from north.
/// A direction is 0 for left (counter-clockwise), 1 for right (clockwise) and any other value for
/// the one that the geometry suggests. All functions may be called from any thread.

#include <vector>

#include <Orlek/Export.h>
#include <Orlek/Math/Vector2.h>

namespace Orlek::Geodetic {

/// Gives the end of a turn that starts at a position, on the flat grid of that position.
/// @param lat, lon the start, in degrees.
/// @param course the course at the start, in degrees.
/// @param radius the radius of the turn in metres.
/// @param newCourse the course at the end, in degrees.
/// @param direction 0 turns left, 1 right, any other value the shorter way, a half turn to the side
///        that getHeadingDifference() gives.
/// @param[out] outLat, outLon the end, in degrees; for a turn below 1 degree the point 10 m ahead.
/// @return true.
ORLEK_EXPORT bool calcOutboundPoint(double lat, double lon, double course, double radius,
                                    double newCourse, int direction, double& outLat,
                                    double& outLon);

/// Gives the arc flown when the turn starts short of the waypoint, so that it touches both legs.
/// @param previous, waypoint, next the points that make the two legs.
/// @param radius the radius of the turn in metres; reduced where the legs are too short for it.
/// @param direction 0 turns left, 1 right, any other value towards the next point. Against the bend
///        of the legs the arc leaves the first one and ends short of the second.
/// @param[out] radiusReduced whether the radius was reduced.
/// @return points on the arc at every degree from where it leaves the first leg to where it joins
///         the second, both left out; at least one of them, even when the arc is shorter than a
///         degree. The waypoint alone when there is no such arc: radius below 1 mm, points less
///         than 1 m apart, legs in one line, or points that are not finite.
ORLEK_EXPORT std::vector<Math::Vector2<double>> calcFlyByPoints(Math::Vector2<double> previous,
                                                                Math::Vector2<double> waypoint,
                                                                Math::Vector2<double> next,
                                                                double radius, int direction,
                                                                bool& radiusReduced);

/// Gives the path flown when the turn starts at the waypoint and ends heading for the next point.
/// @param previous, waypoint, next the points that make the two legs.
/// @param radius the radius of the turn in metres; reduced where the next point is too near to be
///        reached with it, which is not enough after a turn of more than 90 degrees to a point
///        nearer than some 1,000 m times the cosine of the turn.
/// @param direction 0 turns left, 1 right, any other value towards the next point.
/// @param[out] radiusReduced whether the radius was reduced.
/// @return the waypoint, then points on the arc at every degree up to where the tangent to the next
///         point leaves it, the last at or up to a degree beyond. The waypoint alone when there is
///         no such arc: radius below 1 mm, a leg shorter than 1 m, a change of course below 3
///         degrees, a next point inside the circle of the turn, a point that is NaN or a next point
///         at infinity.
ORLEK_EXPORT std::vector<Math::Vector2<double>> calcFlyOverPoints(Math::Vector2<double> previous,
                                                                  Math::Vector2<double> waypoint,
                                                                  Math::Vector2<double> next,
                                                                  double radius, int direction,
                                                                  bool& radiusReduced);

/// Gives the radius of the circle through three points: l1 l2 l3 / (4 area).
/// @param a, b, c the points, in metres.
/// @return the radius in metres; infinite or NaN for points in one line.
ORLEK_EXPORT double calcRadius(Math::Vector2<double> a, Math::Vector2<double> b,
                               Math::Vector2<double> c);

/// Gives the area of a triangle from the lengths of its sides (Heron's formula).
/// @param a, b, c the corners, in metres.
/// @return the area in square metres; 0 or NaN for corners in one line.
ORLEK_EXPORT double calcTriangleArea(Math::Vector2<double> a, Math::Vector2<double> b,
                                     Math::Vector2<double> c);

}  // namespace Orlek::Geodetic
