#include <Orlek/FileSystem/Directory.h>

#include <set>
#include <utility>

#include "platform/DirectorySearch.h"
#include "platform/Report.h"

namespace Orlek::FileSystem {

namespace {

using Detail::FileKind;

// Walks one tree. It recurses, but no deeper than the system resolves paths: 4096 bytes on Linux.
class TreeListing {
public:
    explicit TreeListing(std::vector<std::string>& files) : mFiles(files) {}

    void list(const std::string& path, bool recursive) {
        Detail::DirectorySearch search;
        if (!search.read(path)) {
            Detail::report("Property::readAllFiles: could not open path <%s>\n",
                           (path + "\\*").c_str());
        }
        mVisited.insert(search.identity());
        for (const Detail::DirectoryEntry& entry : search.entries()) {
            std::string entryPath = path + "/" + entry.name;
            if (entry.kind == FileKind::regular) {
                mFiles.push_back(std::move(entryPath));
            } else if (recursive && entry.kind == FileKind::directory &&
                       !(entry.isLink && wasVisited(entryPath))) {
                list(entryPath, true);
            }
        }
    }

private:
    // Directories form a tree, so only links can lead back to where the listing has been. Entering
    // each target once bounds the work even where links cross each other in many ways.
    bool wasVisited(const std::string& path) const {
        return mVisited.contains(Detail::directoryIdentity(path));
    }

    std::vector<std::string>& mFiles;
    std::set<Detail::DirectoryIdentity> mVisited;
};

}  // namespace

Directory::Directory(const std::string& path) : mPath(path) {}

std::vector<std::string> Directory::entryList(bool recursive) {
    mEntries.clear();
    readDirectory(mPath, recursive);
    return mEntries;
}

void Directory::readDirectory(const std::string& path, bool recursive) {
    TreeListing(mEntries).list(path, recursive);
}

bool Directory::exists() const {
    return exists(mPath);
}

bool Directory::exists(const std::string& path) {
    return Detail::fileKind(path) == FileKind::directory;
}

bool Directory::createDirectoryRecursive(const std::string& path) {
    if (exists(path)) {
        return true;
    }
    constexpr const char* separators = "\\/";
    // From index 1: the root needs no making.
    for (std::size_t end = path.find_first_of(separators, 1); end != std::string::npos;
         end = path.find_first_of(separators, end + 1)) {
        Detail::createDirectory(path.substr(0, end));  // fails where a level exists already
    }
    Detail::createDirectory(path);
    return Detail::fileKind(path) != FileKind::missing;
}

std::string Directory::extractPathFomFile(const std::string& file) {
    if (exists(file)) {
        return file;
    }
    const std::size_t slash = file.rfind('/');
    return slash == std::string::npos ? std::string() : file.substr(0, slash);
}

}  // namespace Orlek::FileSystem
