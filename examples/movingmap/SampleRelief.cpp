// Latitude and longitude are linear in the pixels of a flat map, so that a texel costs two
// additions, an elevation and a normal.
#include "SampleRelief.h"

#include <Orlek/Math/Scalar.h>

#include <algorithm>

#include "ReliefSampler.h"
#include "Terrain.h"

namespace MovingMap {

namespace {

// A coarse relief is that of a map which moves: it must be there within the time of a picture.
constexpr int mostSamplesMoving = 2;

Position difference(const Position& a, const Position& b) {
    return {a.lat - b.lat, a.lon - b.lon};
}

SampleGrid gridOf(const MapView& view, int step) {
    SampleGrid grid;
    grid.side = samplesASide(view.metresPerPixel() * step);
    if (step > 1) {
        grid.side = std::min(grid.side, mostSamplesMoving);
    }
    grid.step = step;
    const double distance = static_cast<double>(step) / grid.side;
    const double first = distance / 2.0;
    grid.start = view.toPosition(Point(first, first));
    grid.alongX = difference(view.toPosition(Point(first + distance, first)), grid.start);
    grid.alongY = difference(view.toPosition(Point(first, first + distance)), grid.start);
    return grid;
}

}  // namespace

void sampleRelief(Orlek::Geodetic::HeightMap& terrain, const MapView& view, int step,
                  ReliefImage& image) {
    const SampleGrid grid = gridOf(view, step);
    const auto ground = [&](const Position& place, PackedNormal& normal, double& heightM) {
        const Position at{place.lat, Orlek::Math::circLimit(place.lon, -180.0, 180.0)};
        normal = normalAt(terrain, at);
        if (!isTerrain(normal)) {
            return false;
        }
        heightM = terrain.getAltitude(at.lat, at.lon, true, false);
        return true;
    };
    resizeRelief((static_cast<int>(view.size().x) + step - 1) / step,
                 (static_cast<int>(view.size().y) + step - 1) / step, image);
    for (int row = 0; row < image.height; ++row) {
        for (int column = 0; column < image.width; ++column) {
            sampleTexel(grid, column, row, ground, image);
        }
    }
}

}  // namespace MovingMap
