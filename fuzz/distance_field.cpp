// Any coverage of any size: the field equals that of the plain rules in every byte, and nothing
// beside the picture is touched.
// Input: columns and rows (up to 47 each; the highest bit of the first set: 250 columns more), how
// many bytes rows are longer than the picture (up to 7; the highest bit set: the field replaces the
// picture), the radius, then coverage, taken again from its start where it is too short.
#include <memory>
#include <vector>

#include "FuzzTarget.h"
#include "text/raster/DistanceField.h"
#include "text/raster/DistanceFieldLetter.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t headSize = 4;
constexpr std::size_t mostPixelsAlong = 48;

/// The first bytes of a row are the picture's; only they may change.
void checkRows(const Bytes& before, const Bytes& after, const Bytes& expected, std::size_t width,
               std::size_t stride) {
    for (std::size_t i = 0; i < after.size(); ++i) {
        const std::size_t x = i % stride;
        require(after[i] == (x < width ? expected[i / stride * width + x] : before[i]));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size <= headSize) {
        return 0;
    }
    const std::size_t width =
        (data[0] & 0x7FU) % mostPixelsAlong + ((data[0] & 0x80U) != 0 ? 250 : 0);
    const std::size_t height = data[1] % mostPixelsAlong;
    const std::size_t stride = width + data[2] % 8;
    const bool inPlace = (data[2] & 0x80U) != 0;
    const float radius = 0.25F * static_cast<float>(1 + data[3]);
    Bytes picture(stride * height);
    for (std::size_t i = 0; i < picture.size(); ++i) {
        picture[i] = data[headSize + i % (size - headSize)];
    }
    const Bytes expected =
        OrlekTest::DistanceFieldLetter(picture.data(), static_cast<int>(width),
                                       static_cast<int>(height), static_cast<int>(stride))
            .field(radius);
    const Bytes before = picture;
    Bytes apart(inPlace ? 0 : picture.size(), 0xA5);
    Bytes& out = inPlace ? picture : apart;
    const Bytes outBefore = out;
    std::vector<float> work(Orlek::Detail::fieldWorkFloats * width * height);
    Orlek::Detail::buildDistanceField({picture.data(), width, height, stride}, radius, out.data(),
                                      stride, work);
    checkRows(outBefore, out, expected, width, stride);
    require(inPlace || picture == before);
    return 0;
}
