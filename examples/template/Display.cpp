#include "Display.h"

#include <GL/gl.h>
#include <Orlek/Geodetic.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

using namespace Orlek::OpenGL;
using Orlek::Math::Vector2;
using Orlek::Math::Vector4;

namespace {

struct Waypoint {
    const char* name;
    double lat;
    double lon;
};

constexpr Waypoint route[] = {{"ARBON", 47.517, 9.433},
                              {"LINDA", 47.633, 9.733},
                              {"KEMPT", 47.800, 9.750},
                              {"RAVEN", 47.900, 9.600}};
constexpr Waypoint zone{"TMA", 47.680, 9.510};

constexpr double nauticalMile = 1852.0;
constexpr double range = 15.0 * nauticalMile;  // from the own ship to the rose
constexpr double speed = 120.0 * nauticalMile / 3600.0;

const Vector4<float> night(0.05F, 0.07F, 0.1F, 1.0F);
const Vector4<float> white(0.9F, 0.93F, 0.95F, 1.0F);
const Vector4<float> grey(0.45F, 0.52F, 0.6F, 1.0F);
const Vector4<float> magenta(1.0F, 0.35F, 0.85F, 1.0F);
const Vector4<float> cyan(0.3F, 0.8F, 0.95F, 1.0F);
const Vector4<float> amber(1.0F, 0.75F, 0.25F, 1.0F);

/// Metres east and north of the first waypoint.
Vector2<double> onGrid(const Waypoint& point) {
    Vector2<double> metres(0, 0);
    Orlek::Geodetic::latLong2Grid(route[0].lat, route[0].lon, point.lat, point.lon, metres.x,
                                  metres.y);
    return metres;
}

/// The point at a bearing, in degrees clockwise from +y.
Vector2<float> polar(double bearing, double radius) {
    const double angle = bearing * 0.017453292519943295;
    return {static_cast<float>(radius * std::sin(angle)),
            static_cast<float>(radius * std::cos(angle))};
}

std::vector<Vector2<float>> circle(double radius) {
    std::vector<Vector2<float>> points;
    for (int bearing = 0; bearing < 360; bearing += 3) {
        points.push_back(polar(bearing, radius));
    }
    return points;
}

}  // namespace

Display::Display() {
    GlHandler::instance();  // before anything else that draws
    buildRoute();
    buildAirspace();
    buildRose();
    mShip.addLineStrip(std::vector<Vector2<float>>{{0, 14}, {0, -14}});
    mShip.addLineStrip(std::vector<Vector2<float>>{{-12, 0}, {0, 4}, {12, 0}});
    mShip.addLineStrip(std::vector<Vector2<float>>{{-5, -13}, {0, -11}, {5, -13}});
}

Display::~Display() {
    // Polygon leaves its GL objects to the next upload, and there is none.
    mAirspace.clear();
}

void Display::buildRoute() {
    // Straight legs, rounded where the aircraft turns. There is a point on each degree of the arc.
    mRoute.addVertex(onGrid(route[0]));
    for (std::size_t i = 1; i + 1 < std::size(route); ++i) {
        bool reduced = false;
        const auto arc = Orlek::Geodetic::calcFlyByPoints(
            onGrid(route[i - 1]), onGrid(route[i]), onGrid(route[i + 1]), 3000.0, -1, reduced);
        for (std::size_t degree = 0; degree < arc.size(); degree += 8) {
            mRoute.addVertex(arc[degree]);
        }
    }
    mRoute.addVertex(onGrid(route[std::size(route) - 1]));
    mRoute.setColor(magenta);
}

void Display::buildAirspace() {
    const Vector2<double> centre = onGrid(zone);
    std::vector<Vector2<float>> outline;
    for (int bearing = 0; bearing <= 360; bearing += 3) {
        const double miles = bearing < 120 ? 4.0 : 6.0;
        const Vector2<float> point = polar(bearing, miles * nauticalMile);
        outline.push_back(Vector2<double>(centre.x + point.x, centre.y + point.y));
    }
    Tesselator tesselator;
    for (const Vector2<float>& corner : outline) {
        tesselator.addVertex(corner);
    }
    mAirspace.addTessPolygon(tesselator.tesselate());
    mAirspace.setColor({cyan.x, cyan.y, cyan.z, 0.18F});
    mBorder.addLineLoop(outline);
    mBorder.setColor(cyan);
}

void Display::buildRose() {
    for (int bearing = 0; bearing < 360; bearing += 5) {
        mTicks.addVertex(polar(bearing, 1.0));
        mTicks.addVertex(polar(bearing, bearing % 10 == 0 ? 0.95 : 0.97));
    }
    mTicks.setColor(white);
    mRings.addLineLoop(circle(1.0));
    mRings.addLineLoop(circle(2.0 / 3.0));
    mRings.addLineLoop(circle(1.0 / 3.0));
    mRings.setColor(grey);
}

