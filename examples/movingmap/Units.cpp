// Everything inside is in metres; here it becomes text.
#include "Units.h"

#include "Format.h"
#include "Number.h"
#include "Position.h"

namespace MovingMap {

double metresPer(DistanceUnit unit) {
    return unit == DistanceUnit::kilometres ? 1000.0 : metresPerMile;
}

double metresPer(AltitudeUnit unit) {
    return unit == AltitudeUnit::metres ? 1.0 : metresPerFoot;
}

std::string symbol(DistanceUnit unit) {
    return unit == DistanceUnit::kilometres ? "KM" : "NM";
}

std::string symbol(AltitudeUnit unit) {
    return unit == AltitudeUnit::metres ? "M" : "FT";
}

std::string distanceText(double metres, DistanceUnit unit) {
    return tenths(metres / metresPer(unit)) + " " + symbol(unit);
}

std::string lengthText(double metres, DistanceUnit unit) {
    const double length = metres / metresPer(unit);
    return (length < 999.5 ? threeDigits(length) : wholeNumber(length)) + " " + symbol(unit);
}

std::string heightText(double metres, AltitudeUnit unit) {
    return wholeNumber(metres / metresPer(unit)) + " " + symbol(unit);
}

std::string speedText(double knots, DistanceUnit unit) {
    return wholeNumber(knots * metresPerMile / metresPer(unit)) +
           (unit == DistanceUnit::kilometres ? " KM/H" : " KT");
}

std::string limitText(const std::string& limit, AltitudeUnit unit) {
    const auto feet = OrlekSupport::parseNumber(limit, -2000, 1000000);
    return feet ? wholeNumber(*feet * metresPerFoot / metresPer(unit)) : limit;
}

}  // namespace MovingMap
