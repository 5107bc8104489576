#include "files/TreeListing.h"

#include <utility>

#include "platform/Report.h"

namespace Orlek::Detail {

// Each directory is entered once, under its own name where it has one in the tree, as links wait
// for all of it, and otherwise under one that does not follow from the system's order.
void TreeListing::list(const std::string& path, bool recursive) {
    walk(path, recursive);
    while (!mLinks.empty()) {
        const std::string link = std::move(mLinks.extract(mLinks.begin()).value());
        if (!wasVisited(link)) {
            walk(link, true);
        }
    }
}

void TreeListing::walk(const std::string& path, bool recursive) {
    DirectorySearch search;
    if (!search.read(path)) {
        report("Property::readAllFiles: could not open path <%s>\n", (path + "\\*").c_str());
        unreadable.push_back(path);
    }
    if (!mVisited.insert(search.identity()).second) {
        return;  // by a link before, or mounted twice
    }
    for (const DirectoryEntry& entry : search.entries()) {
        std::string entryPath = path + "/" + entry.name;
        if (entry.kind == FileKind::regular) {
            files.push_back(std::move(entryPath));
        } else if (entry.kind != FileKind::directory) {
            others.push_back(std::move(entryPath));
        } else if (recursive && entry.isLink) {
            mLinks.insert(std::move(entryPath));
        } else if (recursive) {
            walk(entryPath, true);
        }
    }
}

// Asked before a link's target is read once more in vain.
bool TreeListing::wasVisited(const std::string& path) const {
    return mVisited.contains(directoryIdentity(path));
}

}  // namespace Orlek::Detail
