// Regular files on POSIX: open without blocking, then look what was opened, then pread.
#include "platform/RegularFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/ZeroByte.h"
#include "platform/posix/Descriptors.h"

namespace Orlek::Detail {

void RegularFile::close() {
    if (mDescriptor >= 0) {
        const int error = errno;
        ::close(std::exchange(mDescriptor, -1));
        errno = error;
    }
    mSize = 0;
}

bool RegularFile::open(const std::string& path) {
    close();
    if (hasZeroByte(path)) {
        errno = ENOENT;
        return false;
    }
    struct stat status {};
    // Merely opening a pipe or a device can disturb others.
    if (::stat(path.c_str(), &status) == 0 && !isRegular(status)) {
        return false;
    }
    mDescriptor = openWithoutPeer(path.c_str(), O_RDONLY);
    if (mDescriptor < 0) {
        return false;
    }
    // Looked at again: the name may stand for another file by now.
    if (::fstat(mDescriptor, &status) != 0 || !isRegular(status)) {
        close();
        return false;
    }
    mSize = static_cast<std::uint64_t>(status.st_size);
    return true;
}

std::size_t RegularFile::readAt(std::uint64_t offset, std::span<std::byte> out) const {
    std::size_t done = 0;
    while (done < out.size()) {
        const ssize_t got = ::pread(mDescriptor, out.data() + done, out.size() - done,
                                    static_cast<off_t>(offset + done));
        if (got > 0) {
            done += static_cast<std::size_t>(got);
        } else if (got == 0 || errno != EINTR) {
            break;
        }
    }
    return done;
}

}  // namespace Orlek::Detail
