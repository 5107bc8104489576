// One ray a pixel, from the aircraft's axes to the flat ground of the plane around the station.
#include "Camera.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace Instruments {

namespace {

using Rgb = std::array<double, 3>;

constexpr double fieldOfView = 56.0 * radian;
constexpr double metresPerFoot = 0.3048;
constexpr double groundFt = 900.0;
constexpr double hazeMetres = 9000.0;

constexpr Rgb haze{168, 190, 208};
constexpr Rgb zenith{58, 110, 180};
constexpr Rgb water{62, 104, 140};
constexpr Rgb asphalt{92, 92, 96};
constexpr std::array<Rgb, 5> crops{
    {{96, 128, 62}, {128, 140, 72}, {150, 138, 84}, {76, 108, 54}, {112, 98, 66}}};

Rgb mix(const Rgb& a, const Rgb& b, double share) {
    Rgb result{};
    for (std::size_t i = 0; i < result.size(); ++i) {
        result[i] = a[i] + (b[i] - a[i]) * share;
    }
    return result;
}

// A number that looks random for each field of the grid.
unsigned scatter(int column, int row) {
    unsigned value =
        static_cast<unsigned>(column) * 73856093U ^ static_cast<unsigned>(row) * 19349663U;
    value ^= value >> 13U;
    return value * 1274126177U >> 16U;
}

Rgb groundColour(double east, double north) {
    if (std::abs(north - 900.0 * std::sin(east / 2600.0) - 350.0 * std::sin(east / 900.0)) <
        140.0) {
        return water;
    }
    if (std::abs(north + 0.4 * east + 1500.0) < 18.0) {
        return asphalt;
    }
    const auto column = static_cast<int>(std::floor(east / 520.0));
    const auto row = static_cast<int>(std::floor(north / 380.0));
    return crops[scatter(column, row) % crops.size()];
}

// The unit vectors of the aircraft's axes in east, north, up.
struct Axes {
    std::array<double, 3> forward;
    std::array<double, 3> right;
    std::array<double, 3> up;
};

Axes axesOf(const FlightState& state) {
    const double sh = std::sin(state.headingDeg * radian);
    const double ch = std::cos(state.headingDeg * radian);
    const double sp = std::sin(state.pitchDeg * radian);
    const double cp = std::cos(state.pitchDeg * radian);
    const double sb = std::sin(state.bankDeg * radian);
    const double cb = std::cos(state.bankDeg * radian);
    const std::array<double, 3> level{ch, -sh, 0.0};
    const std::array<double, 3> lift{-sh * sp, -ch * sp, cp};
    Axes axes{{sh * cp, ch * cp, sp}, {}, {}};
    for (std::size_t i = 0; i < 3; ++i) {
        axes.right[i] = level[i] * cb - lift[i] * sb;
        axes.up[i] = lift[i] * cb + level[i] * sb;
    }
    return axes;
}

Rgb colourAlong(const std::array<double, 3>& ray, const FlightState& state) {
    const double length = std::hypot(ray[0], ray[1], ray[2]);
    const double climb = ray[2] / length;
    if (climb >= 0.0) {
        return mix(haze, zenith, std::min(1.0, climb * 3.0));
    }
    const double height = (state.altitudeFt - groundFt) * metresPerFoot;
    const double reach = height / -climb;
    if (reach > 20.0 * hazeMetres) {  // nothing else is left of its colour
        return haze;
    }
    const Rgb colour =
        groundColour(state.eastM + ray[0] / length * reach, state.northM + ray[1] / length * reach);
    return mix(colour, haze, 1.0 - std::exp(-reach / hazeMetres));
}

}  // namespace

Camera::Camera() : mFrame(std::size_t{3} * width * height) {}

const std::vector<std::uint8_t>& Camera::film(const FlightState& state) {
    const Axes axes = axesOf(state);
    const double focal = width / 2.0 / std::tan(fieldOfView / 2.0);
    std::uint8_t* byte = mFrame.data();
    for (unsigned y = 0; y < height; ++y) {
        for (unsigned x = 0; x < width; ++x) {
            const double sideways = (x + 0.5 - width / 2.0) / focal;
            const double upwards = (height / 2.0 - y - 0.5) / focal;
            std::array<double, 3> ray{};
            for (std::size_t i = 0; i < 3; ++i) {
                ray[i] = axes.forward[i] + axes.right[i] * sideways + axes.up[i] * upwards;
            }
            for (const double channel : colourAlong(ray, state)) {
                *byte++ = static_cast<std::uint8_t>(channel);
            }
        }
    }
    return mFrame;
}

}  // namespace Instruments
