#include "text/raster/EdgeSeeds.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace Orlek::Detail {
namespace {

struct Gradient {
    float x;
    float y;
};

float coverage(const std::uint8_t* row, std::size_t x) {
    return static_cast<float>(row[x]);
}

std::uint64_t eightPixels(const std::uint8_t* pixels) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, pixels, sizeof bits);
    return bits;
}

bool crossed(const std::uint8_t* below, const std::uint8_t* row, const std::uint8_t* above,
             std::size_t x) {
    if (row[x] == 255) {
        return false;
    }
    return row[x] != 0 || row[x - 1] == 255 || row[x + 1] == 255 || below[x] == 255 ||
           above[x] == 255;
}

// Weighted with the square root of two along the axes.
Gradient gradientAt(const std::uint8_t* below, const std::uint8_t* row, const std::uint8_t* above,
                    std::size_t x) {
    constexpr float axis = 1.4142137F;
    const float sw = coverage(below, x - 1);
    const float s = coverage(below, x);
    const float se = coverage(below, x + 1);
    const float w = coverage(row, x - 1);
    const float e = coverage(row, x + 1);
    const float nw = coverage(above, x - 1);
    const float n = coverage(above, x);
    const float ne = coverage(above, x + 1);
    return {-sw - axis * w - nw + se + axis * e + ne, -sw - axis * s - se + nw + axis * n + ne};
}

/// How far the edge lies from the middle of a pixel of coverage c, along a gradient of unit length:
/// while c grows the edge cuts off a triangle, then a trapezium, then leaves a triangle.
float edgeOffset(const Gradient& gradient, float c) {
    if (gradient.x == 0.0F || gradient.y == 0.0F) {
        return 0.5F - c;
    }
    const float g1 = std::max(std::fabs(gradient.x), std::fabs(gradient.y));
    const float g2 = std::min(std::fabs(gradient.x), std::fabs(gradient.y));
    const float c1 = 0.5F * g2 / g1;
    if (c < c1) {
        return 0.5F * (g1 + g2) - std::sqrt(2.0F * g1 * g2 * c);
    }
    if (static_cast<double>(c) < 1.0 - static_cast<double>(c1)) {
        return (0.5F - c) * g1;
    }
    return std::sqrt(2.0F * g1 * g2 * (1.0F - c)) - 0.5F * (g1 + g2);
}

}  // namespace

bool emptyAround(const CoverageImage& image, std::size_t x, std::size_t y) {
    const std::uint8_t* const row = image.pixels + y * image.stride + x;
    return (eightPixels(row) | eightPixels(row - image.stride) | eightPixels(row + image.stride)) ==
               0 &&
           (row[-1] | row[8]) == 0;
}

bool seedEdge(const CoverageImage& image, const EdgeDistances& edges, std::size_t x,
              std::size_t y) {
    const std::uint8_t* const row = image.pixels + y * image.stride;
    const std::uint8_t* const below = row - image.stride;
    const std::uint8_t* const above = row + image.stride;
    if (!crossed(below, row, above, x)) {
        return false;
    }
    Gradient g = gradientAt(below, row, above, x);
    if (std::fabs(g.x) < 0.001F && std::fabs(g.y) < 0.001F) {
        return false;
    }
    const float squaredLength = g.x * g.x + g.y * g.y;
    if (squaredLength > 0.0001F) {
        const float scale = 1.0F / std::sqrt(squaredLength);
        g = {g.x * scale, g.y * scale};
    }
    const float offset = edgeOffset(g, coverage(row, x) / 255.0F);
    const auto column = static_cast<float>(x);
    const auto line = static_cast<float>(y);
    const std::size_t k = y * image.width + x;
    edges.x[k] = column + g.x * offset;
    edges.y[k] = line + g.y * offset;
    const float dx = edges.x[k] - column;
    const float dy = edges.y[k] - line;
    edges.squared[k] = dx * dx + dy * dy;
    return true;
}

}  // namespace Orlek::Detail
