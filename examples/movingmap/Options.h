// The command line.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "FeedUrl.h"
#include "Fetch.h"
#include "Position.h"
#include "Screen.h"
#include "Style.h"

namespace MovingMap {

struct Options {
    std::string config;  ///< Where the settings are kept; empty: nowhere.
    Style style;
    std::string tiles;
    std::string route;     ///< Empty: the default route.
    std::string airspace;  ///< Empty: the default airspace; "none": none.
    std::string mapImage;  ///< Empty: no map image.
    std::string mapBounds;
    double mapShare = 0.0;
    std::optional<FeedUrl> feed;  ///< Nothing: no live data.
    double feedSeconds = 0.0;
    double feedOldS = 0.0;
    std::string font;
    OrlekSupport::ScreenOptions screen;
    int frames = 0;  ///< 0: one picture; a window stays open.
    std::optional<double> lat;
    std::optional<double> lon;
    std::optional<double> headingDeg;
    double alongMiles = 0.0;
    std::optional<Position> centre;  ///< Of the map; nothing: it follows the aircraft.
    double rangeM = 0.0;
    double altitudeFt = 0.0;
    double speedKt = 0.0;
    bool headingUp = false;
    int width = 0;
    int height = 0;
    double scale = 1.0;
};

/// Reads the program's arguments and the settings of their --config file. Returns nothing when only
/// the usage was asked for (it is then printed). Throws std::runtime_error with one line that says
/// what is wrong.
std::optional<Options> readOptions(int argc, char** argv);

}  // namespace MovingMap
