// Large memory on POSIX, with Linux's hints for few page faults.
#include <sys/mman.h>

#include <cstdint>
#include <cstring>

#include "platform/MallocArray.h"
#include "platform/PageArray.h"

// In memory that it has not given out itself the sanitizer sees no access beyond an array.
#if defined(__SANITIZE_ADDRESS__)
#define ORLEK_PAGES_FROM_MALLOC 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ORLEK_PAGES_FROM_MALLOC 1
#endif
#endif

namespace Orlek::Detail {

namespace {

constexpr std::size_t largePage = std::size_t{2} << 20U;
constexpr std::size_t anyPage = 65536;  // A multiple of every size that pages have on Linux.

// Large pages for whole 2 MiB parts; a started one at the end would take memory that nobody uses,
// so the rest gets its small pages in one call. Where the system cannot, it stays as it is.
void avoidFaults([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t size) {
    [[maybe_unused]] const std::size_t whole = size / largePage * largePage;
#ifdef MADV_HUGEPAGE
    ::madvise(memory, whole, MADV_HUGEPAGE);
#endif
#ifdef MADV_POPULATE_WRITE
    constexpr std::size_t smallPage = 4096;
    ::madvise(static_cast<char*>(memory) + whole, (size - whole) / smallPage * smallPage,
              MADV_POPULATE_WRITE);
#endif
}

#ifndef ORLEK_PAGES_FROM_MALLOC

// 0 when there is none.
std::size_t wholePages(std::size_t size) {
    return (size + anyPage - 1) / anyPage * anyPage;
}

#endif

}  // namespace

void* mallocLarge(std::size_t size) {
    if (size < largePage) {
        return std::malloc(size);
    }
    void* memory = nullptr;
    if (::posix_memalign(&memory, largePage, size) != 0) {
        return nullptr;
    }
    avoidFaults(memory, size);
    return memory;
}

void zeroLarge(std::byte* memory, std::size_t size) {
    const std::size_t before = -reinterpret_cast<std::uintptr_t>(memory) % anyPage;
    if (size < largePage ||
        ::madvise(memory + before, (size - before) / anyPage * anyPage, MADV_DONTNEED) != 0) {
        std::memset(memory, 0, size);  // also of locked pages, which the system keeps
        return;
    }
    const std::size_t after = (size - before) % anyPage;
    std::memset(memory, 0, before);
    std::memset(memory + size - after, 0, after);
}

#ifdef ORLEK_PAGES_FROM_MALLOC

void* mapPages(std::size_t size) {
    return std::calloc(1, size);
}

void unmapPages(void* memory, std::size_t /*size*/) {
    std::free(memory);
}

#else

// More than asked for, so that large pages have their places in it; both ends go back at once.
void* mapPages(std::size_t size) {
    size = wholePages(size);
    if (size == 0) {
        return nullptr;
    }
    const std::size_t room = size < largePage ? size : size + largePage;
    if (room < size) {
        return nullptr;
    }
    void* const mapped =
        ::mmap(nullptr, room, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED || room == size) {
        return mapped == MAP_FAILED ? nullptr : mapped;
    }
    const std::size_t before = -reinterpret_cast<std::uintptr_t>(mapped) % largePage;
    char* const memory = static_cast<char*>(mapped) + before;
    if (before > 0) {
        ::munmap(mapped, before);
    }
    ::munmap(memory + size, largePage - before);
    avoidFaults(memory, size);
    return memory;
}

void unmapPages(void* memory, std::size_t size) {
    ::munmap(memory, wholePages(size));
}

#endif

}  // namespace Orlek::Detail
