// Parsing of ZIP local file headers.
#include "files/ZipHeaders.h"

#include <Orlek/FileSystem/ZipFile.h>

namespace Orlek::Detail {

namespace {

using FileSystem::ZipFile;

std::uint16_t shortAt(std::span<const std::byte> bytes, std::size_t offset) {
    const auto low = std::to_integer<unsigned>(bytes[offset]);
    const auto high = std::to_integer<unsigned>(bytes[offset + 1]);
    return static_cast<std::uint16_t>(low | high << 8U);
}

std::uint32_t wordAt(std::span<const std::byte> bytes, std::size_t offset) {
    return shortAt(bytes, offset) | std::uint32_t{shortAt(bytes, offset + 2)} << 16U;
}

}  // namespace

std::uint64_t LocalHeader::dataOffset() const {
    return localHeaderSize + std::uint64_t{nameLength} + extraLength;
}

std::uint64_t LocalHeader::nextOffset() const {
    constexpr std::uint64_t descriptorSize = 12;
    return dataOffset() + compressedSize + (hasDataDescriptor ? descriptorSize : 0);
}

std::optional<LocalHeader> parseLocalHeader(std::span<const std::byte, localHeaderSize> bytes) {
    if (wordAt(bytes, 0) != ZipFile::ZIP_SIGNATURE) {
        return std::nullopt;
    }
    constexpr unsigned encryptedBit = 1;
    LocalHeader header;
    header.encrypted = (shortAt(bytes, 6) & encryptedBit) != 0;
    header.hasDataDescriptor = (shortAt(bytes, 6) & ZipFile::ZIP_BIT_DATA_DESC) != 0;
    header.method = shortAt(bytes, 8);
    header.crc = wordAt(bytes, 14);
    header.compressedSize = wordAt(bytes, 18);
    header.uncompressedSize = wordAt(bytes, 22);
    header.nameLength = shortAt(bytes, 26);
    header.extraLength = shortAt(bytes, 28);
    return header;
}

bool deflateCanHold(std::uint32_t compressedSize, std::uint32_t uncompressedSize) {
    constexpr std::uint64_t greatestRatio = 258 * 8 / 2;
    return uncompressedSize <= compressedSize * greatestRatio;
}

}  // namespace Orlek::Detail
