#include <Orlek/FileSystem/Directory.h>

#include <algorithm>
#include <iterator>

#include "files/TreeListing.h"
#include "platform/DirectorySearch.h"

namespace Orlek::FileSystem {

using Detail::FileKind;

Directory::Directory(const std::string& path) : mPath(path) {}

std::vector<std::string> Directory::entryList(bool recursive) {
    mEntries.clear();
    readDirectory(mPath, recursive);
    return mEntries;
}

void Directory::readDirectory(const std::string& path, bool recursive) {
    Detail::TreeListing listing;
    listing.list(path, recursive);
    std::move(listing.files.begin(), listing.files.end(), std::back_inserter(mEntries));
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