void Display::draw(int width, int height, float scale, double seconds) {
    glViewport(0, 0, width, height);
    GlHandler::instance().setViewPort({static_cast<float>(width), static_cast<float>(height)});
    glClearColor(night.x, night.y, night.z, night.w);
    glClear(GL_COLOR_BUFFER_BIT);

    // One unit a pixel, the own ship in the middle.
    MatrixLoadIdent();
    MatrixScale(2.0 / width, 2.0 / height, 1.0);
    const double radius = 0.42 * std::min(width, height);
    const double course =
        Orlek::Geodetic::calcBearing(route[0].lat, route[0].lon, route[1].lat, route[1].lon);
    const double heading = course + 6.0 * std::sin(seconds / 7.0);
    drawMap(radius, scale, heading, 5.0 * nauticalMile + seconds * speed);
    drawRose(radius, scale, heading);
}

void Display::drawMap(double radius, float scale, double heading, double flown) {
    const Vector2<double> ahead = onGrid(route[1]);
    const double share = std::fmod(flown / ahead.Length(), 1.0);
    const double metre = radius / range;

    MatrixPush();
    MatrixRotate(heading, 0, 0, 1);  // what lies ahead comes up
    MatrixScale(metre, metre, 1.0);
    MatrixTranslate(-ahead.x * share, -ahead.y * share, 0.0);
    mAirspace.render();
    mBorder.setLineWidth(1.5F * scale);
    mBorder.render(metre);
    mRoute.setLineWidth(3.0F * scale);
    mRoute.render(-1);
    mText.setLineWidth(1.4 * scale);
    drawNames(metre / scale, heading);
    MatrixPop();
}

// Symbols and names stay upright and keep their size.
void Display::drawNames(double metre, double heading) {
    const auto place = [&](const Waypoint& point, auto draw) {
        const Vector2<double> at = onGrid(point);
        MatrixPush();
        MatrixTranslate(at.x, at.y, 0.0);
        MatrixScale(1.0 / metre, 1.0 / metre, 1.0);
        MatrixRotate(-heading, 0, 0, 1);
        draw(point.name);
        MatrixPop();
    };
    for (const Waypoint& waypoint : route) {
        place(waypoint, [&](const char* name) {
            mText.setColor(magenta);
            // Its gap to the next character counts in the width of a text.
            mText.renderFont(3, 1, "\x10", 22, VectorFont::CENTER);
            mText.setColor(white);
            mText.renderFont(14, 0, name, 15, VectorFont::CENTER_LEFT);
        });
    }
    mText.setColor(cyan);
    place(zone, [&](const char* name) { mText.renderFont(name, 15, VectorFont::CENTER); });
}

void Display::drawRose(double radius, float scale, double heading) {
    MatrixPush();
    MatrixScale(radius, radius, 1.0);
    mRings.setLineWidth(scale);
    mRings.render(radius);
    MatrixRotate(heading, 0, 0, 1);
    mTicks.setLineWidth(1.5F * scale);
    mTicks.render();
    mText.setColor(white);
    for (int bearing = 0; bearing < 360; bearing += 30) {
        MatrixPush();
        MatrixRotate(-bearing, 0, 0, 1);
        const std::string label =
            bearing % 90 == 0 ? std::string(1, "NESW"[bearing / 90]) : std::to_string(bearing / 10);
        mText.renderFont(0, 0.89, label, 18 * scale / radius, VectorFont::BOTTOM_CENTER);
        MatrixPop();
    }
    MatrixPop();

    MatrixPush();
    MatrixScale(scale, scale, 1.0);
    mShip.setColor(night);  // a rim, so that the route does not hide it
    mShip.setLineWidth(7.0F * scale);
    mShip.render(-1);
    mShip.setColor(amber);
    mShip.setLineWidth(2.5F * scale);
    mShip.render(-1);
    char text[32];
    const long shown = (std::lround(heading) + 719) % 360 + 1;  // 1 to 360
    std::snprintf(text, sizeof text, "%03ld\x1b", shown);
    mText.setColor(amber);
    mText.renderFont(0, radius / scale + 10, text, 24, VectorFont::BOTTOM_CENTER);
    mText.setColor(grey);
    std::snprintf(text, sizeof text, "%.0f NM", range / 3.0 / nauticalMile);
    mText.renderFont(6, radius / scale / 3.0 + 3, text, 13, VectorFont::BOTTOM_LEFT);
    MatrixPop();
}
