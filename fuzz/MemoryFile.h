// A file that lives in memory and has a path while the object lives: what fuzz targets hand to code
// that reads from disk. One at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

class MemoryFile {
public:
    /// A target gives all its files the same name: that of a tile, where the name says what it is.
    MemoryFile(const std::uint8_t* data, std::size_t size, const char* name = "input");
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    const std::string& path() const { return mPath; }

private:
    const std::string& mPath;
};

/// A path at which there is no file.
inline constexpr const char* missingPath = "/proc/self/fd/none";
