// orlek-topomap: draws a topographic map from elevation tiles, for orlek-movingmap --map-image.
#include <Orlek/Misc.h>

#include <charconv>
#include <cstdio>
#include <exception>
#include <stdexcept>

#include "BuildPaths.h"
#include "Png.h"
#include "Terrain.h"
#include "TopoMap.h"

namespace {

using namespace MovingMap;
using Orlek::Misc::CmdLine;

std::string textOf(const char* name) {
    std::string value;
    CmdLine::instance().getParameter(name, value);
    return value;
}

void run() {
    const std::string width = textOf("--width");
    int pixels = 0;
    std::from_chars(width.data(), width.data() + width.size(), pixels);
    if (pixels < 16 || pixels > 8192) {
        throw std::runtime_error("--width: '" + width + "' is no number from 16 to 8192");
    }
    const Bounds bounds = parseBounds(textOf("--bounds"));
    Orlek::Geodetic::HeightMap terrain;
    openTerrain(terrain, textOf("--tiles"), {bounds.south, bounds.west});
    OrlekSupport::writePng(textOf("--out"), drawTopoMap(terrain, bounds, pixels));
    std::printf("%s\n", textOf("--out").c_str());
}

}  // namespace

int main(int argc, char** argv) {
    CmdLine& line = CmdLine::instance();
    line.addParameter("--tiles", "directory of elevation tiles (.DT1, .zip)", defaultTiles);
    line.addParameter("--bounds", "south,west,north,east in degrees", defaultBounds);
    line.addParameter("--width", "pixels from west to east", "2400");
    line.addParameter("--out", "picture to write", "topomap.png");
    line.addSwitch("--help", "print this text");
    try {
        if (!line.parse(argc, argv)) {
            throw std::runtime_error("see --help for the options");
        }
        if (line.getSwitch("--help")) {
            line.printUsage();
        } else {
            run();
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orlek-topomap: %s\n", error.what());
        return 1;
    }
}
