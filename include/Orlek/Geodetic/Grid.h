#pragma once

/// @file
/// Conversions between positions and a local flat grid or an earth-centred frame.
///
/// Latitudes and longitudes are in degrees, north and east positive; coordinates in metres.
/// Arguments are not checked: a reference at a pole gives longitudes without meaning, huge ones
/// mostly. The grid subtracts longitudes as they stand: across the antimeridian, bring one within
/// 180 degrees of the other first. All functions may be called from any thread.

#include <Orlek/Export.h>

namespace Orlek::Geodetic {

/// Converts a position to the flat grid of a reference point, which has 111319.49079327358 m (one
/// degree of a circle of radius 6378137 m) to a degree of latitude, and that times the cosine of
/// the reference latitude to a degree of longitude.
/// @param refLat, refLon the reference point, in degrees.
/// @param lat, lon the position, in degrees.
/// @param[out] x, y the metres east and north of the reference point.
ORLEK_EXPORT void latLong2Grid(double refLat, double refLon, double lat, double lon, double& x,
                               double& y);

/// Converts back from the flat grid of a reference point; the inverse of latLong2Grid().
/// @param refLat, refLon the reference point, in degrees.
/// @param x, y the metres east and north of the reference point.
/// @param[out] lat, lon the position, in degrees; the longitude is not wrapped.
ORLEK_EXPORT void grid2LatLong(double refLat, double refLon, double x, double y, double& lat,
                               double& lon);

/// Converts a position on the sphere of radius 6378137 m to earth-centred coordinates.
/// @param lat, lon the position, in degrees.
/// @param[out] x, y, z the coordinates in metres: x towards 90 degrees east on the equator, y
///             towards the north pole, z towards longitude 0 on the equator.
ORLEK_EXPORT void latLong2Cartesian(double lat, double lon, double& x, double& y, double& z);

/// Converts earth-centred coordinates to a position; the inverse of latLong2Cartesian() for a
/// sphere of any radius.
/// @param x, y, z the coordinates, in any unit: x towards 90 degrees east on the equator, y towards
///        the north pole, z towards longitude 0 on the equator.
/// @param[out] lat, lon the position, in degrees, the longitude in [-180, 180].
ORLEK_EXPORT void cartesian2LatLong(double x, double y, double z, double& lat, double& lon);

}  // namespace Orlek::Geodetic
