// Lets one allocation fail. Replaces operator new and delete of the program: include it in one
// file.
#pragma once

#include <cstdlib>
#include <new>

namespace OrlekTest {

inline std::size_t smallestToFail = 4096;
inline int allocationToFail = 0;  // counts down at each that is as large; 0: none fails

/// Runs `function` while the allocation of that number fails.
template <typename Function>
void failingAllocation(int number, Function&& function) {
    allocationToFail = number;
    function();
    allocationToFail = 0;
}

}  // namespace OrlekTest

// Not inlined: gcc would take malloc and operator delete, or operator new and free, for a mistake.
[[gnu::noinline]] void* operator new(std::size_t size) {
    using namespace OrlekTest;
    if (size >= smallestToFail && allocationToFail > 0 && --allocationToFail == 0) {
        throw std::bad_alloc();
    }
    if (void* memory = std::malloc(size > 0 ? size : 1)) {
        return memory;
    }
    throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept {
    std::free(memory);
}
