// TriangleStrip, Circle: filled bands, plates and discs, with colours and stipple.
#include "Show.h"
#include "Stipple.h"

namespace {

using namespace Gallery;
using namespace Orlek::OpenGL;

Pattern hatch = pattern(BitOrder::lowestFirst, [](int x, int y) { return (x + y) % 8 < 4; });
Pattern dots = pattern(BitOrder::highestFirst, [](int x, int y) { return (x ^ y) % 8 < 4; });
const Colour levels[] = {blue, cyan, {0.6F, 0.4F, 0.2F, 1}, {0.2F, 0.1F, 0, 1}};

// A band around the origin between two directions.
TriangleStrip band(double from, double to, const Colour& colour) {
    TriangleStrip strip;
    for (double bearing = from; bearing <= to; bearing += 5.0) {
        strip.addVertex(polar({0, 0}, bearing, 80));
        strip.addVertex(polar({0, 0}, bearing, 50));
    }
    strip.setColor(colour);
    return strip;
}

Circle disc(double radius, unsigned segments, const Colour& colour) {
    Circle circle;
    circle.setCircle(radius, segments);
    circle.setColor(colour);
    return circle;
}

struct Picture {
    Sheet sheet{"TriangleStrip and Circle", "Filled bands, plates and discs.", 3, 2};
    Box sky = sheet.sample(0, 0, "addVertex(point, color)", "setUseMultiColor(true)");
    Box zones = sheet.sample(1, 0, "addVertex(point)", "setColor(color): zones of a dial");
    Box hatched = sheet.sample(2, 0, "setPattern(hatch)", "stays on the screen, whatever turns");
    Box rims = sheet.sample(0, 1, "Circle::setCircle(36, segments)", "3, 4, 6, 8, 12 and 48");
    Box dotted = sheet.sample(1, 1, "Circle::setPattern(dots)", "as glPolygonStipple takes it");
    Point lamps = sheet.sample(2, 1, "setColor({r, g, b, 0.5F})", "blended").centre();
    TriangleStrip horizon;
    TriangleStrip bands[3] = {band(-120, 40, green), band(40, 90, amber), band(90, 120, red)};
    TriangleStrip turning = band(0, 270, amber);
    Circle stippled = disc(80, 64, cyan);
    Circle lights[3] = {disc(50, 64, glass(red)), disc(50, 64, glass(green)),
                        disc(50, 64, glass(blue))};
    Circle rings[6] = {disc(36, 3, green), disc(36, 4, green),  disc(36, 6, green),
                       disc(36, 8, green), disc(36, 12, green), disc(36, 48, green)};

    Picture() {
        for (int i = 0; i < 8; ++i) {
            horizon.addVertex(sky.at(i % 2, i < 2 ? 1 : i < 6 ? 0.5 : 0), levels[i / 2]);
        }
        horizon.setUseMultiColor(true);
        turning.setPattern(hatch.data());
        stippled.setPattern(dots.data());
    }

    void draw(double seconds) {
        sheet.draw();
        horizon.render();
        for (int i = 0; i < 6; ++i) {
            place(rims.row(i / 3, 2).column(i % 3, 3).centre(), 0, [&] { rings[i].render(); });
        }
        for (int i = 0; i < 3; ++i) {
            place(zones.centre(), 0, [&] { bands[i].render(); });
            place(polar(lamps, 120 * i + 30 * seconds, 30), 0, [&] { lights[i].render(); });
        }
        place(hatched.centre(), 20 * seconds, [&] { turning.render(); });
        place(dotted.centre(), 0, [&] { stippled.render(); });
    }
};

}  // namespace

int main(int argc, char** argv) {
    return Gallery::show<Picture>(argc, argv, "triangles");
}
