#include "ColourText.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <system_error>

namespace MovingMap {

std::optional<Colour> parseColour(const std::string& text) {
    unsigned value = 0;
    if (text.size() != 7 || text.front() != '#') {
        return std::nullopt;
    }
    const char* const end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data() + 1, end, value, 16);
    if (error != std::errc() || stopped != end) {
        return std::nullopt;
    }
    return opaque(value);
}

std::string colourText(const Colour& colour) {
    const auto part = [](float share) { return static_cast<int>(std::lround(share * 255.0F)); };
    char text[16];
    std::snprintf(text, sizeof text, "#%02X%02X%02X", part(colour.x), part(colour.y),
                  part(colour.z));
    return text;
}

}  // namespace MovingMap
