// Colours as text.
#pragma once

#include <optional>
#include <string>

#include "Colours.h"

namespace MovingMap {

/// Reads "#RRGGBB", two hexadecimal digits for each of red, green and blue, small or large. Nothing
/// for any other text.
std::optional<Colour> parseColour(const std::string& text);

/// "#FF1ADB"; the opacity is left out.
std::string colourText(const Colour& colour);

}  // namespace MovingMap
