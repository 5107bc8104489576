// Water and the hatching have nothing but their opacity in common.
#include "Cover.h"

#include <algorithm>

namespace MovingMap {

namespace {

constexpr std::array<std::uint8_t, 3> waterRgb{118, 160, 196};

}  // namespace

// Water lies at sea level. Its edge is blended over the first metre of height, which a tile does
// not resolve anyway: bilinear steps would draw the coast as a staircase.
double waterShare(double heightM) {
    constexpr double lowest = -2.0;
    return heightM < lowest ? 0.0 : std::clamp(1.5 - heightM, 0.0, 1.0);
}

Rgba waterCover(double share) {
    return {waterRgb[0], waterRgb[1], waterRgb[2], static_cast<std::uint8_t>(share * 255.0)};
}

Rgba hatchCover(int x, int y) {
    constexpr int spacing = 14;
    constexpr int width = 2;
    const bool line = (x + y) % spacing < width;
    return line ? Rgba{112, 116, 124, 255} : Rgba{74, 78, 86, 255};
}

bool isWater(const std::uint8_t* cover) {
    return cover[3] >= 128 && cover[0] == waterRgb[0];
}

}  // namespace MovingMap
