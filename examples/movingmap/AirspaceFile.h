// Airspace as text.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "Position.h"

namespace MovingMap {

enum class AirspaceKind { controlled, prohibited, training };

/// An airspace: what it is called and where it lies.
struct Airspace {
    std::string name;
    std::string type;     ///< As the file has it, in capitals.
    AirspaceKind kind{};  ///< How it looks.
    std::string floor;
    std::string ceiling;
    /// Closed outlines, each of at least three corners.
    std::vector<std::vector<Position>> outlines;
};

/// Reads airspace. Each line is one of these, its fields separated by commas:
///
///     airspace, name, type, floor, ceiling
///     point, latitude, longitude
///     circle, latitude, longitude, radius in nautical miles
///
/// The first begins an airspace; the points behind it are the corners of its outline, each circle
/// is an outline of its own and ends the one before. The type is a class, A to G, or restricted,
/// prohibited, danger or training; floor and ceiling are texts such as GND, 4500 or FL95. Latitude
/// and longitude are decimal degrees, north and east positive. Text from "#" on is a comment, empty
/// lines are skipped. @p source names the text in messages.
///
/// Throws std::runtime_error "source:line: reason" for a line that is none of these, and for an
/// airspace without an outline or with one of fewer than three corners; its line is that of the
/// airspace's beginning.
std::vector<Airspace> parseAirspace(std::istream& text, const std::string& source);

/// Reads airspace from a file. Throws also when the file cannot be read.
std::vector<Airspace> readAirspaceFile(const std::string& path);

/// The airspace around the default route.
std::vector<Airspace> defaultAirspace();

}  // namespace MovingMap
