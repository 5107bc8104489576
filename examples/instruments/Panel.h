// The whole panel: primary flight display on the left, horizontal situation on the right.
#pragma once

#include <string>

#include "Canvas.h"
#include "Flight.h"
#include "VideoInset.h"

namespace Instruments {

/// Needs the GL context.
class Panel {
public:
    /// @param fontFile of the words; throws std::runtime_error when it cannot be used.
    explicit Panel(const std::string& fontFile);

    /// Draws a picture of this size in pixels. @param seconds since the start of the flight
    void draw(double seconds, int width, int height);

private:
    void drawFlightDisplay(const FlightState& state);
    void drawSituation(const FlightState& state, double seconds);
    void drawFlightData(const FlightState& state, double seconds);

    Flight mFlight;
    Canvas mCanvas;
    VideoInset mVideo;
};

}  // namespace Instruments
