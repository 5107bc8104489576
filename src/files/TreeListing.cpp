#include "files/TreeListing.h"

#include <utility>

#include "platform/Report.h"

namespace Orlek::Detail {

// Directories form a tree, so only links can lead back to where the listing has been. They wait for
// the whole tree, so that what is listed twice does not follow from the system's order.
void TreeListing::list(const std::string& path, bool recursive) {
    walk(path, recursive);
    while (!mLinks.empty()) {
        const std::string link = std::exchange(mLinks.back(), {});
        mLinks.pop_back();
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
    mVisited.insert(search.identity());
    for (const DirectoryEntry& entry : search.entries()) {
        std::string entryPath = path + "/" + entry.name;
        if (entry.kind == FileKind::regular) {
            files.push_back(std::move(entryPath));
        } else if (entry.kind != FileKind::directory) {
            others.push_back(std::move(entryPath));
        } else if (recursive && entry.isLink) {
            mLinks.push_back(std::move(entryPath));
        } else if (recursive) {
            walk(entryPath, true);
        }
    }
}

// Entering each target once bounds the work even where links cross each other in many ways.
bool TreeListing::wasVisited(const std::string& path) const {
    return mVisited.contains(directoryIdentity(path));
}

}  // namespace Orlek::Detail
