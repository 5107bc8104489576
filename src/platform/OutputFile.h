// A file opened for writing: emptied or made, then filled from its start.
#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace Orlek::Detail {

/// Owns one descriptor, closed on exec and by the destructor. One thread at a time may use it.
class OutputFile {
public:
    OutputFile() = default;
    ~OutputFile() { close(); }
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Empties the file `path`, or makes it. False, with errno set, when that fails (EINVAL for a
    /// path with a zero byte, which would lead elsewhere). Never waits, not even for a pipe.
    bool open(const std::string& path);

    /// Writes all of `bytes`. False, with errno set, when some could not be written: the disk is
    /// full, or a pipe has no room.
    bool write(std::span<const std::byte> bytes);

    /// False, with errno set, when the system learns only now that bytes were lost.
    bool close();

private:
    int mDescriptor = -1;
};

}  // namespace Orlek::Detail
