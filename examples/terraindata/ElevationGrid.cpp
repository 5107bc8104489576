// From the arrays of the archive to posts at exact angles.
#include "ElevationGrid.h"

#include <cmath>
#include <cstdlib>
#include <memory>
#include <stdexcept>

#include "NpyArray.h"
#include "Orlek/FileSystem/ZipFile.h"

namespace TerrainData {

namespace {

constexpr double tenthsPerDegree = 36000.0;

NpyArray readArray(Orlek::FileSystem::ZipFile& archive, const std::string& name) {
    unsigned int size = 0;
    const std::unique_ptr<unsigned char, decltype(&std::free)> bytes(
        archive.readFile(name + ".npy", size), &std::free);
    if (bytes == nullptr) {
        throw std::runtime_error("no readable entry " + name + ".npy");
    }
    try {
        return parseNpy({bytes.get(), size});
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(name + ".npy: " + error.what());
    }
}

// A whole number of `unit` tenths of arc seconds; edges and steps are decimal fractions of a
// degree, so that a real grid misses it only by rounding.
int wholeTenths(double degrees, int unit, const std::string& what) {
    const double exact = degrees * tenthsPerDegree / unit;
    const double rounded = std::round(exact);
    if (!(std::abs(exact - rounded) < 1e-3) || std::abs(degrees) > 180.0) {
        throw std::runtime_error(what + " is not on a whole " + std::to_string(unit) +
                                 " tenths of an arc second");
    }
    return static_cast<int>(rounded) * unit;
}

double readNumber(Orlek::FileSystem::ZipFile& archive, const std::string& name) {
    return toNumber(readArray(archive, name));
}

// One axis: the westernmost or southernmost post, and the step.
struct Axis {
    int first;
    int step;
};

// `low` is the western or southern edge; `other` the edge that must be `posts` steps away from
// `known`.
Axis checkedAxis(double low, double known, double other, double step, int posts,
                 const std::string& name) {
    if (!(step > 0.0) || !(std::abs(std::abs(other - known) / step - posts) < 1e-3)) {
        throw std::runtime_error("the edges along " + name + " do not fit " +
                                 std::to_string(posts) + " posts");
    }
    return {wholeTenths(low + step / 2, 10, "the first post along " + name),
            wholeTenths(step, 1, "the step along " + name)};
}

Axis readLongitudes(Orlek::FileSystem::ZipFile& archive, int columns) {
    const double west = readNumber(archive, "xmin");
    return checkedAxis(west, west, readNumber(archive, "xmax"), readNumber(archive, "dx"), columns,
                       "x");
}

Axis readLatitudes(Orlek::FileSystem::ZipFile& archive, int rows) {
    const double north = readNumber(archive, "ymax");
    const double step = readNumber(archive, "dy");
    return checkedAxis(north - step * rows, north, readNumber(archive, "ymin"), step, rows, "y");
}

int postCount(std::size_t extent) {
    if (extent < 2 || extent > 9999) {
        throw std::runtime_error("the grid must have 2 to 9999 posts a side");
    }
    return static_cast<int>(extent);
}

}  // namespace

ElevationGrid readNumpyArchive(const std::string& path) {
    Orlek::FileSystem::ZipFile archive(path);
    if (!archive.exists()) {
        throw std::runtime_error("no file " + path);
    }
    const NpyArray elevation = readArray(archive, "elevation");
    if (elevation.shape.size() != 2) {
        throw std::runtime_error("elevation.npy is no table of rows and columns");
    }
    ElevationGrid grid;
    grid.rows = postCount(elevation.shape[0]);
    grid.columns = postCount(elevation.shape[1]);
    grid.elevations = toInt16(elevation);
    const Axis lon = readLongitudes(archive, grid.columns);
    const Axis lat = readLatitudes(archive, grid.rows);
    grid.west = lon.first;
    grid.lonStep = lon.step;
    grid.south = lat.first;
    grid.latStep = lat.step;
    return grid;
}

}  // namespace TerrainData
