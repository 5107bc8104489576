// The characters of a text in UTF-8 (RFC 3629), one after the other.
#pragma once

#include <cstddef>
#include <string_view>

namespace Orlek::Detail {

struct Utf8Character {
    char32_t code = 0;
    std::size_t length = 0;  ///< Bytes; 0 when they are not UTF-8.
};

/// The first character of a text that is not empty.
Utf8Character firstUtf8Character(std::string_view text);

}  // namespace Orlek::Detail
