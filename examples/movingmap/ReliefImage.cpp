// Latitude and longitude are linear in the pixels of a flat map, so that a texel costs two
// additions, an elevation and a normal.
#include "ReliefImage.h"

#include <algorithm>
#include <array>

#include "Cover.h"
#include "HeightColours.h"
#include "NormalTable.h"
#include "Terrain.h"

namespace MovingMap {

namespace {

using Orlek::Geodetic::HeightMap;

// Water lies at sea level. Its edge is blended over the first metre of height, which a tile does
// not resolve anyway: bilinear steps would draw the coast as a staircase.
double waterShare(double heightM) {
    constexpr double lowest = -2.0;
    return heightM < lowest ? 0.0 : std::clamp(1.5 - heightM, 0.0, 1.0);
}

// What the terrain under a texel adds up to.
struct Sum {
    std::array<unsigned, 3> normal{};
    double heightM = 0.0;
    double water = 0.0;
    unsigned count = 0;

    void add(const NormalTexel& steep, double height) {
        for (std::size_t i = 0; i < normal.size(); ++i) {
            normal[i] += steep[i];
        }
        heightM += height;
        water += waterShare(height);
        ++count;
    }
};

class Sampler {
public:
    Sampler(HeightMap& terrain, const MapView& view, int step)
        : mTerrain(terrain),
          mTable(normalTable()),
          mStep(step),
          mSide(samplesASide(view.metresPerPixel() * step)) {
        const double distance = static_cast<double>(step) / mSide;
        const double first = distance / 2.0;
        mStart = view.toPosition(Point(first, first));
        mAlongX = difference(view.toPosition(Point(first + distance, first)), mStart);
        mAlongY = difference(view.toPosition(Point(first, first + distance)), mStart);
    }

    void sampleRow(ReliefImage& image, int row) {
        const auto first = static_cast<std::size_t>(row) * static_cast<std::size_t>(image.width);
        std::uint16_t* normal = image.normals.data() + first * 4;
        std::uint8_t* cover = image.cover.data() + first * 4;
        for (int column = 0; column < image.width; ++column, normal += 4, cover += 4) {
            const Rgba over = write(sumAt(column, row), column, row, normal);
            std::copy(over.begin(), over.end(), cover);
        }
    }

    bool complete() const { return mComplete; }

private:
    // Where texels are wider than the posts of common tiles, single samples would be noise.
    static int samplesASide(double metresPerTexel) {
        constexpr double postsM = 120.0;
        return std::clamp(static_cast<int>(metresPerTexel / postsM + 0.5), 1, 3);
    }

    static Position difference(const Position& a, const Position& b) {
        return {a.lat - b.lat, a.lon - b.lon};
    }

    Sum sumAt(int column, int row) {
        Sum sum;
        for (int y = row * mSide; y < (row + 1) * mSide; ++y) {
            for (int x = column * mSide; x < (column + 1) * mSide; ++x) {
                addSample({mStart.lat + mAlongX.lat * x + mAlongY.lat * y,
                           mStart.lon + mAlongX.lon * x + mAlongY.lon * y},
                          sum);
            }
        }
        return sum;
    }

    void addSample(const Position& at, Sum& sum) {
        const PackedNormal normal = normalAt(mTerrain, at);
        if (isTerrain(normal)) {
            sum.add(mTable[static_cast<std::size_t>(normal.y * 256 + normal.x)],
                    mTerrain.getAltitude(at.lat, at.lon, true, false));
        }
    }

    Rgba write(const Sum& sum, int column, int row, std::uint16_t* texel) {
        if (sum.count == 0) {
            mComplete = false;
            return hatchCover(column * mStep, row * mStep);
        }
        for (std::size_t i = 0; i < sum.normal.size(); ++i) {
            texel[i] = static_cast<std::uint16_t>(sum.normal[i] / sum.count);
        }
        texel[3] = heightCode(sum.heightM / sum.count);
        return waterCover(sum.water / sum.count);
    }

    HeightMap& mTerrain;
    const NormalTable& mTable;
    int mStep;
    int mSide;
    Position mStart;
    Position mAlongX;
    Position mAlongY;
    bool mComplete = true;
};

}  // namespace

void sampleRelief(HeightMap& terrain, const MapView& view, int step, ReliefImage& image) {
    image.width = (static_cast<int>(view.size().x) + step - 1) / step;
    image.height = (static_cast<int>(view.size().y) + step - 1) / step;
    const auto texels =
        static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height);
    image.normals.resize(texels * 4);
    image.cover.resize(texels * 4);
    Sampler sampler(terrain, view, step);
    for (int row = 0; row < image.height; ++row) {
        sampler.sampleRow(image, row);
    }
    image.complete = sampler.complete();
}

}  // namespace MovingMap
