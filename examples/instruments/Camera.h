// A forward camera that films a made-up landscape: fields, a river and a road under the sky.
#pragma once

#include <cstdint>
#include <vector>

#include "Flight.h"

namespace Instruments {

class Camera {
public:
    static constexpr unsigned width = 288;
    static constexpr unsigned height = 162;

    Camera();

    /// The picture of a moment: rows of red, green and blue bytes, the top row first.
    const std::vector<std::uint8_t>& film(const FlightState& state);

private:
    std::vector<std::uint8_t> mFrame;
};

}  // namespace Instruments
