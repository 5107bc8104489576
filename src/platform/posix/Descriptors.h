// What every file that makes descriptors needs.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace Orlek::Detail {

/// Starts a call over that a signal has cut short.
template <typename Call>
auto unlessInterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

/// Moves a descriptor that is written to off the numbers of the standard streams: were one of them
/// closed, what is printed there would go into the file or socket that has its number. -1 stays -1.
inline int aboveStandardStreams(int descriptor) {
    if (descriptor < 0 || descriptor > STDERR_FILENO) {
        return descriptor;
    }
    const int higher = ::fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    const int error = errno;
    ::close(descriptor);
    errno = error;
    return higher;
}

/// Whether it is that of a regular file. If not, errno says so.
inline bool isRegular(const struct stat& status) {
    if (S_ISREG(status.st_mode)) {
        return true;
    }
    errno = S_ISDIR(status.st_mode) ? EISDIR : ENOTSUP;
    return false;
}

/// Opens a file without waiting for the other end of a pipe or a device; but when others hold a
/// lease on a regular file, waits for them to give it up, for which the system sets a time.
inline int openWithoutPeer(const char* path, int flags, mode_t mode = 0) {
    flags |= O_CLOEXEC | O_NOCTTY;
    const int descriptor =
        unlessInterrupted([=] { return ::open(path, flags | O_NONBLOCK, mode); });
    struct stat status {};
    if (descriptor >= 0 || errno != EWOULDBLOCK || ::stat(path, &status) != 0 ||
        !isRegular(status)) {
        return descriptor;
    }
    return unlessInterrupted([=] { return ::open(path, flags, mode); });
}

}  // namespace Orlek::Detail
