// Points and the list of indices that strings them together.
#pragma once

#include <Orlek/Math/Vector3.h>

#include <cstdint>
#include <vector>

namespace Orlek::Detail {

/// Vertices with an index list in which a restart value separates one run from the next.
struct IndexedPoints {
    std::vector<Math::Vector3<float>> vertices;  ///< In the order in which they were added.
    std::vector<std::uint32_t> indices;          ///< Indices into vertices, and restart values.

    /// The index that the next vertex receives.
    std::uint32_t nextIndex() const { return static_cast<std::uint32_t>(vertices.size()); }

    /// Appends a vertex to the current run, whole or, without memory, not at all.
    void append(const Math::Vector3<float>& position) {
        const std::uint32_t index = nextIndex();
        vertices.push_back(position);
        try {
            indices.push_back(index);
        } catch (...) {
            vertices.pop_back();
            throw;
        }
    }

    /// Ends the current run.
    void restart(std::uint32_t value) { indices.push_back(value); }

    /// Removes everything.
    void clear() {
        vertices.clear();
        indices.clear();
    }
};

}  // namespace Orlek::Detail
