// Geodetic calculations and elevation tiles.
#include "interface.h"

#include <string>
#include <vector>

namespace interface {
namespace {
using namespace Orlek::Geodetic;
using Point = Orlek::Math::Vector2<double>;
using Points = std::vector<Point>;
}  // namespace

void geodetic() {
    using Byte = unsigned char;
    value<HeightMap>();
    function<double(double, double, double, double)>(&calcBearing, &calcDistance);
    function<void(double, double, double, double, double&, double&)>(&calcPointFromBrgDistance,
                                                                     &latLong2Grid, &grid2LatLong);
    function<void(double, double, double, double, double, double, double&, double&)>(
        &calcIntersection);
    function<bool(double, double, double, double, double, double, double&, double&)>(
        &calcDmeDistIntersection);
    function<bool(double, double, double, double, double, int, double&, double&)>(
        &calcOutboundPoint);
    function<Points(Point, Point, Point, double, int, bool&)>(&calcFlyByPoints, &calcFlyOverPoints);
    function<double(Point, Point, Point)>(&calcRadius, &calcTriangleArea);
    function<double(double, double)>(&getHeadingDifference);
    function<double(double, double, bool)>(&getHeadingDifference);
    function<void(double, double, double&, double&, double&)>(&latLong2Cartesian);
    function<void(double, double, double, double&, double&)>(&cartesian2LatLong);
    constant<int>(&HeightMap::MAX_TILES_LOADED, 300);
    constant<int>(&HeightMap::MAX_TILES_LOADED_LOW, 15);
    member<void(const std::string&)>(&HeightMap::setDataPath);
    member<void()>(&HeightMap::loadData);
    member<double(double, double, bool, bool)>(&HeightMap::getAltitude);
    member<bool(double, double, bool, bool, Byte&, Byte&, Byte&)>(&HeightMap::getNormal);
}

}  // namespace interface
