#include "text/raster/DistanceField.h"

#include <algorithm>
#include <cmath>

namespace Orlek::Detail {
namespace {

constexpr float unreached = 1e37F;
constexpr float sqrt2 = 1.4142137F;
constexpr float slack = 0.001F;
constexpr int maxIterations = 10;

struct Point {
    float x;
    float y;
};

float squaredDistance(float x, float y, const Point& p) {
    const float dx = p.x - x;
    const float dy = p.y - y;
    return dx * dx + dy * dy;
}

/// How far the edge lies from the middle of a pixel of coverage c, along a gradient of unit length.
/// The edge cuts off a triangle while c is small, then a trapezium, then leaves a triangle.
float edgeOffset(const Point& gradient, float c) {
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

class Transform {
public:
    Transform(const CoverageImage& image, std::span<float> work)
        : mImage(image),
          mDistances(work.data()),
          mPoints(work.data() + image.width * image.height) {}

    void run();
    float distance(std::size_t k) const { return mDistances[k]; }

private:
    float at(std::size_t x, std::size_t y) const {
        return static_cast<float>(mImage.pixels[y * mImage.stride + x]);
    }
    Point point(std::size_t k) const { return {mPoints[2 * k], mPoints[2 * k + 1]}; }
    bool onEdge(std::size_t x, std::size_t y) const;
    Point gradient(std::size_t x, std::size_t y) const;
    void seed(std::size_t x, std::size_t y);
    bool sweepForward();
    bool sweepBackward();

    const CoverageImage& mImage;
    float* mDistances;
    float* mPoints;
};

bool Transform::onEdge(std::size_t x, std::size_t y) const {
    const float a = at(x, y);
    if (a == 255.0F) {
        return false;
    }
    return a != 0.0F || at(x - 1, y) == 255.0F || at(x + 1, y) == 255.0F ||
           at(x, y - 1) == 255.0F || at(x, y + 1) == 255.0F;
}

Point Transform::gradient(std::size_t x, std::size_t y) const {
    return {-at(x - 1, y - 1) - sqrt2 * at(x - 1, y) - at(x - 1, y + 1) + at(x + 1, y - 1) +
                sqrt2 * at(x + 1, y) + at(x + 1, y + 1),
            -at(x - 1, y - 1) - sqrt2 * at(x, y - 1) - at(x + 1, y - 1) + at(x - 1, y + 1) +
                sqrt2 * at(x, y + 1) + at(x + 1, y + 1)};
}

void Transform::seed(std::size_t x, std::size_t y) {
    if (!onEdge(x, y)) {
        return;
    }
    Point g = gradient(x, y);
    if (std::fabs(g.x) < slack && std::fabs(g.y) < slack) {
        return;
    }
    const float squaredLength = g.x * g.x + g.y * g.y;
    if (squaredLength > 0.0001F) {
        const float scale = 1.0F / std::sqrt(squaredLength);
        g = {g.x * scale, g.y * scale};
    }
    const float offset = edgeOffset(g, at(x, y) / 255.0F);
    const auto column = static_cast<float>(x);
    const auto row = static_cast<float>(y);
    const Point p{column + g.x * offset, row + g.y * offset};
    const std::size_t k = y * mImage.width + x;
    mPoints[2 * k] = p.x;
    mPoints[2 * k + 1] = p.y;
    mDistances[k] = squaredDistance(column, row, p);
}

bool Transform::sweepForward() {
    const std::size_t w = mImage.width;
    bool changed = false;
    for (std::size_t y = 1; y + 1 < mImage.height; ++y) {
        for (std::size_t x = 1; x + 1 < w; ++x) {
            const std::size_t k = y * w + x;
            const std::size_t neighbours[] = {k - w - 1, k - w, k - w + 1, k - 1};
            float best = mDistances[k];
            const float before = best;
            Point nearest{};
            bool taken = false;
            for (const std::size_t n : neighbours) {
                // The last neighbour is held against the distance before the visit.
                if ((n == k - 1 ? before : best) > mDistances[n]) {
                    const Point p = point(n);
                    const float d =
                        squaredDistance(static_cast<float>(x), static_cast<float>(y), p);
                    if (best > d + slack) {
                        best = d;
                        nearest = p;
                        taken = true;
                    }
                }
            }
            if (taken) {
                mPoints[2 * k] = nearest.x;
                mPoints[2 * k + 1] = nearest.y;
                mDistances[k] = best;
                changed = true;
            }
        }
    }
    return changed;
}

bool Transform::sweepBackward() {
    const std::size_t w = mImage.width;
    bool changed = false;
    for (std::size_t y = mImage.height - 2; y >= 1; --y) {
        for (std::size_t x = w - 2; x >= 1; --x) {
            const std::size_t k = y * w + x;
            const std::size_t neighbours[] = {k + 1, k + w - 1, k + w, k + w + 1};
            float best = mDistances[k];
            Point nearest{};
            bool taken = false;
            for (const std::size_t n : neighbours) {
                if (best > mDistances[n]) {
                    const Point p = point(n);
                    const float d =
                        squaredDistance(static_cast<float>(x), static_cast<float>(y), p);
                    if (best > d + slack) {
                        best = d;
                        nearest = p;
                        taken = true;
                    }
                }
            }
            if (taken) {
                mPoints[2 * k] = nearest.x;
                mPoints[2 * k + 1] = nearest.y;
                mDistances[k] = best;
                changed = true;
            }
        }
    }
    return changed;
}

void Transform::run() {
    const std::size_t pixels = mImage.width * mImage.height;
    std::fill_n(mDistances, pixels, unreached);
    std::fill_n(mPoints, 2 * pixels, 0.0F);
    if (mImage.width < 3 || mImage.height < 3) {
        return;
    }
    for (std::size_t y = 1; y + 1 < mImage.height; ++y) {
        for (std::size_t x = 1; x + 1 < mImage.width; ++x) {
            seed(x, y);
        }
    }
    for (int iteration = 0; iteration < maxIterations; ++iteration) {
        const bool forward = sweepForward();
        const bool backward = sweepBackward();
        if (!forward && !backward) {
            return;
        }
    }
}

}  // namespace

void buildDistanceField(const CoverageImage& image, float radius, std::uint8_t* out,
                        std::size_t outStride, std::span<float> work) {
    Transform transform(image, work);
    transform.run();
    const float scale = 1.0F / radius;
    for (std::size_t y = 0; y < image.height; ++y) {
        for (std::size_t x = 0; x < image.width; ++x) {
            float d = std::sqrt(transform.distance(y * image.width + x)) * scale;
            if (image.pixels[y * image.stride + x] > 127) {
                d = -d;
            }
            const float value = std::min(std::max(0.5F - 0.5F * d, 0.0F), 1.0F);
            out[y * outStride + x] = static_cast<std::uint8_t>(value * 255.0F);
        }
    }
}

}  // namespace Orlek::Detail
