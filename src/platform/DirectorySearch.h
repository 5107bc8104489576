// What the system knows about names in the file system: the entries of a directory, what kind of
// thing a path names, and the making of one directory.
#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <vector>

namespace Orlek::Detail {

enum class FileKind : std::uint8_t { missing, regular, directory, other };

/// What `path` names, links followed; `missing` also when it cannot be reached.
FileKind fileKind(const std::string& path);

/// Tells whether a file is as it was: two that are equal stand for the same content, unless it was
/// changed twice within some milliseconds.
struct FileStamp {
    FileKind kind = FileKind::missing;
    std::uint64_t number = 0;
    std::uint64_t size = 0;
    std::int64_t changedNs = 0;
    bool operator==(const FileStamp&) const = default;
};

/// The stamp of what `path` names, links followed.
FileStamp fileStamp(const std::string& path);

/// Makes one directory whose parent exists. False when it cannot, or something is there already.
bool createDirectory(const std::string& path);

/// Tells two directories apart whatever paths lead to them.
struct DirectoryIdentity {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    // NOLINTNEXTLINE(modernize-use-nullptr): a false alarm of clang-tidy 14
    auto operator<=>(const DirectoryIdentity&) const = default;
};

/// The identity of the directory that `path` names, links followed; all zero when it has none.
DirectoryIdentity directoryIdentity(const std::string& path);

struct DirectoryEntry {
    std::string name;
    FileKind kind = FileKind::missing;  ///< of the target, when the entry is a link
    bool isLink = false;
};

/// One directory, read whole and closed again before anyone sees it, so that walking a tree of any
/// depth takes one descriptor at a time.
class DirectorySearch {
public:
    /// Replaces the entries by those of `path` without "." and "..". False, with errno set, when
    /// the directory cannot be opened or read; what was read until then is kept.
    bool read(const std::string& path);

    /// In the order in which the system returns them.
    [[nodiscard]] const std::vector<DirectoryEntry>& entries() const { return mEntries; }
    [[nodiscard]] DirectoryIdentity identity() const { return mIdentity; }

private:
    std::vector<DirectoryEntry> mEntries;
    DirectoryIdentity mIdentity;
};

}  // namespace Orlek::Detail
