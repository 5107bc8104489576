// Arrays from malloc that free themselves: for buffers that callers of the interface will free, and
// for large ones that are filled at once and need no zeroes first.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <limits>
#include <memory>
#include <type_traits>

namespace Orlek::Detail {

static_assert(sizeof(std::size_t) >= 8, "sizes of 32 bits, as files state them, are added up");

struct FreeArray {
    void operator()(void* memory) const { std::free(memory); }
};

template <typename T>
using MallocArray = std::unique_ptr<T[], FreeArray>;

/// Memory to be released with std::free; null when there is none. From 2 MiB on it is meant to be
/// filled: the system is asked for large pages, because fresh memory in small ones costs a fault
/// every 4 KiB, which can take as long as inflating what goes there.
void* mallocLarge(std::size_t size);

/// Makes zeroes of a part of such memory. From 2 MiB on its pages go back to the system, and come
/// back as zeroes when they are touched.
void zeroLarge(std::byte* memory, std::size_t size);

/// `count` elements without initial values; null when there is no memory.
template <typename T>
MallocArray<T> mallocArray(std::size_t count) {
    static_assert(std::is_trivially_default_constructible_v<T>);
    if (count > std::numeric_limits<std::size_t>::max() / sizeof(T)) {
        return nullptr;
    }
    return MallocArray<T>(static_cast<T*>(mallocLarge(count * sizeof(T))));
}

}  // namespace Orlek::Detail
