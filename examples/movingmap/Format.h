// Numbers as pilots read them.
#pragma once

#include <cstddef>
#include <string>

namespace MovingMap {

std::string wholeNumber(double value);                             ///< "1234"
std::string direction(double degrees);                             ///< "007\xB0", 1 to 360
std::string counted(std::size_t count, const std::string& thing);  ///< "1 TARGET", "2 TARGETS"
std::string tenths(double value);                                  ///< "3.4", whole from 100 on
std::string threeDigits(double value);                             ///< "2.5", "40", "0.25"
std::string duration(double seconds);   ///< "04:12", "1:04:12" from an hour on
std::string latitudeText(double lat);   ///< "N36 18.40"
std::string longitudeText(double lon);  ///< "W084 14.75"

/// A coordinate in whole minutes for an edge of the map: "36\xB0" "20'N".
std::string latitudeLabel(double lat);
std::string longitudeLabel(double lon);

}  // namespace MovingMap
