// How many descriptors this process has open, to see that none is left behind.
#pragma once

#include <filesystem>
#include <iterator>

namespace OrlekTest {

inline std::ptrdiff_t openFiles() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

}  // namespace OrlekTest
