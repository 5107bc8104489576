// Large arrays whose memory goes back to the system with them. What malloc gets back may stay with
// the process, in holes between what lives longer: a map that exchanges its tiles for hours would
// grow.
#pragma once

#include <cstddef>
#include <limits>
#include <memory>
#include <type_traits>

namespace Orlek::Detail {

/// Zeroed memory in pages of its own; null when there is none.
void* mapPages(std::size_t size);

/// @param size as it was asked for
void unmapPages(void* memory, std::size_t size);

struct UnmapPages {
    std::size_t size = 0;
    void operator()(void* memory) const { unmapPages(memory, size); }
};

template <typename T>
using PageArray = std::unique_ptr<T[], UnmapPages>;

/// `count` elements, all zero bytes; null when there is no memory.
template <typename T>
PageArray<T> pageArray(std::size_t count) {
    static_assert(std::is_trivially_default_constructible_v<T>);
    if (count > std::numeric_limits<std::size_t>::max() / sizeof(T)) {
        return nullptr;
    }
    const std::size_t size = count * sizeof(T);
    return PageArray<T>(static_cast<T*>(mapPages(size)), UnmapPages{size});
}

}  // namespace Orlek::Detail
