// How the user left the map.
#pragma once

#include <optional>
#include <string>

#include "Position.h"
#include "Units.h"

namespace MovingMap {

struct LastView {
    std::optional<Position> centre;  ///< Nothing: the map follows the aircraft.
    double rangeM = 0.0;
    bool headingUp = false;
};

/// Reads "latitude,longitude" in degrees; nothing for an empty text. @p name is that of the value
/// in messages. Throws std::runtime_error "name: 'text' is no latitude,longitude".
std::optional<Position> parseCentre(const std::string& name, const std::string& text);

/// Writes a view and all other settings to their file, which holds the old ones or the new ones
/// whatever happens. Throws std::runtime_error when that cannot be done.
void saveSettings(const std::string& file, const LastView& view, DistanceUnit unit);

}  // namespace MovingMap
