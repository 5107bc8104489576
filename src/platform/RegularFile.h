// A regular file opened for reading: its size, and reads at an offset. Nothing but regular files is
// ever opened, so that no caller waits for the other end of a pipe or reads a device without end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>

namespace Orlek::Detail {

/// Owns one descriptor, closed on exec and by the destructor. One thread at a time moves or opens
/// it; readAt may be called from several.
class RegularFile {
public:
    RegularFile() = default;
    RegularFile(RegularFile&& other) noexcept
        : mDescriptor(std::exchange(other.mDescriptor, -1)), mSize(std::exchange(other.mSize, 0)) {}
    RegularFile& operator=(RegularFile&& other) noexcept {
        std::swap(mDescriptor, other.mDescriptor);
        std::swap(mSize, other.mSize);
        return *this;
    }
    ~RegularFile() { close(); }

    /// Opens `path` and takes its size. False, with errno set, when that fails or the path names no
    /// regular file (EISDIR for a directory, ENOTSUP for anything else).
    bool open(const std::string& path);
    void close();

    /// Bytes the file had when it was opened; 0 before.
    [[nodiscard]] std::uint64_t size() const { return mSize; }

    /// Fills `out` with the bytes from `offset` on and returns how many it got: fewer than asked
    /// for only at the end of the file or after a read error.
    std::size_t readAt(std::uint64_t offset, std::span<std::byte> out) const;

private:
    int mDescriptor = -1;
    std::uint64_t mSize = 0;
};

}  // namespace Orlek::Detail
