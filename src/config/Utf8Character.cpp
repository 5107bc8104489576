#include "config/Utf8Character.h"

#include <algorithm>

namespace Orlek::Detail {

namespace {

bool isContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

}  // namespace

Utf8Character firstUtf8Character(std::string_view text) {
    const auto first = static_cast<unsigned char>(text.front());
    if (first < 0x80) {
        return {first, 1};
    }
    const std::size_t length = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (first < 0xC2 || first > 0xF4 || text.size() < length ||
        !std::all_of(text.begin() + 1, text.begin() + std::ptrdiff_t(length), isContinuation)) {
        return {};
    }
    char32_t code = first & (0x7FU >> length);
    for (const char c : text.substr(1, length - 1)) {
        code = code << 6U | (static_cast<unsigned char>(c) & 0x3FU);
    }
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return code < smallest[length] || surrogate || code > 0x10FFFF ? Utf8Character{}
                                                                   : Utf8Character{code, length};
}

}  // namespace Orlek::Detail
