// Numbers of a command line.
#pragma once

#include <charconv>
#include <optional>
#include <string>
#include <system_error>

namespace OrlekSupport {

/// The number that the whole text spells; nothing when it spells none or one outside low to high.
template <typename Number>
std::optional<Number> parseNumber(const std::string& text, Number low, Number high) {
    Number value{};
    const char* const end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stopped != end || !(value >= low && value <= high)) {
        return std::nullopt;
    }
    return value;
}

}  // namespace OrlekSupport
