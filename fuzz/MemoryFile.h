// A file that lives in memory and has a path while the object lives: what fuzz targets hand to code
// that reads from disk. One at a time, all on the same descriptor: making a new one each time would
// take longer than most inputs.
#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <string>

#include "FuzzTarget.h"

class MemoryFile {
public:
    MemoryFile(const std::uint8_t* data, std::size_t size) {
        require(descriptor() >= 0 && ftruncate(descriptor(), 0) == 0);
        require(pwrite(descriptor(), data, size, 0) == static_cast<ssize_t>(size));
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    static const std::string& path() {
        static const std::string name = "/proc/self/fd/" + std::to_string(descriptor());
        return name;
    }

private:
    static int descriptor() {
        static const int file = memfd_create("input", MFD_CLOEXEC);
        return file;
    }
};
