// The compressed bytes of an archive's first entry in memory, and zlib's inflate of them alone:
// what no reader of archives can beat.
#pragma once

#include <zlib.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "files/ZipArchive.h"
#include "platform/RegularFile.h"
#include "platform/WholeFile.h"

namespace OrlekBench {

struct FirstEntry {
    std::string path;
    std::vector<char> bytes;
    Orlek::FileSystem::ZipFile::FileData entry;
};

inline FirstEntry readFirstEntry(const std::string& path) {
    FirstEntry first{path, {}, {}};
    Orlek::Detail::RegularFile file;
    Orlek::Detail::WalkedEntry entry;
    if (!file.open(path) || !Orlek::Detail::readWholeFile(path, first.bytes) ||
        Orlek::Detail::readEntry(file, 0, entry) != Orlek::Detail::ReadFault::none) {
        std::perror(path.c_str());
        std::exit(1);
    }
    first.entry = entry.data;
    return first;
}

/// One call of inflate from memory to memory.
inline bool inflateAtOnce(const FirstEntry& first, Bytef* out) {
    z_stream stream{};
    inflateInit2(&stream, -MAX_WBITS);
    stream.next_in =
        reinterpret_cast<Bytef*>(const_cast<char*>(first.bytes.data() + first.entry.dataOffset));
    stream.avail_in = first.entry.compressedSize;
    stream.next_out = out;
    stream.avail_out = first.entry.uncompressedSize;
    const int result = inflate(&stream, Z_NO_FLUSH);
    inflateEnd(&stream);
    return result == Z_STREAM_END;
}

}  // namespace OrlekBench
