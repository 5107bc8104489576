// Index lists for line strips with adjacency.
//
// In GL_LINE_STRIP_ADJACENCY the first and the last vertex of a strip are not drawn; they only
// give the direction of the neighbouring segments. So that a whole strip is drawn, both its end
// vertices are doubled: 0 1 2 R 3 4 5 R becomes 0 0 1 2 2 R 3 3 4 5 5 R.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace Orlek::Detail {

/// The adjacency form of a list of strips.
/// @param restart the value that separates strips.
std::vector<std::uint32_t> adjacencyIndices(std::span<const std::uint32_t> indices,
                                            std::uint32_t restart);

}  // namespace Orlek::Detail
