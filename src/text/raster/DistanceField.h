// Turns a picture of coverage into one of the signed distance from the edge of what it shows.
//
// Pixels that the edge crosses are given the point of the edge nearest to them, estimated from
// their coverage and the slope of it around them. Each pixel then takes over the edge point of a
// neighbour where that is nearer than its own, in sweeps back and forth over the picture until
// nothing changes (a sequential Euclidean distance transform after Danielsson 1980, begun on
// antialiased edges after Gustavson and Strand 2011).
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace Orlek::Detail {

/// Coverage 0 to 255, one byte a pixel; `stride` leads from a row to the next.
struct CoverageImage {
    const std::uint8_t* pixels;
    std::size_t width;
    std::size_t height;
    std::size_t stride;
};

/// Number of floats of work memory that each pixel needs.
inline constexpr std::size_t fieldWorkFloats = 3;

/// Writes the field: 127 on the edge, more inside, 255 and 0 from `radius` pixels on. `out` has
/// rows of the image's width, `outStride` apart, and may be the image itself. `work` has
/// fieldWorkFloats floats for each pixel. Throws std::bad_alloc, before anything is written,
/// without memory for some flags besides.
void buildDistanceField(const CoverageImage& image, float radius, std::uint8_t* out,
                        std::size_t outStride, std::span<float> work);

}  // namespace Orlek::Detail
