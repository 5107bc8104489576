#include "text/raster/DistanceField.h"

#include <algorithm>
#include <cmath>

#include "text/raster/EdgeSeeds.h"
#include "text/raster/NearestSweeps.h"

namespace Orlek::Detail {
namespace {

/// 0.5 on the edge, more where `inside`.
std::uint8_t fieldValue(float squaredDistance, float scale, bool inside) {
    const float distance = std::sqrt(squaredDistance) * scale;
    const float value = 0.5F - 0.5F * (inside ? -distance : distance);
    return static_cast<std::uint8_t>(std::min(std::max(value, 0.0F), 1.0F) * 255.0F);
}

}  // namespace

void buildDistanceField(const CoverageImage& image, float radius, std::uint8_t* out,
                        std::size_t outStride, std::span<float> work) {
    constexpr int maxIterations = 10;
    const std::size_t pixels = image.width * image.height;
    const EdgeDistances edges{work.data(), work.data() + pixels, work.data() + 2 * pixels};
    NearestSweeps sweeps(image, edges);
    for (int i = 0; i < maxIterations && sweeps.iterate(); ++i) {
    }
    const float scale = 1.0F / radius;
    for (std::size_t y = 0; y < image.height; ++y) {
        const std::uint8_t* const from = image.pixels + y * image.stride;
        const float* const squared = edges.squared + y * image.width;
        std::uint8_t* const to = out + y * outStride;
        for (std::size_t x = 0; x < image.width; ++x) {
            to[x] = fieldValue(squared[x], scale, from[x] > 127);
        }
    }
}

}  // namespace Orlek::Detail
