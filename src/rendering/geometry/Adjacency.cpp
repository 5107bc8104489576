#include "rendering/geometry/Adjacency.h"

#include <algorithm>

namespace Orlek::Detail {

std::vector<std::uint32_t> adjacencyIndices(std::span<const std::uint32_t> indices,
                                            std::uint32_t restart) {
    const auto restarts = static_cast<std::size_t>(std::ranges::count(indices, restart));
    std::vector<std::uint32_t> result;
    result.reserve(indices.size() + 2 * (restarts + 1));
    for (auto begin = indices.begin(); begin != indices.end();) {
        const auto end = std::find(begin, indices.end(), restart);
        const bool empty = begin == end;
        result.push_back(*begin);
        result.insert(result.end(), begin, end);
        result.push_back(empty ? restart : *(end - 1));
        if (end == indices.end()) {
            break;
        }
        result.push_back(restart);
        begin = end + 1;
    }
    return result;
}

}  // namespace Orlek::Detail
