// How much memory this process has.
#pragma once

#include <sys/resource.h>
#include <unistd.h>

#include <fstream>

namespace OrlekTest {

/// The part of its memory that is in the machine's, KiB.
inline long residentKib() {
    long all = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> all >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

/// The most that it ever was, KiB.
inline long mostResidentKib() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

}  // namespace OrlekTest
