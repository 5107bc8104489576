// Registered with the library's command line, then turned into numbers and checked.
#include "Options.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>
#include <utility>

#include "BuildPaths.h"
#include "LastView.h"
#include "MapImage.h"
#include "ScreenOptions.h"
#include "Settings.h"

namespace MovingMap {

namespace {

using namespace OrlekSupport;
using Orlek::Misc::CmdLine;

// The built-in route is best seen from here: the terrain reaches to all edges of the picture.
constexpr double builtInPlaceMiles = 12.35;

std::string inCapitals(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

void registerOptions(CmdLine& line) {
    line.addParameter("--config",
                      "property file for the settings; a window writes it back when it closes", "");
    line.addParameter("--distances", "unit of distances, NM or km", "NM");
    line.addParameter("--altitudes", "unit of altitudes, ft or m", "ft");
    line.addParameter("--tiles", "directory of elevation tiles (.DT1, .zip)", defaultTiles);
    line.addParameter("--route", "route file; the built-in route when empty", "");
    line.addParameter("--airspace",
                      "airspace file; the built-in airspace when empty, none for none", "");
    line.addParameter("--map-image", "map to blend into the relief, a PNG file", "");
    line.addParameter("--map-bounds", "what the map image covers: south,west,north,east, degrees",
                      defaultBounds);
    line.addParameter("--map-share", "of the map image against the height colours, 0 to 1", "0.6");
    line.addParameter("--feed", "live data: tcp://HOST:PORT or udp://:PORT; none when empty", "");
    line.addParameter("--feed-seconds", "how long to collect live data for a picture", "3");
    line.addParameter("--feed-old", "age at which live data are old, seconds", "3");
    line.addParameter("--fetch",
                      "URL FILE: download a map image or tile before drawing (http, port 80)", "");
    line.addParameter("--font", "font file",
                      "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf");
    addScreenOptions("movingmap.png", "Escape closes it");
    line.addParameter(
        "--frames",
        "fly the route in this many numbered pictures; in a window: close after as many", "0");
    line.addParameter("--lat", "own latitude, degrees; on the route when empty", "");
    line.addParameter("--lon", "own longitude, degrees; on the route when empty", "");
    line.addParameter("--heading", "own heading, degrees; along the route when empty", "");
    line.addParameter("--along", "own place on the route, nautical miles from its start", "");
    line.addParameter("--range", "radius of the outer ring, in the unit of distances", "4");
    line.addParameter("--centre", "middle of the map: latitude,longitude; the aircraft when empty",
                      "");
    line.addParameter("--altitude", "own altitude, feet", "5500");
    line.addParameter("--speed", "ground speed, knots", "110");
    line.addSwitch("--headingup", "turn the map so that the heading points up");
    line.addSwitch("--northup", "keep north at the top (so it is without either)");
    line.addParameter("--width", "width of the picture, pixels", "1280");
    line.addParameter("--height", "height of the picture, pixels", "800");
    line.addParameter("--scale", "size of text and symbols, 1 is for 100 dots an inch", "1");
}

template <typename Unit>
Unit unitOf(const Settings& settings, const char* option, const char* key, Unit one, Unit other) {
    return settings.value(option, key, [&](const std::string& name, const std::string& text) {
        for (const Unit unit : {one, other}) {
            if (inCapitals(text) == symbol(unit)) {
                return unit;
            }
        }
        throw std::runtime_error(name + ": '" + text + "' is neither " + symbol(one) + " nor " +
                                 symbol(other));
    });
}

std::string boundsText(const std::string& name, const std::string& text) {
    try {
        parseBounds(text);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(name + ": '" + text + "': " + error.what());
    }
    return text;
}

void collectFiles(const Settings& settings, Options& options) {
    options.config = settings.file();
    options.tiles = settings.path("--tiles", "Map.tiles");
    options.font = settings.path("--font", "Map.font");
    options.route = settings.path("--route", "Map.route");
    options.airspace = settings.path("--airspace", "Map.airspace", "none");
    options.mapImage = settings.path("--map-image", "Map.image");
    options.mapBounds = settings.value("--map-bounds", "Map.imageBounds", boundsText);
    options.mapShare = settings.number("--map-share", "Map.imageShare", 0.0, 1.0);
}

void collectStyle(const Settings& settings, Style& style) {
    Units& units = style.units;
    units.distance = unitOf(settings, "--distances", "Units.distance", DistanceUnit::nauticalMiles,
                            DistanceUnit::kilometres);
    units.altitude =
        unitOf(settings, "--altitudes", "Units.altitude", AltitudeUnit::feet, AltitudeUnit::metres);
    Palette& colours = style.colours;
    settings.colour("Colours.route", colours.route);
    settings.colour("Colours.flown", colours.flown);
    settings.colour("Colours.ownShip", colours.ownShip);
    settings.colour("Colours.traffic", colours.traffic);
    settings.colour("Colours.rings", colours.rings);
    settings.colour("Colours.controlled", colours.controlled);
    settings.colour("Colours.prohibited", colours.prohibited);
    settings.colour("Colours.training", colours.training);
}

// A place of the aircraft on the command line is to be seen.
void collectView(const Settings& settings, Options& options) {
    const CmdLine& line = CmdLine::instance();
    options.centre = settings.value("--centre", "View.centre", parseCentre);
    if (!line.getSwitch("--centre") && (line.getSwitch("--lat") || line.getSwitch("--along"))) {
        options.centre.reset();
    }
    options.rangeM = settings.number("--range", "View.range", 0.1, 500.0) *
                     metresPer(options.style.units.distance);
    options.headingUp = settings.toggle("--headingup", "--northup", "View.headingUp");
}

Options collect() {
    const Settings settings(textOf("--config"));
    Options options;
    collectFiles(settings, options);
    collectStyle(settings, options.style);
    collectView(settings, options);
    if (!textOf("--feed").empty()) {
        options.feed = parseFeedUrl(textOf("--feed"));
    }
    options.feedSeconds = numberOf("--feed-seconds", 0.0, 86400.0);
    options.feedOldS = numberOf("--feed-old", 0.1, 60.0);
    options.screen = screenOptions();
    options.frames = numberOf("--frames", 0, 99999);
    options.lat = optionalNumberOf("--lat", -farthestLat, farthestLat);
    options.lon = optionalNumberOf("--lon", -180.0, 180.0);
    options.headingDeg = optionalNumberOf("--heading", 0.0, 360.0);
    const std::optional<double> along = optionalNumberOf("--along", 0.0, 10000.0);
    options.alongMiles = along.value_or(options.route.empty() ? builtInPlaceMiles : 0.0);
    options.altitudeFt = numberOf("--altitude", -1500.0, 99999.0);
    options.speedKt = numberOf("--speed", 10.0, 3000.0);
    options.width = numberOf("--width", 320, 8192);
    options.height = numberOf("--height", 240, 8192);
    options.scale = numberOf("--scale", 0.5, 3.0);
    if (options.width < 640 * options.scale || options.height < 480 * options.scale) {
        throw std::runtime_error("the picture must hold 640 x 480 pixels at its --scale");
    }
    return options;
}

}  // namespace

std::optional<Options> readOptions(int argc, char** argv) {
    CmdLine& line = CmdLine::instance();
    registerOptions(line);
    std::vector<char*> arguments(argv, argv + argc);
    const std::vector<Fetch> fetches = takeFetches(arguments);
    if (!parseArguments(static_cast<int>(arguments.size()), arguments.data())) {
        return std::nullopt;
    }
    // First, as settings may name what is fetched.
    const std::vector<std::string> missing = fetchAll(fetches);
    Options options = collect();
    for (const std::string& file : missing) {
        if (samePath(file, options.mapImage)) {
            options.mapImage.clear();
        }
    }
    if (options.lat.has_value() != options.lon.has_value()) {
        throw std::runtime_error("--lat and --lon go together");
    }
    return options;
}

}  // namespace MovingMap
