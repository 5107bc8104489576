// The files of a directory tree, with what could not be looked into.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "platform/DirectorySearch.h"

namespace Orlek::Detail {

/// Walks one tree. It recurses, but no deeper than the system resolves paths: 4096 bytes on Linux.
/// Prints a line for each directory that cannot be read.
class TreeListing {
public:
    /// Adds the regular files of `path`, and those below it if asked, those below links last.
    void list(const std::string& path, bool recursive);

    /// In the order in which they were met.
    std::vector<std::string> files;
    std::vector<std::string> unreadable;  ///< directories whose files may be missing
    std::vector<std::string> others;      ///< neither: links that lead nowhere, pipes, devices

private:
    void walk(const std::string& path, bool recursive);
    [[nodiscard]] bool wasVisited(const std::string& path) const;

    std::set<std::string> mLinks;  ///< to directories
    std::set<DirectoryIdentity> mVisited;
};

}  // namespace Orlek::Detail
