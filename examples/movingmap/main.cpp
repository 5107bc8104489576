// orlek-movingmap: a moving map over real terrain, as a picture, a series of pictures or a window.
#include <cstdio>
#include <exception>

#include "Charts.h"
#include "Headless.h"
#include "Interactive.h"
#include "Options.h"
#include "Terrain.h"

namespace {

using namespace MovingMap;

void run(const Options& options) {
    Orlek::Geodetic::HeightMap terrain;
    const Flight flight(
        options, options.route.empty() ? defaultRoute() : readRouteFile(options.route), terrain);
    const Charts charts = readCharts(options);
    openTerrain(terrain, options.tiles, flight.start());
    if (options.window) {
        showWindow(options, flight, terrain, charts);
    } else {
        drawPictures(options, flight, terrain, charts);
    }
}

}  // namespace

int main(int argc, char** argv) {
    try {
        if (const auto options = readOptions(argc, argv)) {
            run(*options);
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orlek-movingmap: %s\n", error.what());
        return 1;
    }
}
