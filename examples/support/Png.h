// PNG files in and out.
#pragma once

#include <string>

#include "Image.h"

namespace OrlekSupport {

/// Writes the picture as an 8-bit RGB file (alpha is dropped).
/// Throws std::runtime_error naming the file when it cannot be written.
void writePng(const std::string& path, const Image& image);

/// The bytes of that file. Throws std::runtime_error when there is no memory for them.
std::string encodePng(const Image& image);

/// Reads a PNG file of any colour type as RGBA.
/// Throws std::runtime_error naming the file when it is missing or no PNG file.
Image readPng(const std::string& path);

}  // namespace OrlekSupport
