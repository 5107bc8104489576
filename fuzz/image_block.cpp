// Image blocks and stipple patterns at any address: the head is read as it stands, little-endian,
// nothing beyond is touched, and the quad has the image's size.
// Input: by how many bytes the block is off an aligned address, then the block; 128 bytes from its
// pixels on are taken for a pattern, too.
#include <bit>
#include <memory>

#include <Orlek/OpenGL/StippleMask.h>
#include "FuzzTarget.h"
#include "rendering/geometry/ImageBlock.h"
#include "rendering/geometry/Shapes.h"

namespace {

using namespace Orlek::Detail;

constexpr std::size_t headSize = 12;
constexpr std::size_t patternSize = 128;

std::uint32_t wordAt(const unsigned char* bytes) {
    std::uint32_t word = 0;
    for (unsigned i = 0; i < 4; ++i) {
        word |= std::uint32_t{bytes[i]}
                << (8 * (std::endian::native == std::endian::big ? 3 - i : i));
    }
    return word;
}

void checkCorners(const ImageBlock& image) {
    std::size_t count = 0;
    eachImageCorner(image.width, image.height, [&](const auto& corner, const auto& uv) {
        const bool right = (count & 2U) != 0;
        const bool top = (count & 1U) != 0;
        const float x = static_cast<float>(image.width) * (right ? 0.5F : -0.5F);
        const float y = static_cast<float>(image.height) * (top ? 0.5F : -0.5F);
        require(corner.x == x && corner.y == y && corner.z == 0.0F);
        require(uv.x == (right ? 1.0F : 0.0F) && uv.y == (top ? 0.0F : 1.0F));
        ++count;
    });
    require(count == 4);
}

void checkPattern(const unsigned char* pattern) {
    StippleMask mask;
    mask.set(pattern);
    require(mask.use);
    for (std::size_t row = 0; row < 32; ++row) {
        for (std::size_t column = 0; column < 32; ++column) {
            const unsigned bit = pattern[4 * row + column / 8] >> (column % 8) & 1U;
            require((static_cast<unsigned>(mask.rows[row]) >> column & 1U) == bit);
        }
    }
    const auto rows = mask.rows;
    mask.set(nullptr);
    require(!mask.use && mask.rows == rows);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 1 + headSize) {
        return 0;
    }
    // Just as long as the block, so that the sanitizer sees a read behind it.
    const std::size_t off = data[0] % 16;
    const auto memory = std::make_unique<unsigned char[]>(off + size - 1);
    unsigned char* const block = memory.get() + off;
    std::copy(data + 1, data + size, block);

    const ImageBlock image = ImageBlock::parse(block);
    require(image.width == wordAt(block) && image.height == wordAt(block + 4));
    require(image.pixels == block + headSize);
    checkCorners(image);
    if (size - 1 - headSize >= patternSize) {
        checkPattern(image.pixels);
    }
    return 0;
}
