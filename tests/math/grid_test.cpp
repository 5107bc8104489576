// The flat grid and the earth-centred frame, to the last digit and back.
#include <Orlek/Geodetic/Grid.h>

#include "math/Reference.h"

namespace {

using namespace Orlek::Geodetic;
using namespace OrlekTest;

constexpr long double radius = 6378137.0L;

TEST(Grid, FlatGrid) {
    Numbers number;
    for (int i = 0; i < 2000; ++i) {
        const Position ref{number(-80, 80), number(-180, 180)};
        const Position position{ref.lat + number(-1, 1), ref.lon + number(-1, 1)};
        Point flat;
        latLong2Grid(ref.lat, ref.lon, position.lat, position.lon, flat.x, flat.y);
        const long double east =
            radius * std::cos(radians(ref.lat)) * radians(position.lon - ref.lon);
        // Four roundings, the cosine being off by tan(80 deg) 80 deg eps at most.
        EXPECT_NEAR(flat.x, rounded(east), 12 * eps * std::abs(flat.x));
        EXPECT_NEAR(flat.y, rounded(radius * radians(position.lat - ref.lat)),
                    3 * eps * std::abs(flat.y));
        Position back;
        grid2LatLong(ref.lat, ref.lon, flat.x, flat.y, back.lat, back.lon);
        EXPECT_TRUE(isAt({back.lon, back.lat}, {position.lon, position.lat}, 200 * eps));
    }
}

TEST(Grid, EarthCentredFrame) {
    Numbers number;
    for (int i = 0; i < 2000; ++i) {
        const Position position{number(-90, 90), number(-180, 180)};
        double x = 0.0;
        double y = 0.0;
        double z = 0.0;
        latLong2Cartesian(position.lat, position.lon, x, y, z);
        const Axis up = Place(position).up;
        const double tolerance = 6 * eps * rounded(radius);
        EXPECT_TRUE(isAt({x, z}, {rounded(up[1] * radius), rounded(up[0] * radius)}, tolerance));
        EXPECT_NEAR(y, rounded(up[2] * radius), tolerance / 2);
        Position back;
        cartesian2LatLong(3.0 * x, 3.0 * y, 3.0 * z, back.lat, back.lon);
        EXPECT_NEAR(back.lat, position.lat, 500 * eps);
        EXPECT_NEAR(0.0, (back.lon - position.lon) * std::cos(position.lat / 57.3), 500 * eps);
    }
}

}  // namespace
