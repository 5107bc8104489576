// The tile of the default picture: NumPy arrays in, a DTED file out that other readers accept.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include "DtedWriter.h"
#include "ElevationGrid.h"
#include "NpyArray.h"
#include "support/TempDir.h"
#include "terrain/GdalPosts.h"

namespace {

using namespace TerrainData;

std::vector<std::uint8_t> npy(const std::string& header, const std::string& data,
                              char version = 1) {
    std::string file = "\x93NUMPY";
    file += {version, '\0', static_cast<char>(header.size())};
    file.append(version == 1 ? 1 : 3, '\0').append(header).append(data);
    return {file.begin(), file.end()};
}

/// A header as NumPy writes it.
std::string dictionary(const std::string& shape, const std::string& type = "<i2",
                       const std::string& columnOrder = "False") {
    return "{'descr': '" + type + "', 'fortran_order': " + columnOrder + ", 'shape': " + shape +
           ", }";
}

TEST(Npy, isReadOrRefused) {
    EXPECT_EQ(toInt16(parseNpy(npy(dictionary("(2, 1)"), "\x10\x27\xff\xff", 2))),
              (std::vector<std::int16_t>{10000, -1}));
    std::vector<std::uint8_t> cut = npy(dictionary("(2,)"), "abcd");
    cut.resize(50);
    const std::pair<const char*, std::vector<std::uint8_t>> cases[] = {
        {"empty", {}},
        {"no signature", std::vector<std::uint8_t>(100, 'x')},
        {"header longer than the file", cut},
        {"column order", npy(dictionary("(2,)", "<i2", "True"), "abcd")},
        {"no shape", npy("{'descr': '<i2', 'fortran_order': False, }", "abcd")},
        {"shape without end", npy("{'descr': '<i2', 'fortran_order': False, 'shape': (2,", "abcd")},
        {"shape of words", npy(dictionary("(x,)"), "abcd")},
        {"too little data", npy(dictionary("(2,)"), "abc")},
        {"too much data", npy(dictionary("(2,)"), "abcdef")},
        {"another type", npy(dictionary("(2,)", ">i2"), "abcd")},
        {"beyond all memory", npy(dictionary("(4294967296, 4294967296)"), "")},
    };
    for (const auto& [why, file] : cases) {
        EXPECT_THROW(toInt16(parseNpy(file)), std::runtime_error) << why;
    }
    const OrlekTest::TempDir dir;
    EXPECT_THROW(readNumpyArchive(dir.path("missing.npz")), std::runtime_error);
    EXPECT_THROW(readNumpyArchive(dir.write("text.npz", "no archive")), std::runtime_error);
}

// Heights below sea level are sign and magnitude; a record is summed byte by byte.
TEST(Dted, headersAndRecords) {
    const std::string file = toDted({2, 3, -30, 36000, 30, 60, {1, 2, 3, -4, 500, 6}});
    ASSERT_EQ(file.size(), 3428U + 3 * (12 + 2 * 2));
    EXPECT_EQ(file.substr(0, 56), "UHL10000003W0010000N00600030NA  U              000300020");
    EXPECT_EQ(file.substr(3428, 16),
              std::string("\xAA\0\0\0\0\0\0\0\x80\x04\0\x01\0\0\x01\x2F", 16));
    EXPECT_EQ(file.substr(3444, 12), std::string("\xAA\0\0\x01\0\x01\0\0\x01\xF4\0\x02", 12));
}

// Which of the archive's latitudes is right is decided by the country: airports of the region have
// the elevations that are published for them, to the accuracy of posts 90 m apart.
TEST(Model, liesWhereItsAirportsAreAndIsReadByGdal) {
    if (std::string(ELEVATION_MODEL).empty() || !OrlekTest::haveGdal()) {
        GTEST_SKIP() << "no elevation model (package python-matplotlib-data) or gdal_translate "
                        "(package gdal-bin): the tile of the default picture is not checked";
    }
    const ElevationGrid grid = readNumpyArchive(ELEVATION_MODEL);
    EXPECT_EQ(grid.rows, 344);
    EXPECT_EQ(grid.columns, 403);
    EXPECT_EQ(grid.west, -(84 * 36000 + 24 * 600 + 48 * 10));
    EXPECT_EQ(grid.south, 36 * 36000 + 9 * 600 + 36 * 10);
    const auto elevationFt = [&](double lat, double lon) {
        const double north = grid.south + (grid.rows - 1.0) * grid.latStep;
        const auto row = std::lround((north - lat * 36000.0) / grid.latStep);
        const auto column = std::lround((lon * 36000.0 - grid.west) / grid.lonStep);
        return grid.at(static_cast<int>(row), static_cast<int>(column)) / 0.3048;
    };
    EXPECT_NEAR(elevationFt(36.334073, -84.162977), 1180, 40);  // Campbell County
    EXPECT_NEAR(elevationFt(36.183399, -84.099098), 1125, 40);  // Riner Farm
    const OrlekTest::TempDir dir;
    const std::string tile = dir.write("N36W085.DT1", toDted(grid));
    setenv("DTED_VERIFY_CHECKSUM", "YES", 1);
    const std::vector<std::int16_t> posts = OrlekTest::gdalPosts(tile, grid.rows, grid.columns);
    ASSERT_FALSE(posts.empty());
    const auto post = [&](int row, int column) {
        return posts[static_cast<std::size_t>(row * grid.columns + column)];
    };
    // GDAL 3.6 turns a meridian around with one swap too many when its number of posts is even:
    // the two middle rows may come in each other's place.
    const bool swapped = post(171, 0) != grid.at(171, 0);
    for (int row = 0; row < grid.rows; ++row) {
        const int expected = swapped && (row == 171 || row == 172) ? 343 - row : row;
        for (int column = 0; column < grid.columns; ++column) {
            ASSERT_EQ(post(row, column), grid.at(expected, column)) << row << " " << column;
        }
    }
}

}  // namespace
