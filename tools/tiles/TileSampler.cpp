#include "TileSampler.h"

#include <algorithm>
#include <cmath>

#include "Examine.h"
#include "terrain/tiles/TileKey.h"

namespace OrlekTiles {

namespace {

using namespace Orlek::Detail;
using namespace MovingMap;

constexpr double metresPerDegree = 60.0 * metresPerMile;

SampleGrid gridOf(const Area& area, int width, int height, double metresPerTexel) {
    SampleGrid grid;
    grid.side = samplesASide(metresPerTexel);
    grid.alongX = {0.0, (area.east - area.west) / width / grid.side};
    grid.alongY = {(area.north - area.south) / height / grid.side, 0.0};
    grid.start = {area.south + grid.alongY.lat / 2.0, area.west + grid.alongX.lon / 2.0};
    return grid;
}

double onGlobe(double lon) {
    return lon > 180.0 ? lon - 360.0 : lon;
}

/// The texels along an axis that may lie between two bounds, with one to spare at either end.
int texel(double bound, double low, double high, int count, double spare) {
    const double at = (bound - low) / (high - low) * count + spare;
    return static_cast<int>(std::clamp(at, 0.0, static_cast<double>(count)));
}

}  // namespace

TileSampler::TileSampler(const Inventory& inventory, const Area& area, int width, int height,
                         ReliefImage& image)
    : mArea(area),
      mWidth(width),
      mHeight(height),
      mMetresPerTexel((area.north - area.south) * metresPerDegree / height),
      mGrid(gridOf(area, width, height, mMetresPerTexel)),
      mImage(image) {
    for (const TileFile& file : inventory.files) {
        if (!file.notTaken && !file.tile->lowRes()) {
            mHighCells.insert(file.tile->key());
        }
    }
    resizeRelief(width, height, image);
    for (int row = 0; row < height; ++row) {
        for (int column = 0; column < width; ++column) {
            TexelSum().write(column, row, mGrid.step, image);
        }
    }
    image.complete = true;
}

TileSampler::Range TileSampler::columnsOf(const Area& area) const {
    return {texel(area.west, mArea.west, mArea.east, mWidth, -1.0),
            texel(area.east, mArea.west, mArea.east, mWidth, 2.0)};
}

TileSampler::Range TileSampler::rowsOf(const Area& area) const {
    return {texel(area.south, mArea.south, mArea.north, mHeight, -1.0),
            texel(area.north, mArea.south, mArea.north, mHeight, 2.0)};
}

bool TileSampler::owns(const HeightTile& tile, int column, int row) const {
    const double lat = mArea.south + (mArea.north - mArea.south) * (row + 0.5) / mHeight;
    const double lon = mArea.west + (mArea.east - mArea.west) * (column + 0.5) / mWidth;
    const TileKey key = queryKey(lat, onGlobe(lon));
    return tile.lowRes() ? lowResKey(key) == tile.key() && !mHighCells.contains(key)
                         : key == tile.key();
}

void TileSampler::sample(const HeightTile& tile, Range columns, int row) {
    const auto ground = [&tile](const Position& at, PackedNormal& normal, double& heightM) {
        const double lon = onGlobe(at.lon);
        return tile.normal(at.lat, lon, normal.x, normal.y, normal.z) &&
               tile.altitude(at.lat, lon, heightM);
    };
    for (int column = columns.first; column < columns.end; ++column) {
        if (owns(tile, column, row)) {
            sampleTexel(mGrid, column, row, ground, mImage);
            ++mSampled;
        }
    }
}

std::optional<Reason> TileSampler::add(const TileFile& file) {
    if (auto reason = load(file)) {
        return reason;
    }
    HeightTile& tile = *file.tile;
    const Area area = areaOf(file);
    const Range columns = columnsOf(shifted(area, shiftOnto(area, mArea).value_or(0.0)));
    const Range rows = rowsOf(area);
    for (int row = rows.first; row < rows.end; ++row) {
        sample(tile, columns, row);
    }
    tile.unload();
    return std::nullopt;
}

}  // namespace OrlekTiles
