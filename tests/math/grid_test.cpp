// The flat grid and the earth-centred frame.
#include <Orlek/Geodetic/Grid.h>
#include <gtest/gtest.h>

#include <cmath>

#include "math/Reference.h"

namespace {

using namespace Orlek::Geodetic;
using OrlekTest::eps;
using OrlekTest::Numbers;
using OrlekTest::Place;
using OrlekTest::radians;

TEST(Grid, FlatGridToTheLastDigitAndBack) {
    Numbers number;
    for (int i = 0; i < 2000; ++i) {
        const double refLat = number(-80, 80);
        const double refLon = number(-180, 180);
        const double lat = refLat + number(-1, 1);
        const double lon = refLon + number(-1, 1);
        double x = 0.0;
        double y = 0.0;
        latLong2Grid(refLat, refLon, lat, lon, x, y);
        const long double m = 6378137.0L * OrlekTest::pi / 180.0L;
        const long double east = std::cos(radians(refLat)) * (lon - refLon) * m;
        // Four roundings, the cosine being off by tan(80 deg) 80 deg eps at most.
        EXPECT_NEAR(x, static_cast<double>(east), 12 * eps * std::abs(x));
        EXPECT_NEAR(y, static_cast<double>((lat - refLat) * m), 3 * eps * std::abs(y));
        double latBack = 0.0;
        double lonBack = 0.0;
        grid2LatLong(refLat, refLon, x, y, latBack, lonBack);
        EXPECT_NEAR(latBack, lat, eps * 100);
        EXPECT_NEAR(lonBack, lon, eps * 200);
    }
}

TEST(Grid, EarthCentredFrameToTheLastDigitAndBack) {
    constexpr double radius = 6378137.0;
    Numbers number;
    for (int i = 0; i < 2000; ++i) {
        const double lat = number(-90, 90);
        const double lon = number(-180, 180);
        double x = 0.0;
        double y = 0.0;
        double z = 0.0;
        latLong2Cartesian(lat, lon, x, y, z);
        const Place place(lat, lon);
        EXPECT_NEAR(x, static_cast<double>(place.up[1] * radius), 6 * eps * radius);
        EXPECT_NEAR(y, static_cast<double>(place.up[2] * radius), 3 * eps * radius);
        EXPECT_NEAR(z, static_cast<double>(place.up[0] * radius), 6 * eps * radius);
        double latBack = 0.0;
        double lonBack = 0.0;
        cartesian2LatLong(3.0 * x, 3.0 * y, 3.0 * z, latBack, lonBack);
        EXPECT_NEAR(latBack, lat, 500 * eps);
        EXPECT_NEAR(lonBack * std::cos(lat / 57.3), lon * std::cos(lat / 57.3), 500 * eps);
    }
}

TEST(Grid, EarthCentredAxes) {
    double x = 1.0;
    double y = 1.0;
    double z = 1.0;
    latLong2Cartesian(0, 0, x, y, z);
    EXPECT_TRUE(x == 0.0 && y == 0.0 && z == 6378137.0);
    latLong2Cartesian(90, 123, x, y, z);
    EXPECT_EQ(y, 6378137.0);
    latLong2Cartesian(0, 90, x, y, z);
    EXPECT_EQ(x, 6378137.0);
    double lat = 1.0;
    double lon = 1.0;
    cartesian2LatLong(0, -2, 0, lat, lon);
    EXPECT_TRUE(lat == -90.0 && lon == 0.0);
}

}  // namespace
