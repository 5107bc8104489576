// Names of SRTM tiles: what a plain reading gives, or nothing.
#include <cctype>
#include <optional>
#include <string>

#include "FuzzTarget.h"
#include "terrain/tiles/TileKey.h"
#include "terrain/tiles/TileName.h"

namespace {

// A letter, of which the second of `letters` is negative, and so many digits.
std::optional<int> degreesAt(const std::string& name, std::size_t at, const std::string& letters,
                             std::size_t digits) {
    const auto letter =
        letters.find(static_cast<char>(std::toupper(static_cast<unsigned char>(name[at]))));
    const std::string number = name.substr(at + 1, digits);
    if (letter == std::string::npos || number.find_first_not_of("0123456789") < digits) {
        return std::nullopt;
    }
    return letter == 0 ? std::stoi(number) : -std::stoi(number);
}

std::string fieldOf(const std::string& name, int field) {
    std::size_t start = 0;
    for (; field > 0 && start < name.size(); ++start) {
        field -= name[start] == '.' ? 1 : 0;
    }
    return field == 0 ? name.substr(start, name.find('.', start) - start) : std::string();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string path(reinterpret_cast<const char*>(data), size);
    const auto found = Orlek::Detail::parseTileName(path);
    const std::string name = path.substr(path.rfind('/') + 1);
    if (name.size() < 7) {
        require(!found);
        return 0;
    }
    const bool lowRes = fieldOf(name, 1) == "SRTMGL30";
    const auto lat = degreesAt(name, lowRes ? 4 : 0, "NS", 2);
    const auto lon = degreesAt(name, lowRes ? 0 : 3, "EW", 3);
    require(found.has_value() == (lat && lon));
    if (found) {
        require(found->lowRes == lowRes && found->lonOrigin == *lon);
        require(found->latOrigin == *lat - (lowRes ? 50 : 0));
        Orlek::Detail::originKey(found->latOrigin, found->lonOrigin);
    }
    return 0;
}
