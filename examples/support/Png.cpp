// PNG through libpng's simplified interface, which keeps its error handling out of our way.
#include "Png.h"

#include <png.h>

#include <stdexcept>

namespace OrlekSupport {

namespace {

// Frees what libpng holds, whichever way a function is left.
struct PngImage : png_image {
    PngImage() : png_image{} { version = PNG_IMAGE_VERSION; }
    ~PngImage() { png_image_free(this); }
    PngImage(const PngImage&) = delete;
    PngImage& operator=(const PngImage&) = delete;
};

std::vector<std::uint8_t> withoutAlpha(const Image& image) {
    std::vector<std::uint8_t> rgb;
    rgb.reserve(image.rgba.size() / 4 * 3);
    for (std::size_t i = 0; i + 3 < image.rgba.size(); i += 4) {
        rgb.insert(rgb.end(), {image.rgba[i], image.rgba[i + 1], image.rgba[i + 2]});
    }
    return rgb;
}

void setRgb(const Image& image, PngImage& png) {
    png.width = static_cast<png_uint_32>(image.width);
    png.height = static_cast<png_uint_32>(image.height);
    png.format = PNG_FORMAT_RGB;
}

}  // namespace

void writePng(const std::string& path, const Image& image) {
    PngImage png;
    setRgb(image, png);
    const std::vector<std::uint8_t> rgb = withoutAlpha(image);
    if (png_image_write_to_file(&png, path.c_str(), 0, rgb.data(), 0, nullptr) == 0) {
        throw std::runtime_error("cannot write " + path + ": " + png.message);
    }
}

std::string encodePng(const Image& image) {
    PngImage png;
    setRgb(image, png);
    const std::vector<std::uint8_t> rgb = withoutAlpha(image);
    std::string bytes(PNG_IMAGE_PNG_SIZE_MAX(png), '\0');
    png_alloc_size_t size = bytes.size();
    if (png_image_write_to_memory(&png, bytes.data(), &size, 0, rgb.data(), 0, nullptr) == 0) {
        throw std::runtime_error(std::string("cannot make a PNG file: ") + png.message);
    }
    bytes.resize(size);
    return bytes;
}

Image readPng(const std::string& path) {
    PngImage png;
    if (png_image_begin_read_from_file(&png, path.c_str()) == 0) {
        throw std::runtime_error("cannot read " + path + ": " + png.message);
    }
    png.format = PNG_FORMAT_RGBA;
    Image image(static_cast<int>(png.width), static_cast<int>(png.height));
    if (png_image_finish_read(&png, nullptr, image.rgba.data(), 0, nullptr) == 0) {
        throw std::runtime_error("cannot read " + path + ": " + png.message);
    }
    return image;
}

}  // namespace OrlekSupport
