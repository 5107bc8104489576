// A contour line runs where the height passes a step between a pixel and its neighbour to the east
// or south.
#include "TopoMap.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <stdexcept>
#include <vector>

#include "Cover.h"
#include "Terrain.h"

namespace MovingMap {

namespace {

constexpr double contourStepM = 100.0 * metresPerFoot;
constexpr int boldEvery = 5;

struct Post {
    bool known = false;
    double heightM = 0.0;
    double up = 1.0;  // Of the surface normal.
};

Rgba landClass(const Post& post) {
    constexpr double steep = 0.80;    // 37 degrees.
    constexpr double gentle = 0.992;  // 7 degrees.
    if (post.up < steep) {
        return {172, 158, 142, 255};
    }
    return post.up > gentle ? Rgba{236, 230, 190, 255} : Rgba{150, 186, 132, 255};
}

class TopoMap {
public:
    TopoMap(Orlek::Geodetic::HeightMap& terrain, const Bounds& bounds, int width, int height)
        : mWidth(width), mHeight(height) {
        for (int row = 0; row < height; ++row) {
            for (int column = 0; column < width; ++column) {
                mPosts.push_back(
                    postAt(terrain, {std::lerp(bounds.north, bounds.south, (row + 0.5) / height),
                                     std::lerp(bounds.west, bounds.east, (column + 0.5) / width)}));
            }
        }
    }

    Rgba colour(int column, int row) const {
        const Post& post = at(column, row);
        if (!post.known) {
            return {200, 200, 200, 255};
        }
        const std::optional<int> contour = contourAt(column, row);
        if (!contour) {
            return post.heightM < 0.5 ? waterCover(1.0) : landClass(post);
        }
        return *contour % boldEvery == 0 ? Rgba{110, 70, 40, 255} : Rgba{176, 136, 96, 255};
    }

private:
    static Post postAt(Orlek::Geodetic::HeightMap& terrain, const Position& position) {
        const PackedNormal normal = normalAt(terrain, position);
        if (!isTerrain(normal)) {
            return {};
        }
        return {true, terrain.getAltitude(position.lat, position.lon, true, false),
                normal.z / 127.5 - 1.0};
    }

    const Post& at(int column, int row) const {
        const int x = std::min(column, mWidth - 1);
        const int y = std::min(row, mHeight - 1);
        return mPosts[static_cast<std::size_t>(y) * static_cast<std::size_t>(mWidth) +
                      static_cast<std::size_t>(x)];
    }

    // The number of the contour line that runs through a pixel.
    std::optional<int> contourAt(int column, int row) const {
        const auto band = [](const Post& post) {
            return static_cast<int>(std::floor(post.heightM / contourStepM));
        };
        const int here = band(at(column, row));
        for (const Post& other : {at(column + 1, row), at(column, row + 1)}) {
            if (other.known && band(other) != here) {
                return std::max(here, band(other));
            }
        }
        return std::nullopt;
    }

    int mWidth;
    int mHeight;
    std::vector<Post> mPosts;
};

}  // namespace

OrlekSupport::Image drawTopoMap(Orlek::Geodetic::HeightMap& terrain, const Bounds& bounds,
                                int width) {
    const double middle = (bounds.north + bounds.south) / 2.0 * 0.017453292519943295;
    const double aspect =
        (bounds.north - bounds.south) / ((bounds.east - bounds.west) * std::cos(middle));
    if (!(width * aspect <= 8192.0)) {
        throw std::runtime_error("the map would be higher than 8192 pixels");
    }
    const int height = std::max(1, static_cast<int>(std::lround(width * aspect)));
    const TopoMap map(terrain, bounds, width, height);
    OrlekSupport::Image image(width, height);
    auto out = image.rgba.begin();
    for (int row = 0; row < height; ++row) {
        for (int column = 0; column < width; ++column) {
            const Rgba colour = map.colour(column, row);
            out = std::copy(colour.begin(), colour.end(), out);
        }
    }
    return image;
}

}  // namespace MovingMap
