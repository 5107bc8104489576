// orlek-movingmap: a moving map over real terrain, as a picture, a series of pictures or a window.
#include <cstdio>
#include <exception>
#include <optional>

#include "Charts.h"
#include "Headless.h"
#include "Interactive.h"
#include "LiveFlight.h"
#include "Options.h"
#include "Terrain.h"

namespace {

using namespace MovingMap;

// Keeps how the map is left, whatever ends it.
void showAndKeepView(OrlekSupport::Screen& screen, const Options& options, const Flight& flight,
                     Orlek::Geodetic::HeightMap& terrain, const Charts& charts, LiveFlight* feed) {
    LastView left;
    const auto keep = [&] {
        if (!options.config.empty()) {
            saveSettings(options.config, left, options.style.units.distance);
        }
    };
    try {
        showWindow(screen, options, flight, terrain, charts, feed, left);
    } catch (const std::exception&) {
        if (left.rangeM > 0.0) {
            keep();
        }
        throw;
    }
    keep();
}

void run(const Options& options) {
    Orlek::Geodetic::HeightMap terrain;
    const Flight flight(
        options, options.route.empty() ? defaultRoute() : readRouteFile(options.route), terrain);
    const Charts charts = readCharts(options);
    openTerrain(terrain, options.tiles, flight.start());
    std::optional<LiveFlight> live;
    if (options.feed) {
        live.emplace(options, flight);
    }
    LiveFlight* const feed = live ? &*live : nullptr;
    OrlekSupport::Screen screen(options.screen, "Moving map", options.width, options.height);
    if (screen.window() != nullptr) {
        showAndKeepView(screen, options, flight, terrain, charts, feed);
    } else {
        drawPictures(options, flight, terrain, charts, feed);
    }
}

}  // namespace

int main(int argc, char** argv) {
    try {
        if (auto options = readOptions(argc, argv)) {
            run(*options);
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orlek-movingmap: %s\n", error.what());
        return 1;
    }
}
