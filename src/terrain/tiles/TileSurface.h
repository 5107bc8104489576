// The surface that the samples of a tile span: heights and normals between its posts.
#pragma once

#include <cstddef>
#include <cstdint>

#include "terrain/tiles/TileGrid.h"
#include "terrain/tiles/TileKey.h"

namespace Orlek::Detail {

struct SamplePatch;

/// Sees the samples of a loaded tile; whoever loads them owns them. Coordinates are degrees within
/// -90 to 90 and -180 to 180. The order of operations is part of the results.
class TileSurface {
public:
    TileSurface() = default;
    /// @param samples longitude lines from west to east, each from south to north, in metres.
    TileSurface(const TileGrid& grid, const std::int16_t* samples);

    /// Interpolates bilinearly between the four posts around a point, in metres. False, with
    /// `value` unchanged, when the point lies outside the grid.
    bool altitude(double lat, double lon, double& value) const;
    /// The same with few instructions for nearly all points: false also on the last row and line.
    bool altitudeInside(double lat, double lon, double& value) const;

    /// The direction of the surface normal at a point, east, north and up, each mapped from -1 ...
    /// 1 to a byte. False, with all three 0, when the point lies outside the grid.
    bool normal(double lat, double lon, unsigned char& x, unsigned char& y, unsigned char& z) const;

    /// The sample at latitude index i and longitude index j; outside the grid the line through the
    /// two nearest samples inward, continued.
    [[nodiscard]] double sampleOrExtrapolate(std::int32_t i, std::int32_t j) const;

private:
    [[nodiscard]] const std::int16_t* at(std::int32_t i, std::int32_t j) const {
        return mSamples + static_cast<std::size_t>(j) * mGrid.numLat + i;
    }
    /// Between the south-west, north-west, south-east and north-east post of a cell.
    static double interpolate(double h00, double h01, double h10, double h11, double fu, double fv);
    void readPatch(std::int32_t i, std::int32_t j, SamplePatch& patch) const;
    void readEdgePatch(std::int32_t i, std::int32_t j, SamplePatch& patch) const;

    TileGrid mGrid;
    double mLatSpacingM = 0.0;
    double mLonSpacingM = 0.0;
    const std::int16_t* mSamples = nullptr;
};

inline double TileSurface::interpolate(double h00, double h01, double h10, double h11, double fu,
                                       double fv) {
    const double a = h00 + (h10 - h00) * fv;
    const double b = h01 + (h11 - h01) * fv;
    return a + (b - a) * fu;
}

inline bool TileSurface::altitudeInside(double lat, double lon, double& value) const {
    const double u = (lat - mGrid.latOrigin) / mGrid.latSpacing;
    const double v = (lon - mGrid.lonOrigin) / mGrid.lonSpacing;
    const auto i = static_cast<std::int32_t>(u);
    const auto j = static_cast<std::int32_t>(v);
    // A negative index is a large one when taken as unsigned.
    if (static_cast<std::uint32_t>(i) >= mGrid.numLat - 1 ||
        static_cast<std::uint32_t>(j) >= mGrid.numLon - 1) {
        return false;
    }
    const std::int16_t* corner = at(i, j);
    const std::int16_t* east = corner + mGrid.numLat;
    value = interpolate(corner[0], corner[1], east[0], east[1], u - i, v - j);
    return true;
}

}  // namespace Orlek::Detail
