// Names by Extensible Markup Language (XML) 1.0, fifth edition, section 2.3, without the colon that
// Namespaces in XML takes for itself, and without U+FEFF, which the parser passes over.
#include "config/property/PropertyTree.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

#include "config/Utf8Character.h"

namespace Orlek::Detail {

namespace {

// A file may nest 256 elements: the root, these, and the leaf.
constexpr std::size_t mostGroups = 254;

struct CodeRange {
    char32_t first;
    char32_t last;
};

constexpr CodeRange nameStarts[] = {
    {'A', 'Z'},       {'_', '_'},       {'a', 'z'},       {0xC0, 0xD6},
    {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},   {0x37F, 0x1FFF},
    {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF}, {0x3001, 0xD7FF},
    {0xF900, 0xFDCF}, {0xFDF0, 0xFEFE}, {0xFF00, 0xFFFD}, {0x10000, 0xEFFFF},
};
constexpr CodeRange nameOthers[] = {
    {'-', '-'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040},
};

template <std::size_t N>
bool isIn(const CodeRange (&ranges)[N], char32_t code) {
    return std::ranges::any_of(
        ranges, [=](const CodeRange& range) { return code >= range.first && code <= range.last; });
}

bool isGroupName(std::string_view name) {
    if (name.empty() || name == leafName) {
        return false;
    }
    for (std::size_t at = 0; at < name.size();) {
        const Utf8Character character = firstUtf8Character(name.substr(at));
        const bool fits =
            isIn(nameStarts, character.code) || (at > 0 && isIn(nameOthers, character.code));
        if (character.length == 0 || !fits) {
            return false;
        }
        at += character.length;
    }
    return true;
}

/// The bytes of the first character; 0 when it is no UTF-8, or none of those that XML leaves out
/// (XML 1.0, section 2.2) beside the controls.
std::size_t writableLength(std::string_view text) {
    const Utf8Character character = firstUtf8Character(text);
    return character.code == 0xFFFE || character.code == 0xFFFF ? 0 : character.length;
}

bool canNest(std::string_view groups) {
    if (groups.size() > longestGroups) {
        return false;
    }
    std::size_t count = 0;
    for (std::size_t start = 0; start <= groups.size(); ++count) {
        const std::size_t end = std::min(groups.find('.', start), groups.size());
        if (count == mostGroups || !isGroupName(groups.substr(start, end - start))) {
            return false;
        }
        start = end + 1;
    }
    return true;
}

}  // namespace

PropertyPlace placeProperty(std::string_view key) {
    const std::size_t dot = key.rfind('.');
    if (dot == std::string_view::npos || !canNest(key.substr(0, dot))) {
        return {{}, key};
    }
    return {key.substr(0, dot), key.substr(dot + 1)};
}

bool isWritable(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = writableLength(text.substr(at));
        if (length == 0) {
            return false;
        }
        at += length;
    }
    return true;
}

std::string escapeBytes(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string escaped;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = writableLength(text.substr(at));
        if (length > 0 && text[at] != '%') {
            escaped += text.substr(at, length);
            at += length;
        } else {
            const auto byte = static_cast<unsigned char>(text[at++]);
            escaped += {'%', digits[byte >> 4U], digits[byte & 15U]};
        }
    }
    return escaped;
}

std::string unescapeBytes(std::string_view text) {
    std::string bytes;
    for (std::size_t at = 0; at < text.size();) {
        unsigned char byte = 0;
        const char* digits = text.data() + at + 1;
        if (text[at] == '%' && at + 2 < text.size() &&
            std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
            bytes += static_cast<char>(byte);
            at += 3;
        } else {
            bytes += text[at++];
        }
    }
    return bytes;
}

}  // namespace Orlek::Detail
