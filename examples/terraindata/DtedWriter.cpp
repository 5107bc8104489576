// DTED level 1 (MIL-PRF-89020B, appendix): three headers of fixed-width text,
//
//   UHL  user header label            80 bytes   origin, spacing, counts
//   DSI  data set identification     648 bytes   product, datum, corners
//   ACC  accuracy description       2700 bytes   here: not available
//
// then a record for each meridian, west to east. All its numbers are big-endian, elevations are
// sign and magnitude:
//
//   0xAA, 3-byte record number, 2-byte longitude count, 2-byte latitude count,
//   elevations south to north, 4-byte sum of all the record's bytes before it.
#include "DtedWriter.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace TerrainData {

namespace {

constexpr int tenthsPerSecond = 10;

// `value` in exactly `width` characters, with leading zeros.
std::string digits(int value, int width) {
    std::string text = std::to_string(value);
    text.insert(0,
                static_cast<std::size_t>(width) -
                    std::min<std::size_t>(text.size(), static_cast<std::size_t>(width)),
                '0');
    return text;
}

std::string blanks(std::size_t count) {
    return std::string(count, ' ');
}

// DDDMMSS or DDMMSS, then `tail`, then the hemisphere.
std::string angle(int tenths, int degreeDigits, const char* hemispheres, const char* tail = "") {
    const int seconds = std::abs(tenths) / tenthsPerSecond;
    return digits(seconds / 3600, degreeDigits) + digits(seconds / 60 % 60, 2) +
           digits(seconds % 60, 2) + tail + hemispheres[tenths < 0 ? 1 : 0];
}

std::string latitude(int tenths) {
    return angle(tenths, 2, "NS");
}

std::string longitude(int tenths) {
    return angle(tenths, 3, "EW");
}

std::string userHeader(const ElevationGrid& grid) {
    return "UHL1" + longitude(grid.west) + angle(grid.south, 3, "NS") + digits(grid.lonStep, 4) +
           digits(grid.latStep, 4) + "NA  " + "U  " + blanks(12) + digits(grid.columns, 4) +
           digits(grid.rows, 4) + "0" + blanks(24);
}

// The share of a full cell of one degree that the posts cover, 01 to 99; 00 is a full cell.
std::string partialCell(const ElevationGrid& grid) {
    const double cells = (grid.columns - 1.0) * grid.lonStep * (grid.rows - 1.0) * grid.latStep /
                         (36000.0 * 36000.0);
    const int percent = static_cast<int>(cells * 100.0 + 0.5);
    return percent >= 100 ? "00" : digits(std::max(percent, 1), 2);
}

std::string identification(const ElevationGrid& grid) {
    const int east = grid.west + (grid.columns - 1) * grid.lonStep;
    const int north = grid.south + (grid.rows - 1) * grid.latStep;
    return "DSIU" + blanks(2 + 27 + 26) + "DTED1" + blanks(15 + 8) + "01" + "A" + "0000" + "0000" +
           "0000" + blanks(8 + 16) + "PRF89020B" + "00" + "0005" + "MSL" + "WGS84" + blanks(10) +
           "0000" + blanks(22) + angle(grid.south, 2, "NS", ".0") +
           angle(grid.west, 3, "EW", ".0") +              // origin
           latitude(grid.south) + longitude(grid.west) +  // corners, clockwise
           latitude(north) + longitude(grid.west) + latitude(north) + longitude(east) +
           latitude(grid.south) + longitude(east) + "0000000.0" + digits(grid.latStep, 4) +
           digits(grid.lonStep, 4) + digits(grid.rows, 4) + digits(grid.columns, 4) +
           partialCell(grid) + blanks(101 + 100 + 156);
}

std::string accuracy() {
    return "ACCNA  NA  NA  NA  " + blanks(4 + 1 + 31) + "00" + blanks(2700 - 57);
}

void append(std::string& bytes, unsigned value, int count) {
    for (int shift = (count - 1) * 8; shift >= 0; shift -= 8) {
        bytes.push_back(static_cast<char>(static_cast<unsigned char>(value >> shift)));
    }
}

unsigned signAndMagnitude(int elevation) {
    const auto magnitude = static_cast<unsigned>(std::abs(elevation));
    return elevation < 0 ? 0x8000U | magnitude : magnitude;
}

unsigned sumOfBytes(const std::string& bytes) {
    unsigned sum = 0;
    for (const char byte : bytes) {
        sum += static_cast<unsigned char>(byte);
    }
    return sum;
}

std::string record(const ElevationGrid& grid, int column) {
    std::string bytes = "\xAA";
    append(bytes, static_cast<unsigned>(column), 3);
    append(bytes, static_cast<unsigned>(column), 2);
    append(bytes, 0, 2);
    for (int row = grid.rows - 1; row >= 0; --row) {
        append(bytes, signAndMagnitude(grid.at(row, column)), 2);
    }
    append(bytes, sumOfBytes(bytes), 4);
    return bytes;
}

}  // namespace

std::string toDted(const ElevationGrid& grid) {
    std::string file = userHeader(grid) + identification(grid) + accuracy();
    if (file.size() != 80 + 648 + 2700) {
        throw std::logic_error("the DTED headers have the wrong length");
    }
    for (int column = 0; column < grid.columns; ++column) {
        file += record(grid, column);
    }
    return file;
}

}  // namespace TerrainData
