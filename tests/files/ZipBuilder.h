// Writes local headers as an archive might have them, true or not.
#pragma once

#include <cstdint>
#include <string>

namespace OrlekTest {

struct LocalEntry {
    std::string name = "entry";
    std::string data{};  // compressed
    std::uint32_t compressedSize = 0;
    std::uint32_t uncompressedSize = 0;
    std::string extra{};
    std::uint32_t flags = 0;
};

inline std::string littleEndian(std::uint32_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) {
        text.push_back(static_cast<char>(value >> (8 * i) & 0xFFU));
    }
    return text;
}

inline std::string localHeader(const LocalEntry& entry) {
    // Version 2.0, deflate, no time, date and CRC-32.
    return "PK\3\4" + littleEndian(20, 2) + littleEndian(entry.flags, 2) + littleEndian(8, 2) +
           std::string(8, '\0') + littleEndian(entry.compressedSize, 4) +
           littleEndian(entry.uncompressedSize, 4) +
           littleEndian(static_cast<std::uint32_t>(entry.name.size()), 2) +
           littleEndian(static_cast<std::uint32_t>(entry.extra.size()), 2) + entry.name +
           entry.extra;
}

inline std::string archive(const LocalEntry& entry) {
    return localHeader(entry) + entry.data;
}

}  // namespace OrlekTest
