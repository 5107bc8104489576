// Reads the fields of a DTED user header label.
#include "terrain/tiles/DtedHeader.h"

namespace Orlek::Detail {

namespace {

/// `atoi` of a field: white space, a sign, digits; the rest is ignored. Fields have at most four
/// characters, so nothing overflows.
int fieldNumber(std::string_view field) {
    std::size_t at = 0;
    while (at < field.size() && (field[at] == ' ' || (field[at] >= '\t' && field[at] <= '\r'))) {
        ++at;
    }
    const bool negative = at < field.size() && field[at] == '-';
    if (at < field.size() && (field[at] == '-' || field[at] == '+')) {
        ++at;
    }
    int value = 0;
    for (; at < field.size() && field[at] >= '0' && field[at] <= '9'; ++at) {
        value = value * 10 + (field[at] - '0');
    }
    return negative ? -value : value;
}

/// DDDMMSSH in degrees, negated when H is the upper-case letter `negative`.
double fieldAngle(std::string_view field, char negative) {
    const double degrees = fieldNumber(field.substr(0, 3)) +
                           fieldNumber(field.substr(3, 2)) / 60.0 +
                           fieldNumber(field.substr(5, 2)) / 3600.0;
    return field[7] == negative ? -degrees : degrees;
}

bool validCount(int count) {
    return count >= 2 && count <= 9999;
}

}  // namespace

std::optional<TileGrid> parseDtedHeader(std::string_view label) {
    if (label.size() < dtedLabelSize) {
        return std::nullopt;
    }
    const int lonInterval = fieldNumber(label.substr(20, 4));
    const int latInterval = fieldNumber(label.substr(24, 4));
    const int numLon = fieldNumber(label.substr(47, 4));
    const int numLat = fieldNumber(label.substr(51, 4));
    if (lonInterval <= 0 || latInterval <= 0 || !validCount(numLon) || !validCount(numLat)) {
        return std::nullopt;
    }
    return TileGrid{.latOrigin = fieldAngle(label.substr(12, 8), 'S'),
                    .lonOrigin = fieldAngle(label.substr(4, 8), 'W'),
                    .latSpacing = latInterval / 36000.0,
                    .lonSpacing = lonInterval / 36000.0,
                    .numLat = static_cast<std::uint32_t>(numLat),
                    .numLon = static_cast<std::uint32_t>(numLon)};
}

}  // namespace Orlek::Detail
