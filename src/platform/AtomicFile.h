// A file that takes the place of another whole or not at all: a crash, a full disk or a missing
// permission at any moment leaves the old one as it was.
#pragma once

#include <string>
#include <string_view>

namespace Orlek::Detail {

/// One new content for a path, written beside the old file until it is complete and on the disk.
/// Whoever reads the path meanwhile gets the old file; of several writers the last one stays. One
/// thread at a time may use an object.
///
/// Links are followed, and what they lead to is replaced. The mode of the old file stays, its owner
/// where the system lets it; other names of it keep the old content. A new file has what the umask
/// leaves of 0666.
class AtomicFile {
public:
    AtomicFile() = default;
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    /// Drops what has not been committed.
    ~AtomicFile();

    /// Begins, once per object. False, with errno set, when the path names something that is no
    /// regular file (EISDIR for a directory, ENOTSUP for anything else) or that may not be written,
    /// or when no file can be made in its directory.
    bool open(const std::string& path);

    /// Adds to the content; not buffered. False, with errno set, when not all of it fits.
    bool write(std::string_view bytes);

    /// A path under which what has been written so far can be read as long as it is not committed.
    [[nodiscard]] std::string draftPath() const;

    /// Forces the content to the disk and gives it the path. False, with errno set, when that
    /// failed: the path has its old content then, unless it was the very last step that failed,
    /// forcing the name to the disk. To be called only when all else went well.
    bool commit();

private:
    bool create(unsigned int mode);
    bool giveName();

    std::string mTarget;     // where all links lead to
    std::string mDirectory;  // of the target, with its last slash, or empty
    std::string mName;       // of the new file; empty as long as it has none
    int mDescriptor = -1;
};

}  // namespace Orlek::Detail
