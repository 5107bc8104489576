// Slopes of the surface between the posts, from the sixteen posts around a point.
#include "terrain/tiles/TileSurface.h"

#include <Orlek/Math/Cubic.h>

#include <algorithm>
#include <cmath>

namespace Orlek::Detail {

namespace {

constexpr double radiansPerDegree = 0.017453292519943295;

/// Which way leads back into 0 ... count - 1, or 0 for an index inside.
std::int32_t stepInward(std::int32_t index, std::int32_t count) {
    if (index < 0) {
        return 1;
    }
    return index >= count ? -1 : 0;
}

unsigned char packComponent(float component) {
    return static_cast<unsigned char>((double{component} + 1.0) * 127.5);
}

}  // namespace

/// Four by four samples: lines[k][m] is the sample m of the line k, from the south-west.
struct TileSurface::Patch {
    double lines[4][4];
};

TileSurface::TileSurface(const TileGrid& grid, const std::int16_t* samples)
    : mGrid(grid),
      mLatSpacingM(grid.latSpacing * 60 * 1852),
      mLonSpacingM(std::cos(grid.latOrigin * radiansPerDegree) * grid.lonSpacing * 60 * 1852),
      mSamples(samples) {}

double TileSurface::sampleOrExtrapolate(std::int32_t i, std::int32_t j) const {
    const auto numLat = static_cast<std::int32_t>(mGrid.numLat);
    const auto numLon = static_cast<std::int32_t>(mGrid.numLon);
    const std::int32_t iStep = stepInward(i, numLat);
    const std::int32_t jStep = stepInward(j, numLon);
    const std::int32_t iEdge = std::clamp(i, 0, numLat - 1);
    const std::int32_t jEdge = std::clamp(j, 0, numLon - 1);
    if (iStep == 0 && jStep == 0) {
        return *at(i, j);
    }
    return 2.0 * *at(iEdge, jEdge) - *at(iEdge + iStep, jEdge + jStep);
}

/// Reads the posts around the cell whose south-west post is (i, j).
inline void TileSurface::readPatch(std::int32_t i, std::int32_t j, Patch& patch) const {
    const auto numLat = static_cast<std::int32_t>(mGrid.numLat);
    const auto numLon = static_cast<std::int32_t>(mGrid.numLon);
    const bool inside = i >= 1 && i + 2 < numLat && j >= 1 && j + 2 < numLon;
    for (std::int32_t k = 0; k < 4; ++k) {
        if (inside) [[likely]] {
            const std::int16_t* line = at(i - 1, j - 1 + k);
            std::copy_n(line, 4, patch.lines[k]);
        } else {
            for (std::int32_t m = 0; m < 4; ++m) {
                patch.lines[k][m] = sampleOrExtrapolate(i - 1 + m, j - 1 + k);
            }
        }
    }
}

bool TileSurface::normal(double lat, double lon, unsigned char& x, unsigned char& y,
                         unsigned char& z) const {
    x = y = z = 0;
    const auto i = static_cast<std::int32_t>((lat - mGrid.latOrigin) / mGrid.latSpacing);
    const auto j = static_cast<std::int32_t>((lon - mGrid.lonOrigin) / mGrid.lonSpacing);
    if (i < 0 || i > static_cast<std::int32_t>(mGrid.numLat) - 1 || j < 0 ||
        j >= static_cast<std::int32_t>(mGrid.numLon) - 1) {
        return false;
    }
    const double fu = (lat - (i * mGrid.latSpacing + mGrid.latOrigin)) / mGrid.latSpacing;
    const double fv = (lon - (j * mGrid.lonSpacing + mGrid.lonOrigin)) / mGrid.lonSpacing;
    Patch patch;
    readPatch(i, j, patch);
    // The two spacings are the other way round than their names suggest: each slope is scaled with
    // the spacing of the axis along which its four values were interpolated.
    double alongLon[4];
    double alongLat[4];
    for (int n = 0; n < 4; ++n) {
        double line[4];
        double row[4];
        for (int m = 0; m < 4; ++m) {
            line[m] = patch.lines[n][m] / mLatSpacingM;
            row[m] = patch.lines[m][n] / mLonSpacingM;
        }
        alongLon[n] = Math::getCubicValue(line, fu);
        alongLat[n] = Math::getCubicValue(row, fv);
    }
    const auto a = static_cast<float>(Math::getCubicDerivate(alongLon, fv));
    const auto b = static_cast<float>(Math::getCubicDerivate(alongLat, fu));
    const float length = std::sqrt(a * a + b * b + 1.0F);
    x = packComponent(-a / length);
    y = packComponent(-b / length);
    z = packComponent(1.0F / length);
    return true;
}

}  // namespace Orlek::Detail
