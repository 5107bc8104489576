// An archive is the local header with the entry's data, a directory that repeats the header, and
// the end record that tells where the directory is (APPNOTE 6.3, 4.3.7, 4.3.12 and 4.3.16):
//
//   "PK\3\4" fields, name length 2, extra length 2, name, data
//   "PK\1\2" made by 2, fields, name length 2, 4 x 2 unused, attributes 4, offset 4, name
//   "PK\5\6" 2 x 2 unused, entries 2 x 2, directory size 4 and offset 4, comment length 2
//
// with the fields: version 2, flags 2, method 2, time and date 4, CRC-32 4, compressed size 4,
// uncompressed size 4. Numbers are little-endian.
#include "ZipWriter.h"

#include <zlib.h>

#include <algorithm>
#include <cstdint>
#include <new>

namespace OrlekTiles {

namespace {

std::string number(std::uint64_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) {
        text.push_back(static_cast<char>(value >> (8 * i) & 0xFFU));
    }
    return text;
}

std::string deflated(std::string_view content) {
    z_stream stream{};
    constexpr int memoryLevel = 9;
    if (deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, memoryLevel,
                     Z_DEFAULT_STRATEGY) != Z_OK) {
        throw std::bad_alloc();
    }
    std::string data;
    try {
        data.resize(deflateBound(&stream, static_cast<uLong>(content.size())));
    } catch (...) {
        deflateEnd(&stream);
        throw;
    }
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(content.data()));
    stream.avail_in = static_cast<uInt>(content.size());
    stream.next_out = reinterpret_cast<Bytef*>(data.data());
    stream.avail_out = static_cast<uInt>(data.size());
    deflate(&stream, Z_FINISH);  // with that much room it ends at once
    data.resize(stream.total_out);
    deflateEnd(&stream);
    return data;
}

std::string commonFields(std::string_view name, std::string_view content,
                         std::size_t compressedSize) {
    const bool ascii = std::all_of(name.begin(), name.end(), [](char c) { return c > 0; });
    constexpr unsigned utf8Flag = 1U << 11U;
    constexpr std::uint32_t newYear1980 = 1U << 21U | 1U << 16U;
    const uLong crc =
        crc32(0, reinterpret_cast<const Bytef*>(content.data()), static_cast<uInt>(content.size()));
    return number(20, 2) + number(ascii ? 0 : utf8Flag, 2) + number(Z_DEFLATED, 2) +
           number(newYear1980, 4) + number(crc, 4) + number(compressedSize, 4) +
           number(content.size(), 4) + number(name.size(), 2);
}

}  // namespace

std::string zipArchive(std::string_view name, std::string_view content) {
    constexpr unsigned madeOnUnix = 3U << 8U | 20U;
    constexpr std::uint32_t attributes = 0100644U << 16U;  // a file that all may read
    const std::string data = deflated(content);
    const std::string fields = commonFields(name, content, data.size());
    const std::string entry = std::string(name);
    const std::string directory = "PK\1\2" + number(madeOnUnix, 2) + fields + number(0, 8) +
                                  number(attributes, 4) + number(0, 4) + entry;
    std::string archive = "PK\3\4" + fields + number(0, 2) + entry;
    archive += data;
    const std::size_t offset = archive.size();
    archive += directory;
    archive += "PK\5\6" + number(0, 4) + number(1, 2) + number(1, 2) + number(directory.size(), 4) +
               number(offset, 4) + number(0, 2);
    return archive;
}

}  // namespace OrlekTiles
