// Which bytes of a text the atlas fonts have glyphs for.
#pragma once

#include <cstddef>

namespace Orlek::Detail {

constexpr unsigned int firstCharacter = 32;
constexpr unsigned int lastCharacter = 255;
constexpr std::size_t slotCount = lastCharacter - firstCharacter + 1;

/// The glyph slot of a byte, 0 to 223; control bytes (0 to 31) share the slot of the space.
constexpr std::size_t slotOf(char byte) {
    const unsigned int code = static_cast<unsigned char>(byte);
    return code < firstCharacter ? 0 : code - firstCharacter;
}

/// The character code of a slot.
constexpr unsigned int characterOf(std::size_t slot) {
    return firstCharacter + static_cast<unsigned int>(slot);
}

}  // namespace Orlek::Detail
