// PNG through libpng's simplified interface, which keeps its error handling out of our way.
#include "Png.h"

#include <png.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace OrlekSupport {

namespace {

namespace fs = std::filesystem;

// 256 MiB; a file of some kilobytes may promise far more.
constexpr std::uint64_t mostPixels = std::uint64_t{1} << 26U;

/// Where links lead to, so that they stay; the last one need not lead to a file yet.
fs::path targetOf(fs::path path) {
    constexpr int mostLinks = 40;  // as the system follows
    std::error_code error;
    for (int i = 0; i < mostLinks && fs::is_symlink(path, error); ++i) {
        path = path.parent_path() / fs::read_symlink(path, error);
    }
    return path;
}

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

// A picture takes the place of another whole or not at all; what is no file is written as it is.
void writePng(const std::string& path, const Image& image) {
    const std::string bytes = encodePng(image);
    std::error_code ignored;
    const bool isFile = !fs::exists(path, ignored) || fs::is_regular_file(path, ignored);
    const std::string target = targetOf(path).string();
    const std::string part = isFile ? target + ".part-" + std::to_string(getpid()) : path;
    errno = 0;
    std::ofstream file(part, std::ios::binary);
    file << bytes;
    file.close();
    if (!file || (isFile && std::rename(part.c_str(), target.c_str()) != 0)) {
        const std::string reason = errno == 0 ? "write error" : std::strerror(errno);
        if (isFile) {
            fs::remove(part, ignored);
        }
        throw std::runtime_error("cannot write " + path + ": " + reason);
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
    std::error_code ignored;
    if (fs::exists(path, ignored) && !fs::is_regular_file(path, ignored)) {
        throw std::runtime_error("cannot read " + path + ": no regular file");
    }
    PngImage png;
    if (png_image_begin_read_from_file(&png, path.c_str()) == 0) {
        throw std::runtime_error("cannot read " + path + ": " + png.message);
    }
    if (std::uint64_t{png.width} * png.height > mostPixels) {
        throw std::runtime_error("cannot read " + path + ": more than 67,108,864 pixels");
    }
    png.format = PNG_FORMAT_RGBA;
    Image image(static_cast<int>(png.width), static_cast<int>(png.height));
    if (png_image_finish_read(&png, nullptr, image.rgba.data(), 0, nullptr) == 0) {
        throw std::runtime_error("cannot read " + path + ": " + png.message);
    }
    return image;
}

}  // namespace OrlekSupport
