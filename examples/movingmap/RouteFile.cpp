// Fields, numbers and their limits; everything that a typing error could break.
#include "RouteFile.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string_view>

#include "DefaultRoute.h"

namespace MovingMap {

namespace {

constexpr std::size_t longestName = 24;
constexpr double largestRadiusMiles = 50.0;

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::vector<std::string_view> fieldsOf(std::string_view line) {
    std::vector<std::string_view> fields;
    for (;;) {
        const std::size_t comma = line.find(',');
        fields.push_back(trimmed(line.substr(0, comma)));
        if (comma == std::string_view::npos) {
            return fields;
        }
        line.remove_prefix(comma + 1);
    }
}

double number(std::string_view text, const char* what, double low, double high) {
    double value = 0.0;
    const char* end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || stopped != end || !(value >= low && value <= high)) {
        std::ostringstream message;
        message << what << " '" << text << "' is no number from " << low << " to " << high;
        throw std::runtime_error(message.str());
    }
    return value;
}

bool isFlyOver(std::string_view text) {
    if (text != "flyby" && text != "flyover") {
        throw std::runtime_error("'" + std::string(text) + "' is neither flyby nor flyover");
    }
    return text == "flyover";
}

Waypoint parseWaypoint(std::string_view line) {
    const std::vector<std::string_view> fields = fieldsOf(line);
    if (fields.size() < 4 || fields.size() > 5) {
        throw std::runtime_error(
            "expected name, latitude, longitude, flyby or flyover [, turn radius]");
    }
    if (fields[0].empty() || fields[0].size() > longestName) {
        throw std::runtime_error("a name has 1 to " + std::to_string(longestName) + " characters");
    }
    Waypoint waypoint;
    waypoint.name = fields[0];
    waypoint.position.lat = number(fields[1], "latitude", -89.0, 89.0);
    waypoint.position.lon = number(fields[2], "longitude", -180.0, 180.0);
    waypoint.flyOver = isFlyOver(fields[3]);
    if (fields.size() == 5) {
        waypoint.turnRadiusM =
            number(fields[4], "turn radius", 0.0, largestRadiusMiles) * metresPerMile;
    }
    return waypoint;
}

}  // namespace

Route parseRoute(std::istream& text, const std::string& source) {
    Route route;
    std::string line;
    for (int lineNumber = 1; std::getline(text, line); ++lineNumber) {
        const std::string_view content = trimmed(std::string_view(line).substr(0, line.find('#')));
        if (content.empty()) {
            continue;
        }
        try {
            route.push_back(parseWaypoint(content));
        } catch (const std::runtime_error& error) {
            throw std::runtime_error(source + ":" + std::to_string(lineNumber) + ": " +
                                     error.what());
        }
    }
    if (route.size() < 2) {
        throw std::runtime_error(source + ": a route needs at least two waypoints");
    }
    return route;
}

Route readRouteFile(const std::string& path) {
    constexpr std::uintmax_t largestFile = 1 << 20;
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error) ||
        std::filesystem::file_size(path, error) > largestFile) {
        throw std::runtime_error("no route file of at most a megabyte: " + path);
    }
    std::ifstream file(path);
    if (!file) {
        throw std::runtime_error("cannot read the route file " + path);
    }
    return parseRoute(file, path);
}

Route defaultRoute() {
    std::istringstream text{std::string(defaultRouteText)};
    return parseRoute(text, "default route");
}

}  // namespace MovingMap
