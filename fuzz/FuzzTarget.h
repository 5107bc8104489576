// What every fuzz target is: a function that takes an input, and a way to say that it fails.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Ends the run unless the condition holds.
inline void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}
