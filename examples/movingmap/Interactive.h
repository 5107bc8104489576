// The map in a window.
#pragma once

#include "Charts.h"
#include "Flight.h"
#include "LastView.h"
#include "LiveFlight.h"

namespace MovingMap {

/// Flies the route in the window until it is closed or Escape is pressed.
///
/// Mouse: drag pans, the wheel zooms. Keys: arrows pan, + and - zoom, H turns the map north or
/// heading up, C centres it on the aircraft again, space holds the flight, Escape quits.
/// Throws std::runtime_error when there is no font, or the last picture cannot be written.
/// @param[out] left how the map is left, in each frame
void showWindow(OrlekSupport::Screen& screen, const Options& options, const Flight& flight,
                Orlek::Geodetic::HeightMap& terrain, const Charts& charts, LiveFlight* live,
                LastView& left);

}  // namespace MovingMap
