// The units of what the map shows.
#pragma once

#include <string>

namespace MovingMap {

enum class DistanceUnit { nauticalMiles, kilometres };
enum class AltitudeUnit { feet, metres };

/// Speeds go with distances: knots or kilometres an hour.
struct Units {
    DistanceUnit distance = DistanceUnit::nauticalMiles;
    AltitudeUnit altitude = AltitudeUnit::feet;
};

double metresPer(DistanceUnit unit);
double metresPer(AltitudeUnit unit);

std::string symbol(DistanceUnit unit);  ///< "NM", "KM"
std::string symbol(AltitudeUnit unit);  ///< "FT", "M"

std::string distanceText(double metres, DistanceUnit unit);  ///< "3.4 NM", whole from 100 on
std::string lengthText(double metres, DistanceUnit unit);    ///< "2.5 NM", up to three digits
std::string heightText(double metres, AltitudeUnit unit);    ///< "1834 FT"
std::string speedText(double knots, DistanceUnit unit);      ///< "110 KT", "204 KM/H"

/// A limit of an airspace as its file has it; feet, which are a mere number there, in the unit.
std::string limitText(const std::string& limit, AltitudeUnit unit);

}  // namespace MovingMap
