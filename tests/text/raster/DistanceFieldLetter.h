// The distance field of a coverage image, as its rules read, step by step and pixel by pixel: slow,
// and what the library's own transform must equal in every byte.
//
// All arithmetic is in single precision except where a comparison is said to be double.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace OrlekTest {

class DistanceFieldLetter {
public:
    DistanceFieldLetter(const std::uint8_t* image, int width, int height, int stride)
        : mImage(image),
          mWidth(width),
          mHeight(height),
          mStride(stride),
          mPixels(static_cast<std::size_t>(width * height)) {
        for (int y = 1; y <= height - 2; ++y) {
            for (int x = 1; x <= width - 2; ++x) {
                seed(x, y);
            }
        }
        for (int iteration = 0; iteration < 10 && iterate(); ++iteration) {
        }
    }

    /// The whole field, rows of the image's width.
    std::vector<std::uint8_t> field(float radius) {
        std::vector<std::uint8_t> bytes;
        for (int y = 0; y < mHeight; ++y) {
            for (int x = 0; x < mWidth; ++x) {
                const float d = std::sqrt(at(x, y).squared) * (1.0F / radius);
                const float value = 0.5F - 0.5F * (image(x, y) > 127 ? -d : d);
                bytes.push_back(static_cast<std::uint8_t>(std::clamp(value, 0.0F, 1.0F) * 255.0F));
            }
        }
        return bytes;
    }

private:
    struct State {
        float squared = 1e37F;
        float px = 0.0F;
        float py = 0.0F;
    };

    float image(int x, int y) const { return mImage[y * mStride + x]; }
    State& at(int x, int y) { return mPixels[static_cast<std::size_t>(y * mWidth + x)]; }

    static State measured(int x, int y, float px, float py) {
        const float dx = static_cast<float>(x) - px;
        const float dy = static_cast<float>(y) - py;
        return {dx * dx + dy * dy, px, py};
    }

    void seed(int x, int y) {
        const float a = image(x, y);
        const bool besideFull = image(x - 1, y) == 255 || image(x + 1, y) == 255 ||
                                image(x, y - 1) == 255 || image(x, y + 1) == 255;
        if (a == 255 || (a == 0 && !besideFull)) {
            return;
        }
        const float root = 1.4142137F;
        float gx = -image(x - 1, y - 1) - root * image(x - 1, y) - image(x - 1, y + 1) +
                   image(x + 1, y - 1) + root * image(x + 1, y) + image(x + 1, y + 1);
        float gy = -image(x - 1, y - 1) - root * image(x, y - 1) - image(x + 1, y - 1) +
                   image(x - 1, y + 1) + root * image(x, y + 1) + image(x + 1, y + 1);
        if (std::fabs(gx) < 0.001F && std::fabs(gy) < 0.001F) {
            return;
        }
        if (gx * gx + gy * gy > 0.0001F) {
            const float inverse = 1.0F / std::sqrt(gx * gx + gy * gy);
            gx *= inverse;
            gy *= inverse;
        }
        const float df = edgeOffset(gx, gy, a / 255.0F);
        at(x, y) = measured(x, y, static_cast<float>(x) + gx * df, static_cast<float>(y) + gy * df);
    }

    static float edgeOffset(float gx, float gy, float c) {
        if (gx == 0.0F || gy == 0.0F) {
            return 0.5F - c;
        }
        const auto [g2, g1] = std::minmax({std::fabs(gx), std::fabs(gy)});
        const float c1 = 0.5F * g2 / g1;
        if (c < c1) {
            return 0.5F * (g1 + g2) - std::sqrt(2.0F * g1 * g2 * c);
        }
        if (double{c} < 1.0 - double{c1}) {
            return (0.5F - c) * g1;
        }
        return std::sqrt(2.0F * g1 * g2 * (1.0F - c)) - 0.5F * (g1 + g2);
    }

    bool iterate() {
        bool changed = false;
        for (int y = 1; y <= mHeight - 2; ++y) {
            for (int x = 1; x <= mWidth - 2; ++x) {
                changed |= visit(x, y, {{-1, -1}, {0, -1}, {1, -1}, {-1, 0}}, true);
            }
        }
        for (int y = mHeight - 2; y >= 1; --y) {
            for (int x = mWidth - 2; x >= 1; --x) {
                changed |= visit(x, y, {{1, 0}, {-1, 1}, {0, 1}, {1, 1}}, false);
            }
        }
        return changed;
    }

    bool visit(int x, int y, const std::pair<int, int> (&steps)[4], bool forward) {
        const float before = at(x, y).squared;
        State best = at(x, y);
        bool taken = false;
        for (const auto& step : steps) {
            const State& n = at(x + step.first, y + step.second);
            // The last neighbour of the forward sweep meets the distance from before the visit.
            const float limit = forward && &step == &steps[3] ? before : best.squared;
            const State d = measured(x, y, n.px, n.py);
            if (limit > n.squared && best.squared > d.squared + 0.001F) {
                best = d;
                taken = true;
            }
        }
        at(x, y) = best;
        return taken;
    }

    const std::uint8_t* mImage;
    int mWidth;
    int mHeight;
    int mStride;
    std::vector<State> mPixels;
};

}  // namespace OrlekTest
