// LineStrips, LineStripsSimple: open polylines, in one colour or with a colour for each vertex.
#include <GL/gl.h>

#include <cmath>

#include "Show.h"

namespace {

using namespace Gallery;
using namespace Orlek::OpenGL;

Points wave(const Box& box, double phase) {
    Points points;
    for (int i = 0; i <= 50; ++i)
        points.push_back(box.at(i / 50.0, 0.5 + 0.5 * std::sin(0.18 * i + phase)));
    return points;
}

// Five strips in one object.
template <typename Strips>
void addWaves(Strips& strips, const Box& box, const Colour& colour) {
    for (int i = 0; i < 5; ++i)
        strips.addLineStrip(wave(box.row(i, 5), 0.8 * i));
    strips.setColor(colour);
    strips.setLineWidth(pixels(1));
}

// A track whose colour tells the height of each vertex.
void addTrack(LineStrips& strips, const Box& box) {
    for (const Point& point : wave(box, 0.0)) {
        const float height = (point.y - box.y) / box.height;
        strips.addVertex(point, Colour{height, 0.35F, 1.0F - height, 1.0F});
    }
    strips.setUseMultiColor(true);
    strips.setLineWidth(pixels(4));
}

struct Picture {
    Sheet sheet{"LineStrips", "Open lines: routes, tracks, contours. One draw call each.", 3, 2};
    LineStrips profiles, route, track, spiral, partly;
    LineStripsSimple simple;

    Picture() {
        addWaves(profiles, sheet.sample(0, 0, "addLineStrip(points)", "five strips in one"), cyan);
        Box box = sheet.sample(1, 0, "setStipple(0x0FFF)", "a route, setLineWidth(4)");
        route.addLineStrip(box.points({{0, 0.1}, {0.2, 0.8}, {0.5, 0.6}, {0.65, 0.95}, {1, 0.3}}));
        route.setLineWidth(pixels(4));
        route.setColor(magenta);
        route.setStipple(0x0FFF);
        addTrack(track, sheet.sample(2, 0, "addVertex(point, color)", "setUseMultiColor(true)"));
        spiral.setLineWidth(pixels(1));
        box = sheet.sample(0, 1, "render(count)", "draws the beginning only");
        for (int i = 0; i < 400; ++i) {
            spiral.addVertex(polar(box.centre(), 6.0 * i, 0.2 * i));
        }
        addWaves(simple, sheet.sample(1, 1, "LineStripsSimple", "solid, GL's width"), amber);
        box = sheet.sample(2, 1, "addVertex(point)", "one has none: all in setColor()");
        addTrack(partly, box);
        partly.addVertex(box.at(1, 0.5));
        partly.setColor(grey);
    }

    void draw(double seconds) {
        sheet.draw();
        for (LineStrips* strips : {&profiles, &route, &track, &partly})
            strips->render(-1);
        spiral.render(static_cast<int>(160.0 * seconds) % 400);
        glLineWidth(pixels(2));
        simple.render(-1);
    }
};

}  // namespace

int main(int argc, char** argv) {
    return Gallery::show<Picture>(argc, argv, "strips");
}
