// The beginning of a distance field: the pixels that the edge of a picture crosses.
#pragma once

#include "text/raster/DistanceField.h"

namespace Orlek::Detail {

/// For each pixel of an image, row after row, the nearest point of the edge that is known so far
/// and the square of the distance to it.
struct EdgeDistances {
    float* squared;
    float* x;
    float* y;
};

/// A squared distance above all others: no point is known.
inline constexpr float noEdge = 1e37F;

/// Gives each pixel on the edge the point of it that is nearest, estimated from the coverage of the
/// pixel and the gradient around it, and calls found(column, row). All others know none.
template <typename Found>
void seedEdges(const CoverageImage& image, const EdgeDistances& edges, Found&& found);

/// Seeds one inner pixel; false when the edge does not cross it.
bool seedEdge(const CoverageImage& image, const EdgeDistances& edges, std::size_t x, std::size_t y);

/// True when eight pixels from (x, y) on and those around them are empty: no edge is there.
bool emptyAround(const CoverageImage& image, std::size_t x, std::size_t y);

template <typename Found>
void seedEdges(const CoverageImage& image, const EdgeDistances& edges, Found&& found) {
    for (std::size_t y = 1; y + 1 < image.height; ++y) {
        for (std::size_t x = 1; x + 1 < image.width;) {
            if (x + 9 <= image.width && emptyAround(image, x, y)) {
                x += 8;
                continue;
            }
            if (seedEdge(image, edges, x, y)) {
                found(x, y);
            }
            ++x;
        }
    }
}

}  // namespace Orlek::Detail
