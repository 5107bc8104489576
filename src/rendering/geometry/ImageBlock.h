// Images in one block of memory: width and height (unsigned 32-bit, of the machine's byte order),
// 4 bytes that are not read, then the pixels, rows without padding.
#pragma once

#include <cstdint>
#include <cstring>

namespace Orlek::Detail {

struct ImageBlock {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    const unsigned char* pixels = nullptr;

    /// Reads the 12-byte head; `block` must not be null.
    static ImageBlock parse(const void* block) {
        const auto* bytes = static_cast<const unsigned char*>(block);
        ImageBlock image;
        std::memcpy(&image.width, bytes, sizeof image.width);
        std::memcpy(&image.height, bytes + 4, sizeof image.height);
        image.pixels = bytes + 12;
        return image;
    }
};

}  // namespace Orlek::Detail
