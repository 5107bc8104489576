// The terrain class blends one map texture into the whole strip; where the map has nothing, its
// texels therefore repeat the colour of the height, which leaves the relief as it is.
#include "MapImage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "Cover.h"
#include "HeightColours.h"
#include "LocalGrid.h"
#include "Png.h"
#include "TextLines.h"

namespace MovingMap {

namespace {

using Colour4 = std::array<double, 4>;

constexpr double metresPerDegree = 60.0 * metresPerMile;

// Positions of a view are linear in its pixels.
class Grid {
public:
    Grid(const MapView& view, double step)
        : mOrigin(view.toPosition(Point(0.0, 0.0))),
          mRight(difference(view.toPosition(Point(step, 0.0)))),
          mUp(difference(view.toPosition(Point(0.0, step)))) {}

    Position at(double column, double row) const {
        return {mOrigin.lat + mRight.lat * column + mUp.lat * row,
                mOrigin.lon + mRight.lon * column + mUp.lon * row};
    }

private:
    Position difference(const Position& other) const {
        return {other.lat - mOrigin.lat, other.lon - mOrigin.lon};
    }

    Position mOrigin;
    Position mRight;
    Position mUp;
};

// The mean colour of a texel, from as many samples a side as it takes to miss few pixels.
Colour4 sample(const MapImage& map, const Grid& grid, int column, int row, int side) {
    Colour4 sum{};
    for (int i = 0; i < side * side; ++i) {
        const Colour4 colour =
            map.at(grid.at(column + (i % side + 0.5) / side, row + (i / side + 0.5) / side));
        for (std::size_t c = 0; c < 3; ++c) {
            sum[c] += colour[c] * colour[3];
        }
        sum[3] += colour[3];
    }
    for (std::size_t c = 0; c < 3 && sum[3] > 0.0; ++c) {
        sum[c] /= sum[3];
    }
    sum[3] /= 255.0 * side * side;
    return sum;
}

std::uint8_t mixed(double a, double b, double share) {
    return static_cast<std::uint8_t>(std::lround(a + (b - a) * share));
}

}  // namespace

Bounds parseBounds(const std::string& text) {
    const Fields fields = fieldsOf(text);
    if (fields.size() != 4) {
        throw std::runtime_error("expected south,west,north,east, not '" + text + "'");
    }
    const Position low = positionFields(fields[0], fields[1]);
    const Position high = positionFields(fields[2], fields[3]);
    if (!(low.lat < high.lat && low.lon < high.lon)) {
        throw std::runtime_error("south and west are below north and east, not '" + text + "'");
    }
    return {low.lat, low.lon, high.lat, high.lon};
}

MapImage::MapImage(OrlekSupport::Image image, const Bounds& bounds)
    : mImage(std::move(image)), mBounds(bounds) {}

double MapImage::metresPerPixel() const {
    return (mBounds.north - mBounds.south) * metresPerDegree / mImage.height;
}

Colour4 MapImage::at(const Position& position) const {
    const double lon = longitudeNear((mBounds.west + mBounds.east) / 2.0, position.lon);
    const double u = (lon - mBounds.west) / (mBounds.east - mBounds.west);
    const double v = (mBounds.north - position.lat) / (mBounds.north - mBounds.south);
    if (!(u >= 0.0 && u <= 1.0 && v >= 0.0 && v <= 1.0)) {
        return {};
    }
    const double x = std::clamp(u * mImage.width - 0.5, 0.0, mImage.width - 1.0);
    const double y = std::clamp(v * mImage.height - 0.5, 0.0, mImage.height - 1.0);
    const int left = static_cast<int>(x);
    const int top = static_cast<int>(y);
    // Colours count as much as they cover: what is transparent has none.
    Colour4 colour{};
    const auto add = [&](int column, int row, double share) {
        const auto pixel = static_cast<std::size_t>(std::min(row, mImage.height - 1)) *
                               static_cast<std::size_t>(mImage.width) +
                           static_cast<std::size_t>(std::min(column, mImage.width - 1));
        const std::uint8_t* const rgba = &mImage.rgba[pixel * 4];
        const double cover = share * rgba[3];
        for (std::size_t c = 0; c < 3; ++c) {
            colour[c] += cover * rgba[c];
        }
        colour[3] += cover;
    };
    add(left, top, (left + 1 - x) * (top + 1 - y));
    add(left + 1, top, (x - left) * (top + 1 - y));
    add(left, top + 1, (left + 1 - x) * (y - top));
    add(left + 1, top + 1, (x - left) * (y - top));
    for (std::size_t c = 0; c < 3 && colour[3] > 0.0; ++c) {
        colour[c] /= colour[3];
    }
    return colour;
}

MapImage readMapImage(const std::string& path, const Bounds& bounds) {
    return {OrlekSupport::readPng(path), bounds};
}

void layMap(const MapImage& map, double share, const MapView& view, int step, ReliefImage& relief) {
    const Grid grid(view, step);
    const int side = static_cast<int>(
        std::clamp(std::ceil(view.metresPerPixel() * step / map.metresPerPixel()), 1.0, 4.0));
    static const auto heights = colourTable();
    relief.map.resize(relief.cover.size());
    for (int row = 0; row < relief.height; ++row) {
        for (int column = 0; column < relief.width; ++column) {
            const auto texel =
                (static_cast<std::size_t>(row) * static_cast<std::size_t>(relief.width) +
                 static_cast<std::size_t>(column)) *
                4;
            const Colour4 colour = sample(map, grid, column, row, side);
            const std::size_t height =
                std::size_t{relief.normals[texel + 3]} * (colourTableSize - 1) / 65535 * 3;
            std::uint8_t* cover = &relief.cover[texel];
            const double overWater = isWater(cover) ? share * colour[3] : 0.0;
            for (std::size_t c = 0; c < 3; ++c) {
                relief.map[texel + c] = mixed(heights[height + c], colour[c], colour[3]);
                cover[c] = mixed(cover[c], colour[c], overWater);
            }
            relief.map[texel + 3] = 255;
        }
    }
}

}  // namespace MovingMap
