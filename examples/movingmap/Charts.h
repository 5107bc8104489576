// What is drawn besides terrain and route.
#pragma once

#include <optional>
#include <vector>

#include "AirspaceFile.h"
#include "MapImage.h"
#include "Options.h"

namespace MovingMap {

struct Charts {
    std::vector<Airspace> airspace;
    std::optional<MapImage> image;
    double imageShare = 0.0;  ///< Of the image against the relief's own colours, 0 to 1.
};

/// Reads what the options name. Throws std::runtime_error when a file cannot be used.
Charts readCharts(const Options& options);

}  // namespace MovingMap
