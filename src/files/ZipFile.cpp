#include <Orlek/FileSystem/ZipFile.h>

#include <algorithm>
#include <span>
#include <utility>

#include "files/InflateStream.h"
#include "files/ZipArchive.h"
#include "platform/DirectorySearch.h"
#include "platform/MallocArray.h"
#include "platform/RegularFile.h"

namespace Orlek::FileSystem {

ZipFile::ZipFile(const std::string& path) : mFileName(path) {}

bool ZipFile::exists() const {
    return Detail::fileKind(mFileName) == Detail::FileKind::regular;
}

std::vector<std::string> ZipFile::getFiles() {
    if (!mHeadersRead) {
        readAllHeaders();
    }
    std::vector<std::string> names;
    names.reserve(mFiles.size());
    for (const FileData& entry : mFiles) {
        names.push_back(entry.fileName);
    }
    return names;
}

unsigned int ZipFile::nrFiles() const {
    return static_cast<unsigned int>(mFiles.size());
}

unsigned char* ZipFile::readFile(const std::string& name, unsigned int& size) {
    size = 0;
    if (!mHeadersRead) {
        readAllHeaders();
    }
    const auto entry = std::find_if(mFiles.begin(), mFiles.end(), [&](const FileData& candidate) {
        return candidate.fileName == name;
    });
    return entry == mFiles.end() ? nullptr : readFileContent(*entry, size);
}

unsigned char* ZipFile::readFirstFile(unsigned int& size) {
    size = 0;
    if (!mHeadersRead) {
        readAllHeaders();
    }
    return mFiles.empty() ? nullptr : readFileContent(mFiles.front(), size);
}

bool ZipFile::readAllHeaders() {
    Detail::RegularFile archive;
    const bool opened = Detail::openArchive(mFileName, archive);
    std::vector<FileData> files;
    std::uint64_t offset = 0;
    Detail::WalkedEntry entry;
    while (opened && Detail::readEntry(archive, offset, entry) == Detail::ReadFault::none) {
        files.push_back(std::move(entry.data));
        offset = entry.nextOffset;
    }
    mFiles = std::move(files);
    mHeadersRead = true;  // also an archive that cannot be opened is not tried again
    return opened;
}

unsigned char* ZipFile::readFileContent(const FileData& entry, unsigned int& size) const {
    size = 0;
    Detail::RegularFile archive;
    Detail::InflateStream stream;
    if (!Detail::openArchive(mFileName, archive) ||
        Detail::openEntry(std::move(archive), entry, stream) != Detail::ReadFault::none) {
        return nullptr;
    }
    const std::size_t length = entry.uncompressedSize;
    Detail::MallocArray<std::byte> content = Detail::mallocArray<std::byte>(length + 1);
    if (!content) {
        return nullptr;
    }
    const std::size_t got = stream.read({content.get(), length});
    if (!stream.atEnd()) {
        return nullptr;
    }
    // A stream that ends early still counts; what it left is never handed out as it was.
    Detail::zeroLarge(content.get() + got, length - got);
    size = entry.uncompressedSize;
    return reinterpret_cast<unsigned char*>(content.release());
}

}  // namespace Orlek::FileSystem
