// The posts of a tile as GDAL reads them, through its command line.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "support/TempDir.h"
#include "terrain/TerrainRules.h"

namespace OrlekTest {

inline bool haveGdal() {
    return std::system("gdal_translate --version >/dev/null 2>&1") == 0;
}

/// Rows from north to south; empty when GDAL cannot read the file.
inline std::vector<std::int16_t> gdalPosts(const std::string& source, int numLat, int numLon) {
    const TempDir dir;
    const std::string raw = dir.path("posts.raw");
    const std::string command =
        "gdal_translate -q -of ENVI -ot Int16 '" + source + "' '" + raw + "' >/dev/null";
    std::vector<std::int16_t> posts(static_cast<std::size_t>(numLat) *
                                    static_cast<std::size_t>(numLon));
    const auto size = static_cast<std::streamsize>(posts.size() * sizeof posts[0]);
    const bool translated = std::system(command.c_str()) == 0;
    std::ifstream file(raw, std::ios::binary);
    file.read(reinterpret_cast<char*>(posts.data()), size);
    return translated && file.gcount() == size ? posts : std::vector<std::int16_t>();
}

/// A tile as the rules make it of GDAL's posts. GDAL reads DTED by sign and magnitude and marks
/// voids with -32767; `dted` turns these back into the two's complement that the rules read, and
/// repairs.
inline RuleTile tileFromGdal(const std::string& source, double latOrigin, double lonOrigin,
                             int count, bool dted) {
    RuleTile tile{latOrigin, lonOrigin, 1.0 / (count - 1), 1.0 / (count - 1), count, count, {}};
    const std::vector<std::int16_t> posts = gdalPosts(source, count, count);
    if (posts.empty()) {
        return tile;
    }
    for (int j = 0; j < count; ++j) {
        std::vector<std::int16_t> line;
        for (int i = 0; i < count; ++i) {
            const int post = posts[static_cast<std::size_t>((count - 1 - i) * count + j)];
            const int stored = dted && post < 0 ? -32768 - post : post;
            line.push_back(static_cast<std::int16_t>(stored < -9000 ? 0 : stored));
        }
        if (dted) {
            repairLine(line);
        }
        tile.samples.insert(tile.samples.end(), line.begin(), line.end());
    }
    return tile;
}

}  // namespace OrlekTest
