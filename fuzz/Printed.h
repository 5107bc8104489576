// What the library prints while a function runs, without a file in between: a stream in memory
// takes the place of the standard output, which glibc lets a program assign.
#pragma once

#include <cstdio>
#include <string_view>
#include <utility>

#include "FuzzTarget.h"

/// Valid until the next call.
template <typename Function>
std::string_view printedBy(Function&& function) {
    static char* text = nullptr;
    static std::size_t size = 0;
    static std::FILE* const memory = open_memstream(&text, &size);
    require(memory != nullptr && fseek(memory, 0, SEEK_SET) == 0);
    std::FILE* const usual = std::exchange(stdout, memory);
    std::forward<Function>(function)();
    stdout = usual;
    require(std::fflush(memory) == 0);
    return {text, size};
}
