// Pictures without a screen.
#pragma once

#include "Charts.h"
#include "Flight.h"
#include "LiveFlight.h"

namespace MovingMap {

/// Draws the options' picture or pictures into PNG files and prints their paths. Needs a GL context
/// whose framebuffer has their size.
/// @param live the feed to collect from before each picture; may be null
/// Throws std::runtime_error when there is no font, or a file cannot be written.
void drawPictures(const Options& options, const Flight& flight, Orlek::Geodetic::HeightMap& terrain,
                  const Charts& charts, LiveFlight* live);

/// The path of a numbered picture: "a/map.png" and 7 of 120 give "a/map-007.png".
std::string numberedPath(const std::string& path, int number, int count);

}  // namespace MovingMap
