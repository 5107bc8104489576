// Natural colours for elevations.
#pragma once

#include <array>
#include <cstdint>

namespace MovingMap {

struct Rgb {
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
};

constexpr double lowestColouredM = -100.0;
constexpr double highestColouredM = 4700.0;

/// The colour of land at a height in metres: greens, yellows, browns, greys, white. Components 0
/// to 1.
Rgb heightColour(double heightM);

/// The height as the relief's texture holds it: 0 is lowestColouredM, 65535 highestColouredM.
std::uint16_t heightCode(double heightM);

/// The height in metres of a code.
double heightOf(std::uint16_t code);

constexpr int colourTableSize = 1024;

/// The colours of all codes, evenly spaced, as red, green and blue bytes.
std::array<std::uint8_t, 3 * colourTableSize> colourTable();

}  // namespace MovingMap
