// Pixel access, and reading back what GL drew.
#include "Image.h"

#include <GL/gl.h>

#include <algorithm>
#include <stdexcept>

namespace OrlekSupport {

std::array<int, 4> Image::at(int x, int y) const {
    if (x < 0 || y < 0 || x >= width || y >= height) {
        throw std::out_of_range("pixel outside the picture");
    }
    const std::size_t first = (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                               static_cast<std::size_t>(x)) *
                              4;
    return {rgba[first], rgba[first + 1], rgba[first + 2], rgba[first + 3]};
}

namespace {

// GL gives the bottom row first, files and people want the top row first.
void flipRows(Image& image) {
    const auto rowBytes = static_cast<std::ptrdiff_t>(image.width) * 4;
    for (std::ptrdiff_t top = 0, bottom = image.height - 1; top < bottom; ++top, --bottom) {
        const auto first = image.rgba.begin() + top * rowBytes;
        std::swap_ranges(first, first + rowBytes, image.rgba.begin() + bottom * rowBytes);
    }
}

}  // namespace

Image readFramebuffer(int width, int height) {
    Image image(width, height);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, image.rgba.data());
    flipRows(image);
    return image;
}

}  // namespace OrlekSupport
