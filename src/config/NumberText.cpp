// Numbers as text: to_chars knows no locale.
#include "config/NumberText.h"

#include <array>
#include <charconv>

namespace Orlek::Detail {

std::string numberText(double value) {
    constexpr int significantDigits = 6;
    std::array<char, 32> text;  // "-1.23457e-308" is the longest form
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value,
                                            std::chars_format::general, significantDigits);
    return {text.data(), end};
}

std::string hexText(unsigned int value) {
    std::array<char, 8> digits;
    const auto [end, error] =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, 16);
    return "0x" + std::string(digits.data(), end);
}

}  // namespace Orlek::Detail
