// The system's files in memory. All inputs come through the same descriptor: making a new one each
// time would take longer than most inputs.
#include "MemoryFile.h"

#include <sys/mman.h>
#include <unistd.h>

#include <filesystem>

#include "FuzzTarget.h"
#include "support/TempDir.h"

namespace {

int descriptor() {
    static const int file = memfd_create("input", MFD_CLOEXEC);
    return file;
}

/// A link of that name to the descriptor's file.
const std::string& linkPath(const char* name) {
    static const OrlekTest::TempDir directory;
    static const std::string link = [&] {
        std::string path = directory.path(name);
        std::filesystem::create_symlink("/proc/self/fd/" + std::to_string(descriptor()), path);
        return path;
    }();
    return link;
}

}  // namespace

MemoryFile::MemoryFile(const std::uint8_t* data, std::size_t size, const char* name)
    : mPath(linkPath(name)) {
    require(descriptor() >= 0 && ftruncate(descriptor(), 0) == 0);
    require(pwrite(descriptor(), data, size, 0) == static_cast<ssize_t>(size));
}
