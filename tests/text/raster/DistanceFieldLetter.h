// The distance field of a coverage image, as its rules read, step by step and pixel by pixel: slow,
// and what the library's own transform must equal in every byte.
//
// All arithmetic is in single precision except where a comparison is said to be double.
#pragma once

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
          mPixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {
        for (int y = 1; y <= height - 2; ++y) {
            for (int x = 1; x <= width - 2; ++x) {
                seed(x, y);
            }
        }
        for (mIterations = 1; mIterations <= 10; ++mIterations) {
            if (!iterate()) {
                break;
            }
        }
    }

    std::uint8_t output(int x, int y, float radius) const {
        float d = std::sqrt(at(x, y).squared) * (1.0F / radius);
        if (image(x, y) > 127) {
            d = -d;
        }
        float value = 0.5F - 0.5F * d;
        if (value < 0.0F) {
            value = 0.0F;
        }
        if (value > 1.0F) {
            value = 1.0F;
        }
        return static_cast<std::uint8_t>(value * 255.0F);
    }

    /// The whole field, rows of the image's width.
    std::vector<std::uint8_t> field(float radius) const {
        std::vector<std::uint8_t> bytes;
        bytes.reserve(mPixels.size());
        for (int y = 0; y < mHeight; ++y) {
            for (int x = 0; x < mWidth; ++x) {
                bytes.push_back(output(x, y, radius));
            }
        }
        return bytes;
    }

    /// Iterations that were begun: 11 when the limit of 10 ended them.
    int iterations() const { return mIterations; }

private:
    struct State {
        float squared = 1e37F;
        float px = 0.0F;
        float py = 0.0F;
    };
    struct Step {
        int dx;
        int dy;
    };

    int image(int x, int y) const { return mImage[y * mStride + x]; }
    float value(int x, int y) const { return static_cast<float>(image(x, y)); }
    std::size_t index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(mWidth) +
               static_cast<std::size_t>(x);
    }
    const State& at(int x, int y) const { return mPixels[index(x, y)]; }

    static float squaredDistance(int x, int y, float px, float py) {
        const float dx = static_cast<float>(x) - px;
        const float dy = static_cast<float>(y) - py;
        return dx * dx + dy * dy;
    }

    void seed(int x, int y) {
        const int a = image(x, y);
        if (a == 255) {
            return;
        }
        const bool besideFull = image(x - 1, y) == 255 || image(x + 1, y) == 255 ||
                                image(x, y - 1) == 255 || image(x, y + 1) == 255;
        if (a == 0 && !besideFull) {
            return;
        }
        const float root = 1.4142137F;
        float gx = -value(x - 1, y - 1) - root * value(x - 1, y) - value(x - 1, y + 1) +
                   value(x + 1, y - 1) + root * value(x + 1, y) + value(x + 1, y + 1);
        float gy = -value(x - 1, y - 1) - root * value(x, y - 1) - value(x + 1, y - 1) +
                   value(x - 1, y + 1) + root * value(x, y + 1) + value(x + 1, y + 1);
        if (std::fabs(gx) < 0.001F && std::fabs(gy) < 0.001F) {
            return;
        }
        if (gx * gx + gy * gy > 0.0001F) {
            const float inverse = 1.0F / std::sqrt(gx * gx + gy * gy);
            gx *= inverse;
            gy *= inverse;
        }
        const float df = edgeOffset(gx, gy, static_cast<float>(a) / 255.0F);
        State& state = mPixels[index(x, y)];
        state.px = static_cast<float>(x) + gx * df;
        state.py = static_cast<float>(y) + gy * df;
        state.squared = squaredDistance(x, y, state.px, state.py);
    }

    static float edgeOffset(float gx, float gy, float c) {
        if (gx == 0.0F || gy == 0.0F) {
            return 0.5F - c;
        }
        float g1 = std::fabs(gx);
        float g2 = std::fabs(gy);
        if (g1 < g2) {
            std::swap(g1, g2);
        }
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
                changed |= visit<true>(x, y, {{{-1, -1}, {0, -1}, {1, -1}, {-1, 0}}});
            }
        }
        for (int y = mHeight - 2; y >= 1; --y) {
            for (int x = mWidth - 2; x >= 1; --x) {
                changed |= visit<false>(x, y, {{{1, 0}, {-1, 1}, {0, 1}, {1, 1}}});
            }
        }
        return changed;
    }

    struct Steps {
        Step list[4];
    };

    template <bool forward>
    bool visit(int x, int y, const Steps& steps) {
        State& here = mPixels[index(x, y)];
        const float before = here.squared;
        State best = here;
        bool taken = false;
        for (int i = 0; i < 4; ++i) {
            const State& n = at(x + steps.list[i].dx, y + steps.list[i].dy);
            // The last neighbour of the forward sweep meets the distance from before the visit.
            const float limit = forward && i == 3 ? before : best.squared;
            if (limit > n.squared) {
                const float d = squaredDistance(x, y, n.px, n.py);
                if (best.squared > d + 0.001F) {
                    best = {d, n.px, n.py};
                    taken = true;
                }
            }
        }
        if (taken) {
            here = best;
        }
        return taken;
    }

    const std::uint8_t* mImage;
    int mWidth;
    int mHeight;
    int mStride;
    std::vector<State> mPixels;
    int mIterations = 0;
};

}  // namespace OrlekTest
