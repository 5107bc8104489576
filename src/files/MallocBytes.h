// Bytes from malloc that free themselves: for buffers that callers of the interface will free, and
// for large ones that are filled at once and need no zeroes first.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace Orlek::Detail {

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};

using MallocBytes = std::unique_ptr<std::byte[], FreeMemory>;

/// Null when there is no memory.
inline MallocBytes mallocBytes(std::size_t size) {
    return MallocBytes(static_cast<std::byte*>(std::malloc(size)));
}

}  // namespace Orlek::Detail
