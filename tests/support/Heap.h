// What a program takes of the heap, and a way to refuse it more. The allocating functions of the C
// library, with them operator new, and those that map pages are replaced in Heap.cpp, for the whole
// program that it is part of.
#pragma once

#include <atomic>
#include <cstddef>

namespace OrlekTest {

/// Blocks and mapped pages that are in use; always 0 where a sanitizer counts them, with a heap of
/// its own.
#ifdef ORLEK_SANITIZED
inline long liveBlocks() {
    return 0;
}
#else
long liveBlocks();
#endif

/// Begins to look anew.
void startHeapPeak();
/// How many bytes have been in use at most since, beyond those in use then.
std::size_t heapPeak();

/// Asked at each allocation, in any thread, whether it fails. Null: none does.
inline std::atomic<bool (*)()> allocationFails = nullptr;

}  // namespace OrlekTest
