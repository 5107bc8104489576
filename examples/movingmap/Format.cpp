// Rounded first, then split into degrees and minutes: 59.996 minutes are a whole degree.
#include "Format.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace MovingMap {

namespace {

template <typename... Values>
std::string format(const char* pattern, Values... values) {
    char text[64];
    std::snprintf(text, sizeof text, pattern, values...);
    return text;
}

std::string degreesMinutes(double degrees, const char* hemispheres, int width) {
    const long hundredths = std::lround(std::abs(degrees) * 6000.0);
    const bool negative = degrees < 0.0 && hundredths > 0;
    return format("%c%0*ld\xB0%02ld.%02ld'", hemispheres[negative ? 1 : 0], width,
                  hundredths / 6000, hundredths / 100 % 60, hundredths % 100);
}

std::string edgeLabel(double degrees, const char* hemispheres, int width) {
    const long minutes = std::lround(std::abs(degrees) * 60.0);
    return format("%0*ld\xB0%02ld'%c", width, minutes / 60, minutes % 60,
                  hemispheres[degrees < 0.0 && minutes > 0 ? 1 : 0]);
}

}  // namespace

std::string wholeNumber(double value) {
    return format("%ld", std::lround(value));
}

std::string counted(std::size_t count, const std::string& thing) {
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "S");
}

std::string direction(double degrees) {
    const long whole = (std::lround(degrees) % 360 + 360) % 360;
    return format("%03ld\xB0", whole == 0 ? 360 : whole);
}

std::string tenths(double value) {
    return format(value < 99.95 ? "%.1f" : "%.0f", value);
}

std::string threeDigits(double value) {
    return format("%.3g", value);
}

std::string duration(double seconds) {
    const long whole = std::lround(seconds);
    if (whole >= 3600) {
        return format("%ld:%02ld:%02ld", whole / 3600, whole / 60 % 60, whole % 60);
    }
    return format("%02ld:%02ld", whole / 60, whole % 60);
}

std::string latitudeText(double lat) {
    return degreesMinutes(lat, "NS", 2);
}

std::string longitudeText(double lon) {
    return degreesMinutes(lon, "EW", 3);
}

std::string latitudeLabel(double lat) {
    return edgeLabel(lat, "NS", 2);
}

std::string longitudeLabel(double lon) {
    return edgeLabel(lon, "EW", 3);
}

}  // namespace MovingMap
