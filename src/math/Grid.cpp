// Conversions between positions and the flat grid or the earth-centred frame.
#include <Orlek/Geodetic/Grid.h>

#include <cmath>

#include "math/EarthModels.h"

namespace Orlek::Geodetic {

using namespace Detail;

void latLong2Grid(double refLat, double refLon, double lat, double lon, double& x, double& y) {
    x = cosDegrees(refLat) * (lon - refLon) * metresPerDegree;
    y = (lat - refLat) * metresPerDegree;
}

void grid2LatLong(double refLat, double refLon, double x, double y, double& lat, double& lon) {
    lat = refLat + y / metresPerDegree;
    lon = refLon + x / metresPerDegree / cosDegrees(refLat);
}

void latLong2Cartesian(double lat, double lon, double& x, double& y, double& z) {
    const double cosLat = cosDegrees(lat);
    x = earthRadius * sinDegrees(lon) * cosLat;
    y = earthRadius * sinDegrees(lat);
    z = earthRadius * cosDegrees(lon) * cosLat;
}

void cartesian2LatLong(double x, double y, double z, double& lat, double& lon) {
    lat = std::atan2(y, std::sqrt(x * x + z * z)) * degreesPerRadian;
    lon = std::atan2(x, z) * degreesPerRadian;
}

}  // namespace Orlek::Geodetic
