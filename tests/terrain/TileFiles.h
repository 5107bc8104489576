// Writes small DTED files and SRTM archives for the tests, with every field free to lie.
#pragma once

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>

#include "files/ZipBuilder.h"
#include "support/TempDir.h"

namespace OrlekTest {

using Elevation = std::function<int(int, int)>;

inline void appendBigEndian(std::string& bytes, int value) {
    bytes.push_back(static_cast<char>((value >> 8) & 0xFF));
    bytes.push_back(static_cast<char>(value & 0xFF));
}

/// The fields of a DTED user header label, as they stand in the file.
struct DtedLabel {
    std::string lon = "0060000E";
    std::string lat = "0450000N";
    std::string lonInterval = "9000";
    std::string latInterval = "9000";
    std::string numLon = "0003";
    std::string numLat = "0003";

    std::string text() const {
        std::string label = "UHL1" + lon + lat + lonInterval + latInterval;
        label += "NA  U              " + numLon + numLat;
        label.resize(80, ' ');
        return label;
    }
};

inline DtedLabel dtedLabelAt(int lat, int lon) {
    char field[16];
    DtedLabel label;
    std::snprintf(field, sizeof field, "%03d0000%c", std::abs(lat), lat < 0 ? 'S' : 'N');
    label.lat = field;
    std::snprintf(field, sizeof field, "%03d0000%c", std::abs(lon), lon < 0 ? 'W' : 'E');
    label.lon = field;
    return label;
}

/// A whole file: headers and records, elevation(i, j) at latitude index i and longitude index j.
inline std::string dtedFile(const DtedLabel& label, const Elevation& elevation) {
    std::string file = label.text();
    file.resize(3428, ' ');
    for (int j = 0; j < std::stoi(label.numLon); ++j) {
        file.append(8, '\xAA');
        for (int i = 0; i < std::stoi(label.numLat); ++i) {
            appendBigEndian(file, elevation(i, j));
        }
        file.append(4, '\0');
    }
    return file;
}

/// A tile of 3 x 3 posts of one elevation, in a file named after its south-west corner.
inline std::string writeFlatDted(const TempDir& dir, int lat, int lon, int elevation) {
    return dir.write(std::to_string(lat) + "/" + std::to_string(lon) + ".DT1",
                     dtedFile(dtedLabelAt(lat, lon), [=](int, int) { return elevation; }));
}

/// The samples of an SRTM file, elevation(row, column) from the north-west.
inline std::string srtmSamples(int columns, int rows, const Elevation& elevation) {
    std::string samples;
    samples.reserve(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows) * 2);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            appendBigEndian(samples, elevation(row, column));
        }
    }
    return samples;
}

/// A deflate stream of stored blocks (RFC 1951, 3.2.4).
inline std::string storedDeflate(const std::string& content) {
    std::string stream;
    std::size_t at = 0;
    do {
        const auto length =
            static_cast<std::uint32_t>(std::min<std::size_t>(content.size() - at, 65535));
        stream.push_back(at + length == content.size() ? '\1' : '\0');
        stream += littleEndian(length, 2) + littleEndian(~length, 2);
        stream.append(content, at, length);
        at += length;
    } while (at < content.size());
    return stream;
}

/// An archive of one entry whose header says `size` for its uncompressed size.
inline std::string archiveOf(const std::string& stream, std::size_t size) {
    return archive({.name = "tile.hgt",
                    .data = stream,
                    .compressedSize = static_cast<std::uint32_t>(stream.size()),
                    .uncompressedSize = static_cast<std::uint32_t>(size)});
}

inline std::string archiveOf(const std::string& content) {
    return archiveOf(storedDeflate(content), content.size());
}

/// A whole 3 arc second tile of one elevation.
inline std::string flatSrtmArchive(int elevation) {
    return archiveOf(srtmSamples(1201, 1201, [=](int, int) { return elevation; }));
}

}  // namespace OrlekTest
