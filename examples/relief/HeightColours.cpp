// The stops lie closer together in the lowlands, where most flights and most land are.
#include "HeightColours.h"

#include <algorithm>
#include <cmath>

namespace MovingMap {

namespace {

struct Stop {
    double heightM;
    Rgb colour;
};

constexpr Rgb rgb(int red, int green, int blue) {
    return {red / 255.0, green / 255.0, blue / 255.0};
}

constexpr std::array<Stop, 12> stops = {{
    {-100.0, rgb(74, 116, 92)},
    {0.0, rgb(92, 142, 98)},
    {150.0, rgb(120, 164, 104)},
    {300.0, rgb(154, 186, 118)},
    {500.0, rgb(194, 204, 138)},
    {750.0, rgb(216, 200, 140)},
    {1050.0, rgb(202, 170, 116)},
    {1500.0, rgb(176, 138, 98)},
    {2100.0, rgb(150, 120, 100)},
    {2700.0, rgb(158, 146, 140)},
    {3400.0, rgb(212, 210, 210)},
    {4700.0, rgb(255, 255, 255)},
}};

double mix(double a, double b, double t) {
    return a + (b - a) * t;
}

std::uint8_t toByte(double component) {
    return static_cast<std::uint8_t>(std::lround(component * 255.0));
}

}  // namespace

Rgb heightColour(double heightM) {
    const double height = std::clamp(heightM, lowestColouredM, highestColouredM);
    const auto above = std::find_if(stops.begin() + 1, stops.end() - 1,
                                    [height](const Stop& stop) { return height < stop.heightM; });
    const Stop& high = *above;
    const Stop& low = *(above - 1);
    const double t = (height - low.heightM) / (high.heightM - low.heightM);
    return {mix(low.colour.red, high.colour.red, t), mix(low.colour.green, high.colour.green, t),
            mix(low.colour.blue, high.colour.blue, t)};
}

std::uint16_t heightCode(double heightM) {
    const double t = (heightM - lowestColouredM) / (highestColouredM - lowestColouredM);
    return static_cast<std::uint16_t>(std::clamp(t, 0.0, 1.0) * 65535.0 + 0.5);
}

double heightOf(std::uint16_t code) {
    return mix(lowestColouredM, highestColouredM, code / 65535.0);
}

std::array<std::uint8_t, 3 * colourTableSize> colourTable() {
    std::array<std::uint8_t, 3 * colourTableSize> table{};
    for (std::size_t i = 0; i < colourTableSize; ++i) {
        const double t = static_cast<double>(i) / (colourTableSize - 1);
        const Rgb colour = heightColour(mix(lowestColouredM, highestColouredM, t));
        table[3 * i] = toByte(colour.red);
        table[3 * i + 1] = toByte(colour.green);
        table[3 * i + 2] = toByte(colour.blue);
    }
    return table;
}

}  // namespace MovingMap
