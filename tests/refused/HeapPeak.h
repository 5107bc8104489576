// How much heap a piece of the program takes at most. The allocating functions of the C library are
// replaced in HeapPeak.cpp.
#pragma once

#include <cstddef>

namespace OrlekTest {

/// Runs a function.
/// @return how many bytes of heap were in use at most, beyond those in use before
template <typename Function>
std::size_t heapPeakOf(Function&& function);

/// Begins to look anew.
void startHeapPeak();
/// What has been in use at most since, beyond what was in use then.
std::size_t heapPeak();

template <typename Function>
std::size_t heapPeakOf(Function&& function) {
    startHeapPeak();
    function();
    return heapPeak();
}

}  // namespace OrlekTest
