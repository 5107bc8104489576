// Pictures from formulas; the camera's pixels each look along a ray onto the ground or into the
// sky.
#include "Images.h"

#include <algorithm>
#include <cmath>

#include "Sheet.h"

namespace Gallery {

namespace {

Colour mix(const Colour& a, const Colour& b, double share) {
    const auto s = static_cast<float>(std::clamp(share, 0.0, 1.0));
    return {a.x + s * (b.x - a.x), a.y + s * (b.y - a.y), a.z + s * (b.z - a.z), 1.0F};
}

// What lies in a direction: across and above the horizon in pixels.
Colour view(double across, double above, double seconds) {
    const Colour haze(0.75F, 0.85F, 0.95F, 1.0F);
    if (above >= 0.0) {
        return mix(haze, blue, above / 110.0);
    }
    const double depth = 900.0 / (1.0 - above);
    const double x = across * depth / 160.0;
    const double z = depth + 40.0 * seconds;
    const bool odd = std::fmod(std::floor(x / 40.0) + std::floor(z / 40.0), 2.0) != 0.0;
    const bool paint = std::abs(x) > 13.0 || (std::abs(x) < 0.7 && std::fmod(z, 24.0) < 14.0);
    const Colour runway = paint ? white : Colour(0.25F, 0.26F, 0.28F, 1.0F);
    const Colour field = odd ? Colour(0.25F, 0.45F, 0.2F, 1.0F) : Colour(0.4F, 0.5F, 0.25F, 1.0F);
    return mix(std::abs(x) < 14.0 ? runway : field, haze, depth / 500.0);
}

}  // namespace

std::vector<unsigned char> boardImage(int size, int square) {
    std::vector<unsigned char> rgba;
    for (int i = 0; i < size * size; ++i) {
        const int x = i % size, y = i / size;
        const bool arrow = 8 * y < 7 * size && std::abs(2 * x - size) < y - size / 8;
        const int light = arrow ? 255 : (x / square + y / square) % 2 == 0 ? 200 : 70;
        for (const int channel : {arrow ? light : light * y / size, light * 3 / 4, light, 255}) {
            rgba.push_back(static_cast<unsigned char>(channel));
        }
    }
    return rgba;
}

std::vector<unsigned char> cameraFrame(int columns, int rows, double seconds) {
    std::vector<unsigned char> rgb;
    const double roll = 0.2 * std::sin(seconds);
    for (int i = 0; i < columns * rows; ++i) {
        const double x = i % columns - columns / 2;
        const double y = rows * 0.6 - i / columns;
        const Colour colour = view(x * std::cos(roll) + y * std::sin(roll),
                                   y * std::cos(roll) - x * std::sin(roll), seconds);
        for (const float channel : {colour.x, colour.y, colour.z}) {
            rgb.push_back(static_cast<unsigned char>(255.0F * channel));
        }
    }
    return rgb;
}

}  // namespace Gallery
