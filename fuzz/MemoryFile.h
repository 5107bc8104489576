// A file that lives in memory and has a path while the object lives: what fuzz targets hand to code
// that reads from disk.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <string>

#include "FuzzTarget.h"

class MemoryFile {
public:
    MemoryFile(const std::uint8_t* data, std::size_t size)
        : mDescriptor(memfd_create("input", MFD_CLOEXEC)) {
        require(mDescriptor >= 0);
        require(pwrite(mDescriptor, data, size, 0) == static_cast<ssize_t>(size));
    }
    ~MemoryFile() { close(mDescriptor); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(mDescriptor); }

private:
    int mDescriptor;
};
