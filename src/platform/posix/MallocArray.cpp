// Large memory on POSIX, with Linux's hints for few page faults.
#include "platform/MallocArray.h"

#include <sys/mman.h>

namespace Orlek::Detail {

namespace {

constexpr std::size_t largePage = std::size_t{2} << 20U;

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

}  // namespace Orlek::Detail
