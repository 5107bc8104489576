// orlek-topomap: draws a topographic map from elevation tiles, for orlek-movingmap --map-image.
#include <cstdio>
#include <exception>

#include "BuildPaths.h"
#include "OptionValues.h"
#include "Png.h"
#include "Terrain.h"
#include "TopoMap.h"

namespace {

using namespace MovingMap;
using namespace OrlekSupport;

void run() {
    const int pixels = numberOf("--width", 16, 8192);
    const Bounds bounds = parseBounds(textOf("--bounds"));
    Orlek::Geodetic::HeightMap terrain;
    openTerrain(terrain, textOf("--tiles"), {bounds.south, bounds.west});
    writePng(textOf("--out"), drawTopoMap(terrain, bounds, pixels));
    std::printf("%s\n", textOf("--out").c_str());
}

}  // namespace

int main(int argc, char** argv) {
    auto& line = Orlek::Misc::CmdLine::instance();
    line.addParameter("--tiles", "directory of elevation tiles (.DT1, .zip)", defaultTiles);
    line.addParameter("--bounds", "south,west,north,east in degrees", defaultBounds);
    line.addParameter("--width", "pixels from west to east", "2400");
    line.addParameter("--out", "picture to write", "topomap.png");
    try {
        if (parseArguments(argc, argv)) {
            run();
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orlek-topomap: %s\n", error.what());
        return 1;
    }
}
