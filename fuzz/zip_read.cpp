// Any bytes as an archive: it is walked, every entry is read, and the first one is read again in
// small pieces, which must give the same. Without any input the file is missing.
#include <Orlek/FileSystem/ZipFile.h>

#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "FuzzTarget.h"
#include "MemoryFile.h"
#include "Quiet.h"
#include "files/InflateStream.h"
#include "files/ZipArchive.h"
#include "platform/MallocArray.h"

namespace {

using Orlek::FileSystem::ZipFile;
using Content = Orlek::Detail::MallocArray<unsigned char>;

// Whether the first entry, read piece by piece and filled up with zeroes, is `whole`, or broken
// when there is none.
void checkPieces(const std::string& path, const unsigned char* whole, std::size_t size) {
    Orlek::Detail::InflateStream stream;
    std::uint32_t promised = 0;
    const auto fault = Orlek::Detail::openFirstEntry(path, stream, promised);
    if (fault != Orlek::Detail::ReadFault::none) {
        require(whole == nullptr);
        return;
    }
    std::vector<std::byte> pieces(promised);
    std::size_t done = 0;
    while (done < pieces.size()) {
        const std::size_t asked = std::min<std::size_t>(pieces.size() - done, 1 + done % 61);
        const std::size_t got = stream.read(std::span(pieces).subspan(done, asked));
        done += got;
        if (got < asked) {
            break;
        }
    }
    require(stream.atEnd() == (whole != nullptr));
    require(whole == nullptr ||
            (size == promised &&
             std::equal(pieces.begin(), pieces.end(), reinterpret_cast<const std::byte*>(whole))));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const MemoryFile file(data, size);
    const std::string path = size > 0 ? file.path() : missingPath;
    ZipFile zip(path);
    require(zip.exists() == (size > 0) && zip.nrFiles() == 0);
    unsigned int length = 0;
    const Content early(ZipFile(path).readFile("a", length));
    require(early != nullptr || length == 0);
    for (const std::string& name : zip.getFiles()) {
        const Content content(zip.readFile(name, length));
        require(content != nullptr || length == 0);
    }
    require(zip.nrFiles() == zip.getFiles().size());
    const std::string noName(1, '\0');  // names end before it
    require(zip.readFile(noName, length) == nullptr && length == 0);
    const Content first(zip.readFirstFile(length));
    checkPieces(path, first.get(), length);
    return 0;
}
