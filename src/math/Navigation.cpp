// Bearings and distances on the sphere, positions and crossings on the flat grid.
#include <Orlek/Geodetic/Grid.h>
#include <Orlek/Geodetic/Navigation.h>

#include <cmath>
#include <limits>

#include "math/Crossing.h"
#include "math/EarthModels.h"

namespace Orlek::Geodetic {

using namespace Detail;

namespace {

// The direction of a course in the plane. Along the axes the component that should vanish is set to
// zero, since dividing by what rounding leaves of it would lose the crossing.
Math::Vector2<double> courseDirection(double courseDeg) {
    const double courseRad = courseDeg * radiansPerDegree;
    const double rounding = std::numeric_limits<double>::epsilon() * (1.0 + std::abs(courseRad));
    const auto cleared = [rounding](double v) { return std::abs(v) < rounding ? 0.0 : v; };
    return {cleared(std::sin(courseRad)), cleared(std::cos(courseRad))};
}

}  // namespace

double calcBearing(double lat1, double lon1, double lat2, double lon2) {
    const double phi1 = lat1 * radiansPerDegree;
    const double phi2 = lat2 * radiansPerDegree;
    const double deltaLambda = (lon2 - lon1) * radiansPerDegree;
    const double cosPhi2 = std::cos(phi2);
    const double y = cosPhi2 * std::sin(deltaLambda);
    const double x =
        std::cos(phi1) * std::sin(phi2) - std::sin(phi1) * cosPhi2 * std::cos(deltaLambda);
    const double bearing = std::atan2(y, x) * degreesPerRadian;
    if (std::isnan(bearing))
        return 0.0;
    // What wrap360 gives for -180 to 180, without its division.
    return bearing < 0.0 ? bearing + 360.0 : bearing;
}

double calcDistance(double lat1, double lon1, double lat2, double lon2) {
    constexpr double equal = 1e-15;
    if (std::abs(lat1 - lat2) < equal && std::abs(lon1 - lon2) < equal)
        return 0.0;
    const double phi1 = lat1 * radiansPerDegree;
    const double phi2 = lat2 * radiansPerDegree;
    const double deltaLambda = (lon2 - lon1) * radiansPerDegree;
    const double cosine =
        std::cos(deltaLambda) * std::cos(phi2) * std::cos(phi1) + std::sin(phi2) * std::sin(phi1);
    return std::acos(cosine) * degreesPerRadian * minutesPerDegree * metresPerMinute;
}

void calcPointFromBrgDistance(double lat, double lon, double bearing, double distance,
                              double& outLat, double& outLon) {
    const double north = distance * cosDegrees(bearing);
    const double east = distance * sinDegrees(bearing);
    outLat = lat + north / metresPerDegree;
    outLon = lon + east / (cosDegrees(lat) * metresPerDegree);
}

void calcIntersection(double lat1, double lon1, double course1, double lat2, double lon2,
                      double course2, double& outLat, double& outLon) {
    constexpr double parallel = 1e-9;  // degrees; opposite courses differ by 180 but for rounding
    if (std::abs(std::remainder(course2 - course1, 180.0)) < parallel)
        return;
    const Math::Vector2<double> along1 = courseDirection(course1);
    const Math::Vector2<double> along2 = courseDirection(course2);
    Math::Vector2<double> start2;
    latLong2Grid(lat1, lon1, lat2, lon2, start2.x, start2.y);

    const Math::Vector2<float> from1(0.0F, 0.0F);
    const Math::Vector2<float> to1 = along1;
    const Math::Vector2<float> from2 = start2;
    const Math::Vector2<float> to2 = start2 + along2;
    const auto crossing = crossInfinite(directedLine(from1, to1), directedLine(from2, to2));
    if (!crossing)
        return;
    const Math::Vector2<float> point = crossing->point;
    grid2LatLong(lat1, lon1, point.x, point.y, outLat, outLon);
}

bool calcDmeDistIntersection(double lat, double lon, double course, double dmeLat, double dmeLon,
                             double dmeDistance, double& outLat, double& outLon) {
    double x0 = 0.0;
    double y0 = 0.0;
    latLong2Grid(dmeLat, dmeLon, lat, lon, x0, y0);
    const double sine = sinDegrees(course);
    const double cosine = cosDegrees(course);

    // The distances t along the course solve a t^2 + b t + (x0^2 + y0^2 - dmeDistance^2) = 0.
    const double a = sine * sine + cosine * cosine;
    const double b = 2.0 * x0 * sine + 2.0 * y0 * cosine;
    const double discriminant = b * b - 4.0 * a * (x0 * x0 + y0 * y0 - dmeDistance * dmeDistance);
    if (discriminant < 0.0) {
        outLat = lat;
        outLon = lon;
        return false;
    }
    const double root = std::sqrt(discriminant);
    const double t1 = (root - b) / (2.0 * a);
    const double t2 = (-b - root) / (2.0 * a);
    double t = std::abs(t1) < std::abs(t2) ? t1 : t2;
    if (t1 > 0.0 && t2 < 0.0)  // t1 is never the smaller: ahead rather than behind.
        t = t1;
    grid2LatLong(dmeLat, dmeLon, x0 + t * sine, y0 + t * cosine, outLat, outLon);
    return true;
}

double getHeadingDifference(double from, double to) {
    const double difference = wrap360(to) - wrap360(from);
    if (difference > 180.0)
        return difference - 360.0;
    return difference < -180.0 ? difference + 360.0 : difference;
}

double getHeadingDifference(double from, double to, bool clockwise) {
    const double start = wrap360(from);
    const double end = wrap360(to);
    double turn = clockwise ? end - start : start - end;
    if (turn < 0.0)
        turn += 360.0;
    return clockwise ? turn : -turn;
}

}  // namespace Orlek::Geodetic
