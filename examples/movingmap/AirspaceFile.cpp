// Airspace line by line. Circles become polygons at once, so that everything behind here knows
// outlines only.
#include "AirspaceFile.h"

#include <Orlek/Geodetic.h>

#include <algorithm>
#include <cctype>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "DefaultAirspace.h"
#include "TextLines.h"

namespace MovingMap {

namespace {

constexpr std::size_t longestName = 24;
constexpr std::size_t longestLimit = 12;
constexpr double largestRadiusMiles = 200.0;
constexpr int circleCorners = 72;

void expect(const Fields& fields, std::size_t count, const char* what) {
    if (fields.size() != count) {
        throw std::runtime_error(std::string("expected ") + what);
    }
}

AirspaceKind kindOf(const std::string& type) {
    constexpr std::string_view classes = "ABCDEFG";
    if (type.size() == 1 && classes.find(type.front()) != std::string_view::npos) {
        return AirspaceKind::controlled;
    }
    if (type == "RESTRICTED" || type == "PROHIBITED" || type == "DANGER") {
        return AirspaceKind::prohibited;
    }
    if (type == "TRAINING") {
        return AirspaceKind::training;
    }
    throw std::runtime_error("'" + type + "' is no class A to G, nor restricted, prohibited, " +
                             "danger or training");
}

Airspace begin(const Fields& fields) {
    expect(fields, 5, "airspace, name, type, floor, ceiling");
    Airspace airspace;
    airspace.name = textField(fields[1], "a name", longestName);
    airspace.type = textField(fields[2], "a type", longestName);
    std::transform(airspace.type.begin(), airspace.type.end(), airspace.type.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    airspace.kind = kindOf(airspace.type);
    airspace.floor = textField(fields[3], "a floor", longestLimit);
    airspace.ceiling = textField(fields[4], "a ceiling", longestLimit);
    return airspace;
}

std::vector<Position> circle(const Fields& fields) {
    expect(fields, 4, "circle, latitude, longitude, radius");
    const Position centre = positionFields(fields[1], fields[2]);
    const double radius =
        numberField(fields[3], "radius", 0.01, largestRadiusMiles) * metresPerMile;
    std::vector<Position> corners(circleCorners);
    for (int i = 0; i < circleCorners; ++i) {
        Position& corner = corners[static_cast<std::size_t>(i)];
        Orlek::Geodetic::calcPointFromBrgDistance(centre.lat, centre.lon, i * 360.0 / circleCorners,
                                                  radius, corner.lat, corner.lon);
    }
    return corners;
}

bool isOutlined(const Airspace& airspace) {
    return !airspace.outlines.empty() &&
           std::all_of(airspace.outlines.begin(), airspace.outlines.end(),
                       [](const auto& outline) { return outline.size() >= 3; });
}

class Reader {
public:
    explicit Reader(std::string source) : mSource(std::move(source)) {}

    void line(const Fields& fields, int number) {
        if (fields[0] == "airspace") {
            mAirspace.push_back(begin(fields));
            mBegun.push_back(number);
            mOpen = false;
        } else if (mAirspace.empty()) {
            throw std::runtime_error("expected airspace, name, type, floor, ceiling");
        } else if (fields[0] == "point") {
            point(fields);
        } else if (fields[0] == "circle") {
            mAirspace.back().outlines.push_back(circle(fields));
            mOpen = false;
        } else {
            throw std::runtime_error("'" + std::string(fields[0]) +
                                     "' is none of airspace, point and circle");
        }
    }

    std::vector<Airspace> take() {
        for (std::size_t i = 0; i < mAirspace.size(); ++i) {
            if (!isOutlined(mAirspace[i])) {
                throw errorInLine(mSource, mBegun[i],
                                  "an airspace needs a circle or at least three points");
            }
        }
        return std::move(mAirspace);
    }

private:
    void point(const Fields& fields) {
        expect(fields, 3, "point, latitude, longitude");
        auto& outlines = mAirspace.back().outlines;
        if (!mOpen) {
            outlines.emplace_back();
            mOpen = true;
        }
        outlines.back().push_back(positionFields(fields[1], fields[2]));
    }

    std::string mSource;
    std::vector<Airspace> mAirspace;
    std::vector<int> mBegun;  // The line of each.
    bool mOpen = false;
};

}  // namespace

std::vector<Airspace> parseAirspace(std::istream& text, const std::string& source) {
    Reader reader(source);
    forEachLine(text, source,
                [&](const Fields& fields, int number) { reader.line(fields, number); });
    return reader.take();
}

std::vector<Airspace> readAirspaceFile(const std::string& path) {
    std::istringstream text(readSmallFile(path, "airspace"));
    return parseAirspace(text, path);
}

std::vector<Airspace> defaultAirspace() {
    std::istringstream text{std::string(defaultAirspaceText)};
    return parseAirspace(text, "default airspace");
}

}  // namespace MovingMap
