// The tile of the default picture: NumPy arrays in, a DTED file out that other readers accept.
#include <Orlek/Geodetic.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "DtedWriter.h"
#include "ElevationGrid.h"
#include "NpyArray.h"
#include "support/TempDir.h"

namespace {

using namespace TerrainData;

std::vector<std::uint8_t> npy(const std::string& header, const std::string& data,
                              char version = 1) {
    std::string file = "\x93NUMPY";
    file += {version, char{0}, static_cast<char>(header.size()), char{0}};
    if (version != 1) {
        file += {0, 0};
    }
    file += header + data;
    return {file.begin(), file.end()};
}

TEST(Npy, readsTypeShapeAndElements) {
    const std::string header = "{'descr': '<i2', 'fortran_order': False, 'shape': (2, 1), }\n";
    for (const char version : {char{1}, char{2}}) {
        const NpyArray array = parseNpy(npy(header, {0x10, 0x27, '\xff', '\xff'}, version));
        EXPECT_EQ(array.shape, (std::vector<std::size_t>{2, 1}));
        EXPECT_EQ(toInt16(array), (std::vector<std::int16_t>{10000, -1}));
    }
}

TEST(Npy, refusesWhatItCannotRead) {
    const std::string good = "{'descr': '<i2', 'fortran_order': False, 'shape': (2,), }\n";
    const struct {
        const char* why;
        std::vector<std::uint8_t> file;
    } cases[] = {
        {"empty", {}},
        {"no signature", std::vector<std::uint8_t>(100, 'x')},
        {"header longer than the file", npy(std::string(200, ' '), "")},
        {"column order", npy("{'descr': '<i2', 'fortran_order': True, 'shape': (2,), }", "abcd")},
        {"no shape", npy("{'descr': '<i2', 'fortran_order': False, }", "abcd")},
        {"shape without end", npy("{'descr': '<i2', 'fortran_order': False, 'shape': (2,", "abcd")},
        {"shape of words", npy("{'descr': '<i2', 'fortran_order': False, 'shape': (x,)}", "abcd")},
        {"too little data", npy(good, "abc")},
        {"too much data", npy(good, "abcdef")},
        {"another type", npy("{'descr': '>i2', 'fortran_order': False, 'shape': (2,)}", "abcd")},
        {"a shape beyond all memory",
         npy("{'descr': '<i2', 'fortran_order': False, 'shape': (4294967296, 4294967296)}", "")},
    };
    for (auto file : cases) {
        if (std::string(file.why) == "header longer than the file") {
            file.file.resize(50);
        }
        EXPECT_THROW(toInt16(parseNpy(file.file)), std::runtime_error) << file.why;
    }
}

// Heights below sea level are sign and magnitude; a record is summed byte by byte.
TEST(Dted, headersAndRecords) {
    ElevationGrid grid{.rows = 2,
                       .columns = 3,
                       .west = -30,
                       .south = 36000,
                       .latStep = 30,
                       .lonStep = 60,
                       .elevations = {1, 2, 3, -4, 500, 6}};
    const std::string file = toDted(grid);
    ASSERT_EQ(file.size(), 3428U + 3 * (12 + 2 * 2));
    EXPECT_EQ(file.substr(0, 56),
              "UHL10000003W0010000N00600030NA  U              00030002"
              "0");
    EXPECT_EQ(file.substr(3428, 16),
              std::string("\xAA\0\0\0\0\0\0\0\x80\x04\0\x01\0\0\x01\x2F", 16));
    EXPECT_EQ(file.substr(3444, 12), std::string("\xAA\0\0\x01\0\x01\0\0\x01\xF4\0\x02", 12));
}

#define SKIP_WITHOUT_MODEL()                                                                \
    if (std::string(ELEVATION_MODEL).empty()) {                                             \
        GTEST_SKIP() << "no elevation model (package python-matplotlib-data): the tile of " \
                        "the default picture is not checked";                               \
    }

double elevationAt(const ElevationGrid& grid, double lat, double lon) {
    const double north = grid.south + (grid.rows - 1.0) * grid.latStep;
    const auto row = std::lround((north - lat * 36000.0) / grid.latStep);
    const auto column = std::lround((lon * 36000.0 - grid.west) / grid.lonStep);
    return grid.at(static_cast<int>(row), static_cast<int>(column));
}

// Which of the archive's latitudes is right is decided by the country: airports of the region have
// the elevations that are published for them, to the accuracy of posts 90 m apart.
TEST(Model, liesWhereItsAirportsAre) {
    SKIP_WITHOUT_MODEL();
    const ElevationGrid grid = readNumpyArchive(ELEVATION_MODEL);
    EXPECT_EQ(grid.rows, 344);
    EXPECT_EQ(grid.columns, 403);
    EXPECT_EQ(grid.west, -(84 * 36000 + 24 * 600 + 48 * 10));
    EXPECT_EQ(grid.south, 36 * 36000 + 9 * 600 + 36 * 10);
    constexpr double foot = 0.3048;
    EXPECT_NEAR(elevationAt(grid, 36.334073, -84.162977), 1180 * foot, 12.0);  // Campbell County
    EXPECT_NEAR(elevationAt(grid, 36.183399, -84.099098), 1125 * foot, 12.0);  // Riner Farm
}

int sampleOf(const std::string& raw, const ElevationGrid& grid, int row, int column) {
    const auto at = static_cast<std::size_t>(row * grid.columns + column) * 2;
    const auto low = static_cast<std::uint8_t>(raw[at]);
    const auto high = static_cast<std::uint8_t>(raw[at + 1]);
    return static_cast<std::int16_t>(low | high << 8);
}

TEST(Model, isReadBackByGdal) {
    SKIP_WITHOUT_MODEL();
    if (std::system("gdal_translate --version >/dev/null 2>&1") != 0) {
        GTEST_SKIP() << "no gdal_translate (package gdal-bin): the tile is not read back";
    }
    const ElevationGrid grid = readNumpyArchive(ELEVATION_MODEL);
    const OrlekTest::TempDir dir;
    const std::string tile = dir.write("N36W085.DT1", toDted(grid));
    const std::string raw = dir.path("raw");
    ASSERT_EQ(std::system(("DTED_VERIFY_CHECKSUM=YES gdal_translate -q -of ENVI -ot Int16 " + tile +
                           " " + raw)
                              .c_str()),
              0);
    std::ifstream file(raw, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    ASSERT_EQ(bytes.size(), grid.elevations.size() * 2);
    // GDAL 3.6 turns a meridian around with one swap too many when its number of posts is even:
    // the two middle rows may come in each other's place.
    const bool swapped = sampleOf(bytes, grid, 171, 0) != grid.at(171, 0);
    for (int row = 0; row < grid.rows; ++row) {
        const int expected = swapped && (row == 171 || row == 172) ? 343 - row : row;
        for (int column = 0; column < grid.columns; ++column) {
            ASSERT_EQ(sampleOf(bytes, grid, row, column), grid.at(expected, column))
                << "row " << row << " column " << column;
        }
    }
}

// A plateau's middle sample moves half-way when a record is read.
std::vector<double> asRead(const ElevationGrid& grid, int column) {
    std::vector<double> samples;
    for (int row = grid.rows - 1; row >= 0; --row) {
        samples.push_back(grid.at(row, column));
        const std::size_t k = samples.size() - 1;
        if (k >= 2 && samples[k - 2] == samples[k - 1]) {
            samples[k - 1] = std::trunc(samples[k - 2] + (samples[k] - samples[k - 2]) * 0.5);
        }
    }
    return samples;
}

TEST(Model, isReadBackByTheHeightMap) {
    SKIP_WITHOUT_MODEL();
    const ElevationGrid grid = readNumpyArchive(ELEVATION_MODEL);
    const OrlekTest::TempDir dir;
    dir.write("N36W085.DT1", toDted(grid));
    Orlek::Geodetic::HeightMap terrain;
    terrain.setDataPath(dir.path());
    terrain.loadData();
    unsigned char x = 0;
    unsigned char y = 0;
    unsigned char z = 0;
    while (!terrain.getNormal(36.3, -84.2, true, false, x, y, z)) {
        std::this_thread::yield();
    }
    for (int column = 0; column < grid.columns; ++column) {
        const std::vector<double> samples = asRead(grid, column);
        const double lon = (grid.west + column * grid.lonStep) / 36000.0;
        for (int i = 0; i < grid.rows; ++i) {
            const double lat = (grid.south + i * grid.latStep) / 36000.0;
            ASSERT_NEAR(terrain.getAltitude(lat, lon, true, false),
                        samples[static_cast<std::size_t>(i)], 1e-5)
                << "column " << column << " post " << i;
        }
    }
}

TEST(Model, missingOrOtherArchivesAreErrors) {
    const OrlekTest::TempDir dir;
    EXPECT_THROW(readNumpyArchive(dir.path("missing.npz")), std::runtime_error);
    EXPECT_THROW(readNumpyArchive(dir.write("text.npz", "no archive")), std::runtime_error);
}

}  // namespace
