// Takes the place of the library's file layer in programs that run for hours: files are blocks of
// memory with a path, one thread at a time. System calls are most of the time of an input
// otherwise. There are no links, modes and directories; the tests look after those.
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <deque>
#include <string>
#include <string_view>
#include <utility>

#include "MemoryFile.h"
#include "platform/AtomicFile.h"
#include "platform/DirectorySearch.h"
#include "platform/RegularFile.h"

namespace {

struct File {
    std::string path;
    std::string content;
    bool there = false;
};

/// Descriptors are places in this list. Few paths are ever used, so none is taken away.
std::deque<File>& files() {
    static std::deque<File> list;
    return list;
}

int placeOf(std::string_view path) {
    const auto found = std::find_if(files().begin(), files().end(),
                                    [&](const File& file) { return file.path == path; });
    return static_cast<int>(found - files().begin());
}

File& fileAt(int place) {
    return files()[static_cast<std::size_t>(place)];
}

bool isThere(int place) {
    return place < std::ssize(files()) && fileAt(place).there;
}

/// The path's file, made if need be.
int makePlace(const std::string& path) {
    const int place = placeOf(path);
    if (place == std::ssize(files())) {
        files().push_back({path, {}, false});
    }
    return place;
}

constexpr const char* draftName = "draft";

}  // namespace

MemoryFile::MemoryFile(const std::uint8_t* data, std::size_t size, const char* name)
    : mPath(fileAt(makePlace(name)).path) {
    File& file = fileAt(placeOf(mPath));
    file.content.assign(reinterpret_cast<const char*>(data), size);
    file.there = true;
}

namespace Orlek::Detail {

void RegularFile::close() {
    mDescriptor = -1;
    mSize = 0;
}

bool RegularFile::open(const std::string& path) {
    close();
    const int place = placeOf(path.c_str());  // up to a zero byte, as the system sees it
    if (!isThere(place)) {
        errno = ENOENT;
        return false;
    }
    mDescriptor = place;
    mSize = fileAt(place).content.size();
    return true;
}

std::size_t RegularFile::readAt(std::uint64_t offset, std::span<std::byte> out) const {
    if (offset >= mSize) {
        return 0;
    }
    const std::size_t length = std::min<std::size_t>(out.size(), mSize - offset);
    std::memcpy(out.data(), fileAt(mDescriptor).content.data() + offset, length);
    return length;
}

AtomicFile::~AtomicFile() = default;

bool AtomicFile::open(const std::string& path) {
    mTarget = path;
    mDescriptor = makePlace(draftName);
    fileAt(mDescriptor).content.clear();
    fileAt(mDescriptor).there = true;
    return true;
}

bool AtomicFile::write(std::string_view bytes) {
    fileAt(mDescriptor).content += bytes;
    return true;
}

std::string AtomicFile::draftPath() const {
    return draftName;
}

bool AtomicFile::commit() {
    File& target = fileAt(makePlace(mTarget));
    target.content.swap(fileAt(mDescriptor).content);
    target.there = std::exchange(fileAt(mDescriptor).there, false);
    return true;
}

FileKind fileKind(const std::string& path) {
    return isThere(placeOf(path.c_str())) ? FileKind::regular : FileKind::missing;
}

FileStamp fileStamp(const std::string& path) {
    return {fileKind(path)};
}

bool createDirectory(const std::string& /*path*/) {
    return false;
}

DirectoryIdentity directoryIdentity(const std::string& /*path*/) {
    return {};
}

bool DirectorySearch::read(const std::string& /*path*/) {
    mEntries.clear();
    errno = ENOENT;
    return false;
}

}  // namespace Orlek::Detail
