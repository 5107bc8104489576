// Reads a regular file whole, with the memory asked for only after its size is known.
#include "platform/WholeFile.h"

#include <cerrno>
#include <new>
#include <span>

#include "platform/RegularFile.h"

namespace Orlek::Detail {

bool readWholeFile(const std::string& path, std::vector<char>& bytes, std::uint64_t limit,
                   std::size_t padding) {
    bytes.clear();
    RegularFile file;
    if (!file.open(path)) {
        return false;
    }
    if (file.size() > limit) {
        errno = EFBIG;
        return false;
    }
    try {
        bytes.resize(static_cast<std::size_t>(file.size()) + padding);
    } catch (const std::bad_alloc&) {
        errno = ENOMEM;
        return false;
    }
    const std::span content = std::span(bytes).first(bytes.size() - padding);
    if (file.readAt(0, std::as_writable_bytes(content)) != content.size()) {
        bytes.clear();
        errno = EIO;
        return false;
    }
    return true;
}

}  // namespace Orlek::Detail
