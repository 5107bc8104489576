#include "Charts.h"

#include <stdexcept>

namespace MovingMap {

namespace {

std::vector<Airspace> readAirspace(const std::string& path) {
    if (path == "none") {
        return {};
    }
    return path.empty() ? defaultAirspace() : readAirspaceFile(path);
}

std::optional<MapImage> readImage(const Options& options) {
    if (options.mapImage.empty()) {
        return std::nullopt;
    }
    try {
        return readMapImage(options.mapImage, parseBounds(options.mapBounds));
    } catch (const std::runtime_error& error) {
        throw std::runtime_error("--map-image, --map-bounds: " + std::string(error.what()));
    }
}

}  // namespace

Charts readCharts(const Options& options) {
    Charts charts;
    charts.airspace = readAirspace(options.airspace);
    charts.image = readImage(options);
    charts.imageShare = options.mapShare;
    return charts;
}

}  // namespace MovingMap
