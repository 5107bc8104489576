// Slopes of the surface between the posts, from the sixteen posts around a point.
#include "terrain/tiles/TileSurface.h"

#include <algorithm>
#include <cmath>

#include "math/Degrees.h"
#include "terrain/tiles/SamplePatch.h"

namespace Orlek::Detail {

namespace {

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

bool TileSurface::altitude(double lat, double lon, double& value) const {
    const double u = (lat - mGrid.latOrigin) / mGrid.latSpacing;
    const double v = (lon - mGrid.lonOrigin) / mGrid.lonSpacing;
    const std::int32_t i = degreeIndex(u);
    const std::int32_t j = degreeIndex(v);
    const auto numLat = static_cast<std::int32_t>(mGrid.numLat);
    const auto numLon = static_cast<std::int32_t>(mGrid.numLon);
    if (i >= numLat || j >= numLon) {
        return false;
    }
    // On the last row or line the neighbours beyond it are the corner itself.
    const std::int16_t* corner = at(i, j);
    const std::size_t north = i < numLat - 1 ? 1 : 0;
    const std::size_t east = j < numLon - 1 ? mGrid.numLat : 0;
    const std::size_t across = north != 0 && east != 0 ? north + east : 0;
    value = interpolate(corner[0], corner[north], corner[east], corner[across], u - i, v - j);
    return true;
}

/// Reads the posts around the cell whose south-west post is (i, j).
inline void TileSurface::readPatch(std::int32_t i, std::int32_t j, SamplePatch& patch) const {
    const auto numLat = static_cast<std::int32_t>(mGrid.numLat);
    const auto numLon = static_cast<std::int32_t>(mGrid.numLon);
    const bool inside = i >= 1 && i + 2 < numLat && j >= 1 && j + 2 < numLon;
    if (inside) [[likely]] {
        for (std::int32_t k = 0; k < 4; ++k) {
            const std::int16_t* line = at(i - 1, j - 1 + k);
            patch.setLine(k, line);
        }
    } else {
        readEdgePatch(i, j, patch);
    }
}

void TileSurface::readEdgePatch(std::int32_t i, std::int32_t j, SamplePatch& patch) const {
    for (std::int32_t k = 0; k < 4; ++k) {
        const std::int32_t line = j - 1 + k;
        patch.south[k] = Two{sampleOrExtrapolate(i - 1, line), sampleOrExtrapolate(i, line)};
        patch.north[k] = Two{sampleOrExtrapolate(i + 1, line), sampleOrExtrapolate(i + 2, line)};
    }
}

bool TileSurface::normal(double lat, double lon, unsigned char& x, unsigned char& y,
                         unsigned char& z) const {
    x = y = z = 0;
    // Latitude and longitude side by side.
    const Two point{lat, lon};
    const Two origin{mGrid.latOrigin, mGrid.lonOrigin};
    const Two spacing{mGrid.latSpacing, mGrid.lonSpacing};
    const Two steps = (point - origin) / spacing;
    const auto i = static_cast<std::int32_t>(steps[0]);
    const auto j = static_cast<std::int32_t>(steps[1]);
    if (i < 0 || i > static_cast<std::int32_t>(mGrid.numLat) - 1 || j < 0 ||
        j >= static_cast<std::int32_t>(mGrid.numLon) - 1) {
        return false;
    }
    const Two post{static_cast<double>(i), static_cast<double>(j)};
    const Two within = (point - (post * spacing + origin)) / spacing;
    SamplePatch patch;
    readPatch(i, j, patch);
    // The spacings are the ones of the axis along which the four values of a slope were
    // interpolated, not of the axis along which it rises.
    const auto alongLon = patch.dividedBy(mLatSpacingM).cubicsAlongLines(within[0]);
    const auto alongLat = patch.dividedBy(mLonSpacingM).cubicsAcrossLines(within[1]);
    const Two slopes = Math::Detail::cubicDerivate<Two>(
        Two{alongLon[0], alongLat[0]}, Two{alongLon[1], alongLat[1]}, Two{alongLon[2], alongLat[2]},
        Two{alongLon[3], alongLat[3]}, Two{within[1], within[0]});
    const auto a = static_cast<float>(slopes[0]);
    const auto b = static_cast<float>(slopes[1]);
    const float length = std::sqrt(a * a + b * b + 1.0F);
    x = packComponent(-a / length);
    y = packComponent(-b / length);
    z = packComponent(1.0F / length);
    return true;
}

}  // namespace Orlek::Detail
