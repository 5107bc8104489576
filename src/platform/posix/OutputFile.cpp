// Writing files on POSIX.
#include "platform/OutputFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "platform/ZeroByte.h"
#include "platform/posix/Descriptors.h"
#include "platform/posix/WriteAll.h"

namespace Orlek::Detail {

bool OutputFile::open(const std::string& path) {
    close();
    if (hasZeroByte(path)) {
        errno = EINVAL;
        return false;
    }
    // Reading too: neither opening a pipe nor filling it waits for a reader.
    mDescriptor =
        aboveStandardStreams(openWithoutPeer(path.c_str(), O_RDWR | O_CREAT | O_TRUNC, 0666));
    return mDescriptor >= 0;
}

bool OutputFile::write(std::span<const std::byte> bytes) {
    return writeAll(mDescriptor, bytes);
}

bool OutputFile::close() {
    // Not repeated after EINTR: the descriptor is gone by then.
    return mDescriptor < 0 || ::close(std::exchange(mDescriptor, -1)) == 0 || errno == EINTR;
}

}  // namespace Orlek::Detail
