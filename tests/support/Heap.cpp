// A program's own function goes before that of a library, so the library under test calls these.
#include "support/Heap.h"

#include <malloc.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

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

void take(std::size_t size) {
    const std::size_t now = inUse += size;
    if (now > most) {
        most = now;
    }
}

void* counted(void* block) {
    blocks += block != nullptr ? 1 : 0;
    take(malloc_usable_size(block));
    return block;
}

long pages(std::size_t size) {
    return static_cast<long>((size + 4095) / 4096);
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

void* mmap(void* address, std::size_t size, int access, int flags, int file, off_t at) noexcept {
    if ((flags & MAP_ANONYMOUS) != 0 && fails()) {
        return MAP_FAILED;
    }
    auto* const mapped =
        reinterpret_cast<void*>(syscall(SYS_mmap, address, size, access, flags, file, at));
    if (mapped != MAP_FAILED) {
        blocks += pages(size);
        take(size);
    }
    return mapped;
}

int munmap(void* memory, std::size_t size) noexcept {
    const int result = static_cast<int>(syscall(SYS_munmap, memory, size));
    if (result == 0) {
        blocks -= pages(size);
        inUse -= size;
    }
    return result;
}

}  // extern "C"
