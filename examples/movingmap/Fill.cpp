// Strips by way of the terrain class: its map texture times its colour. Outlines by way of the
// tessellator.
#include "Fill.h"

#include <GL/gl.h>

namespace MovingMap {

namespace {

template <typename Set>
ScreenStipple stippleOf(Set set) {
    ScreenStipple stipple{};
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x) {
            if (set(x, y)) {
                stipple[static_cast<std::size_t>(y * 4 + x / 8)] |=
                    static_cast<unsigned char>(1 << x % 8);
            }
        }
    }
    return stipple;
}

}  // namespace

ScreenStipple dottedStipple() {
    return stippleOf([](int x, int y) { return y % 4 < 2 && (x + y / 4 * 4) % 8 < 2; });
}

ScreenStipple risingStipple() {
    return stippleOf([](int x, int y) { return (x + 32 - y) % 8 < 3; });
}

ScreenStipple fallingStipple() {
    return stippleOf([](int x, int y) { return (x + y) % 8 < 3; });
}

Fill::Fill() {
    const unsigned char whiteTexel[] = {255, 255, 255, 255};
    mStrip.load(whiteTexel, 1, 1, GL_RGBA);
    mStrip.setTerrainOsm(1.0);
}

Fill::~Fill() {
    mStrip.clear();
    mPolygon.clear();
}

void Fill::rect(Point low, Point high, const Colour& colour) {
    strip({low, Point(high.x, low.y), Point(low.x, high.y), high}, colour);
}

void Fill::strip(const std::vector<Point>& points, const Colour& colour) {
    mStrip.clearVertex();
    for (const Point& point : points) {
        mStrip.addVertex(Orlek::Math::Vector3<float>(static_cast<float>(point.x),
                                                     static_cast<float>(point.y), 0.0F),
                         Orlek::Math::Vector2<float>(0.5F, 0.5F));
    }
    mStrip.setColor(colour);
    mStrip.render();
}

void Fill::polygon(const std::vector<Point>& outline, const Colour& colour,
                   const ScreenStipple* pattern) {
    Orlek::OpenGL::Tesselator tesselator;
    for (const Point& point : outline) {
        tesselator.addVertex(static_cast<Orlek::Math::Vector2<float>>(point));
    }
    mPolygon.clearVertex();
    mPolygon.addTessPolygon(tesselator.tesselate());
    ScreenStipple stipple = pattern == nullptr ? ScreenStipple{} : *pattern;
    mPolygon.setPattern(pattern == nullptr ? nullptr : stipple.data());
    mPolygon.setColor(colour);
    mPolygon.render();
}

}  // namespace MovingMap
