#pragma once

/// @file
/// Bearings, distances, positions and crossings of courses.
///
/// Latitudes and longitudes are in degrees, north and east positive; bearings and courses in
/// degrees clockwise from north; distances in metres. Arguments are not checked: a latitude beyond
/// 90 degrees gives results without meaning, and so does a pole where a longitude is asked for,
/// which may be huge; a value that is not finite gives infinite or NaN ones (0 from calcBearing()).
///
/// Two kinds of earth serve: great circles on a sphere for bearing and distance, and the flat grid
/// of latLong2Grid() with 111319.49079327358 metres per degree for the rest, which is good for the
/// tens of miles of a terminal area. The grid subtracts longitudes as they stand: across the
/// antimeridian, bring one within 180 degrees of the other first. All functions may be called from
/// any thread.

#include <Orlek/Export.h>

namespace Orlek::Geodetic {

/// Gives the initial bearing of the great circle from one position to another.
///
/// From the spherical triangle with the pole: tan(bearing) = sin(dLon) cos(lat2) / (cos(lat1)
/// sin(lat2) - sin(lat1) cos(lat2) cos(dLon)).
/// @param lat1, lon1 the first position, in degrees.
/// @param lat2, lon2 the second position, in degrees.
/// @return the bearing in degrees, in [0, 360]; 0 for equal latitudes and longitudes and for
///         arguments that are not finite.
ORLEK_EXPORT double calcBearing(double lat1, double lon1, double lat2, double lon2);

/// Gives the length of the great circle between two positions, at 1852 m per minute of arc.
///
/// By the spherical law of cosines, whose arc cosine resolves no better than about 1e-8 radians
/// (a tenth of a metre) for positions close together.
/// @param lat1, lon1 the first position, in degrees.
/// @param lat2, lon2 the second position, in degrees.
/// @return the distance in metres; exactly 0 for equal latitudes and longitudes. NaN where
///         rounding takes the cosine beyond 1, which can happen for positions that are nearly equal
///         or antipodal.
ORLEK_EXPORT double calcDistance(double lat1, double lon1, double lat2, double lon2);

/// Gives the position at a bearing and distance, on the flat grid of the start.
/// @param lat, lon the start, in degrees.
/// @param bearing the bearing in degrees.
/// @param distance the distance in metres.
/// @param[out] outLat, outLon the position, in degrees; the longitude is not wrapped.
ORLEK_EXPORT void calcPointFromBrgDistance(double lat, double lon, double bearing, double distance,
                                           double& outLat, double& outLon);

/// Finds where two courses cross, on the flat grid of the first position.
///
/// The courses count as infinite lines: a crossing behind a start is found too. It is computed in
/// single precision, with two points of each course one metre apart, so the direction of the second
/// course is the coarser the farther its start lies from the first: good to 0.03 degrees at 5 km
/// and to 0.6 degrees at 100 km.
/// @param lat1, lon1 the first position, in degrees.
/// @param course1 the course through it, in degrees.
/// @param lat2, lon2 the second position, in degrees.
/// @param course2 the course through it, in degrees.
/// @param[out] outLat, outLon the crossing, in degrees; unchanged when the courses are parallel
///             to 1e-9 degrees.
ORLEK_EXPORT void calcIntersection(double lat1, double lon1, double course1, double lat2,
                                   double lon2, double course2, double& outLat, double& outLon);

/// Finds where a course meets the circle of a distance around a station, on the station's flat
/// grid.
///
/// From inside the circle that is the crossing ahead; from outside the nearer one, be it ahead or
/// behind.
/// @param lat, lon the start, in degrees.
/// @param course the course in degrees.
/// @param dmeLat, dmeLon the station, in degrees.
/// @param dmeDistance the distance from the station in metres.
/// @param[out] outLat, outLon the crossing, in degrees; the start when there is none.
/// @return false when the course misses the circle.
ORLEK_EXPORT bool calcDmeDistIntersection(double lat, double lon, double course, double dmeLat,
                                          double dmeLon, double dmeDistance, double& outLat,
                                          double& outLon);

/// Gives the smaller turn from one heading to another.
/// @param from, to the headings in degrees, within 2^31 turns.
/// @return the turn in degrees, in [-180, 180]; positive to the right. A half turn keeps its sign.
ORLEK_EXPORT double getHeadingDifference(double from, double to);

/// Gives the turn from one heading to another in a given direction.
/// @param from, to the headings in degrees, within 2^31 turns.
/// @param clockwise true turns right, false turns left.
/// @return the turn in degrees: 0 to 360 to the right, -360 to -0 to the left.
ORLEK_EXPORT double getHeadingDifference(double from, double to, bool clockwise);

}  // namespace Orlek::Geodetic
