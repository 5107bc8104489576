// orlek-npz2dted: turns an elevation grid in a NumPy archive into a DTED level 1 tile, so that the
// moving map has real terrain to draw.
#include <cstdio>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <string>

#include "DtedWriter.h"
#include "ElevationGrid.h"

namespace {

void writeFile(const std::string& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
        throw std::runtime_error("cannot write " + path);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: orlek-npz2dted INPUT.npz OUTPUT.DT1\n");
        return 1;
    }
    try {
        writeFile(argv[2], TerrainData::toDted(TerrainData::readNumpyArchive(argv[1])));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orlek-npz2dted: %s: %s\n", argv[1], error.what());
        return 1;
    }
    return 0;
}
