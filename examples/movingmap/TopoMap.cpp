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

// One row of pixels and the one below it: a whole map would take more memory than its picture.
class Rows {
public:
    Rows(Orlek::Geodetic::HeightMap& terrain, const Bounds& bounds, int width, int height)
        : mTerrain(terrain), mBounds(bounds), mWidth(width), mHeight(height), mBelow(postsAt(0)) {}

    void next() {
        ++mRow;
        mHere = mBelow;
        if (mRow + 1 < mHeight) {
            mBelow = postsAt(mRow + 1);
        }
    }

    Rgba colour(int column) const {
        const Post& post = mHere[static_cast<std::size_t>(column)];
        if (!post.known) {
            return {200, 200, 200, 255};
        }
        const std::optional<int> contour = contourAt(column);
        if (!contour) {
            return waterShare(post.heightM) == 1.0 ? waterCover(1.0) : landClass(post);
        }
        return *contour % boldEvery == 0 ? Rgba{110, 70, 40, 255} : Rgba{176, 136, 96, 255};
    }

private:
    std::vector<Post> postsAt(int row) const {
        std::vector<Post> posts;
        posts.reserve(static_cast<std::size_t>(mWidth));
        const double lat = std::lerp(mBounds.north, mBounds.south, (row + 0.5) / mHeight);
        for (int column = 0; column < mWidth; ++column) {
            posts.push_back(
                postAt({lat, std::lerp(mBounds.west, mBounds.east, (column + 0.5) / mWidth)}));
        }
        return posts;
    }

    Post postAt(const Position& position) const {
        const PackedNormal normal = normalAt(mTerrain, position);
        if (!isTerrain(normal)) {
            return {};
        }
        return {true, mTerrain.getAltitude(position.lat, position.lon, true, false),
                normal.z / 127.5 - 1.0};
    }

    // The number of the contour line that runs through a pixel.
    std::optional<int> contourAt(int column) const {
        const auto band = [](const Post& post) {
            return static_cast<int>(std::floor(post.heightM / contourStepM));
        };
        const auto at = static_cast<std::size_t>(column);
        const int here = band(mHere[at]);
        for (const Post& other : {mHere[std::min(at + 1, mHere.size() - 1)], mBelow[at]}) {
            if (other.known && band(other) != here) {
                return std::max(here, band(other));
            }
        }
        return std::nullopt;
    }

    Orlek::Geodetic::HeightMap& mTerrain;
    Bounds mBounds;
    int mWidth;
    int mHeight;
    int mRow = -1;
    std::vector<Post> mHere;
    std::vector<Post> mBelow;
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
    Rows rows(terrain, bounds, width, height);
    OrlekSupport::Image image(width, height);
    auto out = image.rgba.begin();
    for (int row = 0; row < height; ++row) {
        rows.next();
        for (int column = 0; column < width; ++column) {
            const Rgba colour = rows.colour(column);
            out = std::copy(colour.begin(), colour.end(), out);
        }
    }
    return image;
}

}  // namespace MovingMap
