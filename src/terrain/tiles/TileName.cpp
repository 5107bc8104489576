// Reads the origin of an SRTM tile from the name of its file.
#include "terrain/tiles/TileName.h"

#include <Orlek/Misc/StringHelpers.h>

#include <string_view>

namespace Orlek::Detail {

namespace {

constexpr double lowResHeightDeg = 50.0;

/// The degrees that `text`, a hemisphere letter and digits, gives: negative for the letter
/// `negative`, positive for `positive`, either in any case.
std::optional<double> signedDegrees(std::string_view text, char positive, char negative) {
    const auto lower = [](char letter) { return static_cast<char>(letter | 0x20); };
    const bool isNegative = lower(text[0]) == negative;
    if (!isNegative && lower(text[0]) != positive) {
        return std::nullopt;
    }
    int degrees = 0;
    for (const char digit : text.substr(1)) {
        if (digit < '0' || digit > '9') {
            return std::nullopt;
        }
        degrees = degrees * 10 + (digit - '0');
    }
    return isNegative ? -degrees : degrees;
}

}  // namespace

std::optional<TileName> parseTileName(const std::string& path) {
    constexpr std::size_t originLength = 7;
    const std::string file = Misc::StringSection(path, "/", -1, -1);
    if (file.size() < originLength) {
        return std::nullopt;
    }
    const bool lowRes = Misc::StringSection(file, ".", 1, 1) == "SRTMGL30";
    const std::string_view origin = std::string_view(file).substr(0, originLength);
    const auto lat = signedDegrees(lowRes ? origin.substr(4) : origin.substr(0, 3), 'n', 's');
    const auto lon = signedDegrees(lowRes ? origin.substr(0, 4) : origin.substr(3), 'e', 'w');
    if (!lat || !lon) {
        return std::nullopt;
    }
    return TileName{lowRes ? *lat - lowResHeightDeg : *lat, *lon, lowRes};
}

}  // namespace Orlek::Detail
