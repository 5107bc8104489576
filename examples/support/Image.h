// A picture in memory, as the examples read it from the framebuffer and write it to a file.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace OrlekSupport {

/// Red, green, blue and alpha bytes of @ref width x @ref height pixels, the top row first.
struct Image {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgba;

    Image() = default;

    /// A picture of transparent black. Sizes must not be negative.
    Image(int columns, int rows)
        : width(columns),
          height(rows),
          rgba(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows) * 4) {}

    /// The four bytes of a pixel; x from the left, y from the top. Throws std::out_of_range
    /// outside the picture.
    std::array<int, 4> at(int x, int y) const;
};

/// The drawn picture: the lower left width x height pixels of the framebuffer bound for reading.
/// Needs a current GL context.
Image readFramebuffer(int width, int height);

}  // namespace OrlekSupport
