// The local file header of a ZIP archive (PKWARE's APPNOTE 6.3, section 4.3.7), taken apart. It
// stands before the data of its entry; numbers are little-endian:
//
//   offset 0  signature            4      18  compressed size     4
//          4  version needed       2      22  uncompressed size   4
//          6  flags                2      26  name length n       2
//          8  compression method   2      28  extra length e      2
//         10  time and date        4      30  name                n
//         14  CRC-32               4      30 + n  extra field     e
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace Orlek::Detail {

inline constexpr std::size_t localHeaderSize = 30;

inline constexpr std::uint16_t zipMethodStored = 0;
inline constexpr std::uint16_t zipMethodDeflated = 8;

struct LocalHeader {
    bool encrypted = false;
    bool hasDataDescriptor = false;  ///< 12 bytes follow the data
    std::uint16_t method = 0;
    std::uint32_t crc = 0;
    std::uint32_t compressedSize = 0;
    std::uint32_t uncompressedSize = 0;
    std::uint16_t nameLength = 0;
    std::uint16_t extraLength = 0;

    /// Bytes from the header's start to the data, and to the next header. At most 4 GiB + 128 KiB.
    [[nodiscard]] std::uint64_t dataOffset() const;
    [[nodiscard]] std::uint64_t nextOffset() const;
};

/// Nothing when the bytes do not start with the signature of a local header.
std::optional<LocalHeader> parseLocalHeader(std::span<const std::byte, localHeaderSize> bytes);

/// Whether deflate can make `compressedSize` bytes of `uncompressedSize`: a symbol of 258 bytes
/// takes at least 2 bits (RFC 1951, 3.2.5).
bool deflateCanHold(std::uint32_t compressedSize, std::uint32_t uncompressedSize);

}  // namespace Orlek::Detail
