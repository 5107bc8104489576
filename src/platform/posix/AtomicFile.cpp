// POSIX's rename replaces a file at once. Where the system can (Linux's O_TMPFILE), the new file
// has no name until it is complete, so that a crash leaves nothing behind either.
#include "platform/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <span>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "platform/ZeroByte.h"
#include "platform/posix/Descriptors.h"
#include "platform/posix/WriteAll.h"

namespace Orlek::Detail {

namespace {

// Up to the last slash; empty for a name in the working directory.
std::string directoryOf(const std::string& path) {
    return path.substr(0, path.rfind('/') + 1);
}

// Where a path leads to through links; the end itself need not exist.
bool followLinks(std::string& path) {
    constexpr int mostLinks = 40;  // as Linux has it
    std::array<char, PATH_MAX> target;
    for (int i = 0; i < mostLinks; ++i) {
        const ssize_t length = ::readlink(path.c_str(), target.data(), target.size());
        if (length < 0) {
            return errno == EINVAL || errno == ENOENT;  // no link, or nothing there
        }
        const std::string_view next(target.data(), static_cast<std::size_t>(length));
        path = (next.starts_with('/') ? std::string() : directoryOf(path)).append(next);
    }
    errno = ELOOP;
    return false;
}

std::string descriptorPath(int descriptor) {
    return "/proc/self/fd/" + std::to_string(descriptor);
}

// A name that nobody else uses. Calls `make` with it until that does not fail for the name's sake.
template <typename Make>
std::string makeNamed(const std::string& directory, Make make) {
    static std::atomic<unsigned int> counter = 0;
    constexpr int attempts = 1000;
    for (int i = 0; i < attempts; ++i) {
        std::string name = directory + ".orlek-" + std::to_string(::getpid()) + "-" +
                           std::to_string(counter.fetch_add(1)) + ".tmp";
        if (make(name.c_str())) {
            return name;
        }
        if (errno != EEXIST) {
            break;
        }
    }
    return {};
}

#ifdef O_TMPFILE
constexpr int unnamed = O_TMPFILE;
#else
constexpr int unnamed = -1;
#endif

// -1 where the system cannot.
int createUnnamed(const std::string& directory, mode_t mode) {
    if (unnamed == -1) {
        return -1;
    }
    const char* where = directory.empty() ? "." : directory.c_str();
    const int descriptor =
        unlessInterrupted([&] { return ::open(where, unnamed | O_WRONLY | O_CLOEXEC, mode); });
    // The name is given through /proc later on.
    if (descriptor >= 0 && ::access(descriptorPath(descriptor).c_str(), F_OK) != 0) {
        ::close(descriptor);
        return -1;
    }
    return descriptor;
}

// Whether the new file has the access list of the old one: none, when that has none, also where the
// directory gives one to new files.
bool takeOverAccessList(int descriptor, const char* path) {
    constexpr const char* accessList = "system.posix_acl_access";
    const ssize_t size = ::getxattr(path, accessList, nullptr, 0);
    if (size <= 0) {
        return ::fgetxattr(descriptor, accessList, nullptr, 0) <= 0 ||
               ::fremovexattr(descriptor, accessList) == 0;
    }
    std::vector<char> list(static_cast<std::size_t>(size));
    return ::getxattr(path, accessList, list.data(), list.size()) == size &&
           ::fsetxattr(descriptor, accessList, list.data(), list.size(), 0) == 0;
}

// Some file systems give every file one mode, which is right already, and refuse to set any.
bool setMode(int descriptor, mode_t mode) {
    struct stat status {};
    return ::fchmod(descriptor, mode) == 0 ||
           (::fstat(descriptor, &status) == 0 && (status.st_mode & 07777U) == mode);
}

// The owner stays where the system lets it, the mode always; but a file that is another's now must
// not lend that one's rights to whoever runs it.
bool takeOver(int descriptor, const char* path, const struct stat& old) {
    constexpr mode_t lending = S_ISUID | S_ISGID;
    mode_t mode = old.st_mode & 07777U;
    if (::fchown(descriptor, old.st_uid, old.st_gid) != 0) {
        mode &= ~lending;
        // The group alone, if that is possible: those who could read the file still can.
        std::ignore = ::fchown(descriptor, static_cast<uid_t>(-1), old.st_gid);
    }
    // With a list the group's bits are the most that it gives anybody: without it, too much.
    if (!takeOverAccessList(descriptor, path)) {
        mode &= ~static_cast<mode_t>(S_IRWXG);
    }
    return setMode(descriptor, mode);
}

// Replacing needs no right to write the file itself; whoever took that away meant it.
bool mayWrite(const char* path) {
    if (::faccessat(AT_FDCWD, path, W_OK, AT_EACCESS) == 0) {
        return true;
    }
    // Older sandboxes refuse the question itself.
    return errno == EPERM && ::geteuid() == ::getuid() && ::getegid() == ::getgid() &&
           ::access(path, W_OK) == 0;
}

bool sync(int descriptor) {
    return unlessInterrupted([=] { return ::fsync(descriptor); }) == 0;
}

// Not every file system can, and not every directory that may be written may be read.
bool syncDirectory(const std::string& directory) {
    const int descriptor =
        ::open(directory.empty() ? "." : directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) {
        return true;
    }
    const bool done = sync(descriptor) || errno == EINVAL;
    const int error = errno;
    ::close(descriptor);
    errno = error;
    return done;
}

}  // namespace

AtomicFile::~AtomicFile() {
    const int error = errno;
    if (mDescriptor >= 0) {
        ::close(mDescriptor);
    }
    if (!mName.empty()) {
        ::unlink(mName.c_str());
    }
    errno = error;
}

bool AtomicFile::open(const std::string& path) {
    if (hasZeroByte(path)) {
        errno = EINVAL;
        return false;
    }
    mTarget = path;
    struct stat old {};
    // The system may refuse to follow a link, as one of others in a directory for all.
    if ((::stat(path.c_str(), &old) != 0 && errno != ENOENT) || !followLinks(mTarget)) {
        return false;
    }
    mDirectory = directoryOf(mTarget);
    if (::stat(mTarget.c_str(), &old) != 0) {
        return errno == ENOENT && create(0666);
    }
    return isRegular(old) && mayWrite(mTarget.c_str()) && create(0600) &&
           takeOver(mDescriptor, mTarget.c_str(), old);
}

bool AtomicFile::create(unsigned int mode) {
    mDescriptor = createUnnamed(mDirectory, mode);
    if (mDescriptor < 0) {
        mName = makeNamed(mDirectory, [&](const char* name) {
            mDescriptor = unlessInterrupted(
                [&] { return ::open(name, O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, mode); });
            return mDescriptor >= 0;
        });
    }
    mDescriptor = aboveStandardStreams(mDescriptor);
    return mDescriptor >= 0;
}

bool AtomicFile::write(std::string_view bytes) {
    return writeAll(mDescriptor, std::as_bytes(std::span(bytes)));
}

std::string AtomicFile::draftPath() const {
    return mName.empty() ? descriptorPath(mDescriptor) : mName;
}

bool AtomicFile::giveName() {
    if (mName.empty()) {
        const std::string file = descriptorPath(mDescriptor);
        mName = makeNamed(mDirectory, [&](const char* name) {
            return ::linkat(AT_FDCWD, file.c_str(), AT_FDCWD, name, AT_SYMLINK_FOLLOW) == 0;
        });
    }
    return !mName.empty();
}

// Some network file systems tell only when a file is closed that it did not fit. A signal then
// takes nothing back: the content is on the disk, the descriptor gone.
bool AtomicFile::commit() {
    if (!sync(mDescriptor) || !giveName() ||
        (::close(std::exchange(mDescriptor, -1)) != 0 && errno != EINTR) ||
        ::rename(mName.c_str(), mTarget.c_str()) != 0) {
        return false;
    }
    mName.clear();
    return syncDirectory(mDirectory);
}

}  // namespace Orlek::Detail
