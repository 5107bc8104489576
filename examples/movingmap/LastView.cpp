#include "LastView.h"

#include <Orlek/Misc/Property.h>

#include <cstdio>
#include <stdexcept>

#include "OptionValues.h"

namespace MovingMap {

namespace {

// To a tenth of a metre.
std::string centreText(const Position& centre) {
    char text[64];
    std::snprintf(text, sizeof text, "%.6f,%.6f", centre.lat, centre.lon);
    return text;
}

}  // namespace

std::optional<Position> parseCentre(const std::string& name, const std::string& text) {
    if (text.empty()) {
        return std::nullopt;
    }
    const std::size_t comma = text.find(',');
    const auto lat = OrlekSupport::parseNumber(text.substr(0, comma), -farthestLat, farthestLat);
    const auto lon = OrlekSupport::parseNumber(
        comma == std::string::npos ? "" : text.substr(comma + 1), -180.0, 180.0);
    if (!lat || !lon) {
        throw std::runtime_error(name + ": '" + text + "' is no latitude,longitude");
    }
    return Position{*lat, *lon};
}

void saveSettings(const std::string& file, const LastView& view, DistanceUnit unit) {
    Orlek::Misc::Property& properties = Orlek::Misc::Property::instance();
    properties.setString("View.centre", view.centre ? centreText(*view.centre) : "");
    properties.setDouble("View.range", view.rangeM / metresPer(unit));
    properties.setSwitch("View.headingUp", view.headingUp);
    if (!properties.writeXmlFile(file)) {
        throw std::runtime_error("cannot write the settings to " + file);
    }
}

}  // namespace MovingMap
