// The one loop that writes bytes to a file.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <span>

namespace Orlek::Detail {

/// False, with errno set, when some bytes could not be written.
inline bool writeAll(int descriptor, std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count > 0) {
            bytes = bytes.subspan(static_cast<std::size_t>(count));
        } else if (count == 0) {  // a device that takes nothing would be asked for ever
            errno = ENOSPC;
            return false;
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

}  // namespace Orlek::Detail
