#include "rendering/geometry/Adjacency.h"

#include <cstddef>

namespace Orlek::Detail {

std::vector<std::uint32_t> adjacencyIndices(std::span<const std::uint32_t> indices,
                                            std::uint32_t restart) {
    std::vector<std::uint32_t> result;
    result.reserve(indices.size() + indices.size() / 2 + 2);
    for (std::size_t i = 0; i < indices.size(); ++i) {
        const std::uint32_t entry = indices[i];
        const bool last = i + 1 == indices.size();
        if (entry == restart) {
            // The doubled end of the strip before and the doubled start of the one behind. An
            // empty strip at the very start has no end: its restart value is doubled instead.
            result.push_back(result.empty() ? restart : result.back());
            result.push_back(restart);
            if (!last) {
                result.push_back(indices[i + 1]);
            }
        } else {
            result.push_back(entry);
            if (i == 0 || last) {
                result.push_back(entry);
            }
        }
    }
    return result;
}

}  // namespace Orlek::Detail
