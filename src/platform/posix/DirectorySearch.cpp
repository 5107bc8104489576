// Directories on POSIX. The type that readdir gives saves a stat of every entry; only links and
// file systems that do not tell the type need one.
#include "platform/DirectorySearch.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>

#include "platform/ZeroByte.h"
#include "platform/posix/Descriptors.h"

namespace Orlek::Detail {

namespace {

struct CloseDirectory {
    void operator()(DIR* directory) const { ::closedir(directory); }
};
using DirectoryHandle = std::unique_ptr<DIR, CloseDirectory>;

FileKind kindOfMode(mode_t mode) {
    if (S_ISREG(mode)) {
        return FileKind::regular;
    }
    return S_ISDIR(mode) ? FileKind::directory : FileKind::other;
}

DirectoryIdentity identityOf(const struct stat& status) {
    return {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino)};
}

DirectoryHandle openDirectory(const char* path) {
    const int descriptor = unlessInterrupted(
        [=] { return ::open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK); });
    if (descriptor < 0) {
        return nullptr;
    }
    DIR* directory = ::fdopendir(descriptor);
    if (directory == nullptr) {
        ::close(descriptor);
    }
    return DirectoryHandle(directory);
}

FileKind kindOfTarget(int directory, const char* name) {
    struct stat status {};
    return ::fstatat(directory, name, &status, 0) == 0 ? kindOfMode(status.st_mode)
                                                       : FileKind::missing;
}

bool isLink(int directory, const char* name) {
    struct stat status {};
    return ::fstatat(directory, name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(status.st_mode);
}

DirectoryEntry describe(int directory, const dirent& entry) {
    switch (entry.d_type) {
        case DT_REG:
            return {entry.d_name, FileKind::regular, false};
        case DT_DIR:
            return {entry.d_name, FileKind::directory, false};
        case DT_LNK:
            return {entry.d_name, kindOfTarget(directory, entry.d_name), true};
        case DT_UNKNOWN:
            return {entry.d_name, kindOfTarget(directory, entry.d_name),
                    isLink(directory, entry.d_name)};
        default:
            return {entry.d_name, FileKind::other, false};
    }
}

bool isSelfOrParent(const char* name) {
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

}  // namespace

FileKind fileKind(const std::string& path) {
    return hasZeroByte(path) ? FileKind::missing : kindOfTarget(AT_FDCWD, path.c_str());
}

FileStamp fileStamp(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        return {};
    }
    // The time of a change, which no program sets back.
    const std::int64_t seconds = status.st_ctim.tv_sec;
    return {kindOfMode(status.st_mode), static_cast<std::uint64_t>(status.st_ino),
            static_cast<std::uint64_t>(status.st_size),
            seconds * 1'000'000'000 + status.st_ctim.tv_nsec};
}

bool createDirectory(const std::string& path) {
    return !hasZeroByte(path) && ::mkdir(path.c_str(), 0777) == 0;
}

DirectoryIdentity directoryIdentity(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? identityOf(status) : DirectoryIdentity{};
}

bool DirectorySearch::read(const std::string& path) {
    mEntries.clear();
    mIdentity = {};
    if (hasZeroByte(path)) {
        errno = ENOENT;
        return false;
    }
    const DirectoryHandle directory = openDirectory(path.c_str());
    if (!directory) {
        return false;
    }
    const int descriptor = ::dirfd(directory.get());
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) {
        return false;
    }
    mIdentity = identityOf(status);
    errno = 0;
    while (const dirent* entry = ::readdir(directory.get())) {
        if (!isSelfOrParent(entry->d_name)) {
            mEntries.push_back(describe(descriptor, *entry));
        }
        errno = 0;
    }
    return errno == 0;
}

}  // namespace Orlek::Detail
