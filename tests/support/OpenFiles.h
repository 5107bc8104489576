// Descriptors: how many this process has open, to see that none is left behind, and none to be had.
#pragma once

#include <sys/resource.h>

#include <filesystem>
#include <iterator>

namespace OrlekTest {

inline std::ptrdiff_t openFiles() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

/// Runs `function` while the process may open at most `count` descriptors.
/// @return false when the system does not allow as many; it has not run then.
template <typename Function>
bool withDescriptors(rlim_t count, Function&& function) {
    rlimit usual{};
    getrlimit(RLIMIT_NOFILE, &usual);
    const rlimit limit{count, usual.rlim_max};
    if (setrlimit(RLIMIT_NOFILE, &limit) != 0) {
        return false;
    }
    function();
    setrlimit(RLIMIT_NOFILE, &usual);
    return true;
}

}  // namespace OrlekTest
