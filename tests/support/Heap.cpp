// A program's own function goes before that of a library, so the library under test calls these.
#include "support/Heap.h"

#include <malloc.h>

#include <cerrno>

namespace {

std::atomic<long> blocks = 0;
std::atomic<std::size_t> inUse = 0;
std::atomic<std::size_t> most = 0;
std::size_t before = 0;

bool fails() {
    bool (*const asked)() = OrlekTest::allocationFails;
    if (asked == nullptr || !asked()) {
        return false;
    }
    errno = ENOMEM;
    return true;
}

void* counted(void* block) {
    blocks += block != nullptr ? 1 : 0;
    const std::size_t now = inUse += malloc_usable_size(block);
    if (now > most) {
        most = now;
    }
    return block;
}

}  // namespace

namespace OrlekTest {

long liveBlocks() {
    return blocks;
}

void startHeapPeak() {
    before = inUse;
    most = before;
}

std::size_t heapPeak() {
    return most - before;
}

}  // namespace OrlekTest

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);

void* malloc(std::size_t size) noexcept {
    return fails() ? nullptr : counted(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size) noexcept {
    return fails() ? nullptr : counted(__libc_calloc(count, size));
}

// As if both blocks were there for a moment, which they are when it cannot grow in its place.
void* realloc(void* block, std::size_t size) noexcept {
    if (fails()) {
        return nullptr;
    }
    const std::size_t old = malloc_usable_size(block);
    void* const grown = counted(__libc_realloc(block, size));
    if (block != nullptr && (grown != nullptr || size == 0)) {
        inUse -= old;
        --blocks;
    }
    return grown;
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
    return fails() ? nullptr : counted(__libc_memalign(alignment, size));
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) noexcept {
    *block = aligned_alloc(alignment, size);
    return *block != nullptr ? 0 : ENOMEM;
}

void free(void* block) noexcept {
    inUse -= malloc_usable_size(block);
    blocks -= block != nullptr ? 1 : 0;
    __libc_free(block);
}

}  // extern "C"
