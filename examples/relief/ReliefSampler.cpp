#include "ReliefSampler.h"

#include <algorithm>

#include "Cover.h"
#include "HeightColours.h"

namespace MovingMap {

namespace {

void setCover(const Rgba& colour, std::size_t texel, ReliefImage& image) {
    std::copy(colour.begin(), colour.end(),
              image.cover.begin() + static_cast<std::ptrdiff_t>(texel * 4));
}

}  // namespace

int samplesASide(double metresPerTexel) {
    constexpr double postsM = 120.0;
    return static_cast<int>(std::clamp(metresPerTexel / postsM + 0.5, 1.0, 3.0));
}

void resizeRelief(int width, int height, ReliefImage& image) {
    const auto texels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    image.width = width;
    image.height = height;
    image.normals.resize(texels * 4);
    image.cover.resize(texels * 4);
    image.complete = true;
}

void TexelSum::add(const PackedNormal& normal, double heightM) {
    static const NormalTable& table = normalTable();
    const NormalTexel& steep = table[static_cast<std::size_t>(normal.y * 256 + normal.x)];
    for (std::size_t i = 0; i < mNormal.size(); ++i) {
        mNormal[i] += steep[i];
    }
    mHeightM += heightM;
    mWater += waterShare(heightM);
    ++mCount;
}

void TexelSum::write(int column, int row, int step, ReliefImage& image) const {
    const std::size_t texel =
        static_cast<std::size_t>(row) * static_cast<std::size_t>(image.width) +
        static_cast<std::size_t>(column);
    if (mCount == 0) {
        image.complete = false;
        setCover(hatchCover(column * step, row * step), texel, image);
        return;
    }
    for (std::size_t i = 0; i < mNormal.size(); ++i) {
        image.normals[texel * 4 + i] = static_cast<std::uint16_t>(mNormal[i] / mCount);
    }
    image.normals[texel * 4 + 3] = heightCode(mHeightM / mCount);
    setCover(waterCover(mWater / mCount), texel, image);
}

}  // namespace MovingMap
