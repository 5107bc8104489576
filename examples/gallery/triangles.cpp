// TriangleStrip, Circle: filled bands, plates and discs, with colours and stipple.
#include "Show.h"
#include "Stipple.h"

namespace {

using namespace Gallery;
using namespace Orlek::OpenGL;

constexpr unsigned corners[] = {3, 4, 6, 8, 12, 48};

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
    Box zones = sheet.sample(1, 0, "addVertex(point), setColor(color)", "three bands of a dial");
    Box hatched =
        sheet.sample(2, 0, "setPattern(pattern)", "stays on the screen while the band turns");
    Box rims =
        sheet.sample(0, 1, "Circle::setCircle(radius, segments)", "3, 4, 6, 8, 12 and 48 segments");
    Box dotted =
        sheet.sample(1, 1, "Circle::setPattern(pattern)", "as glPolygonStipple: highest bit first");
    Box lamps = sheet.sample(2, 1, "setColor({r, g, b, 0.6F})", "translucent, blended");
    TriangleStrip horizon;
    TriangleStrip bands[3] = {band(-120, 40, green), band(40, 90, amber), band(90, 120, red)};
    TriangleStrip turning = band(0, 270, amber);
    Pattern hatch = pattern(BitOrder::lowestFirst, [](int x, int y) { return (x + y) % 8 < 4; });
    Pattern dots =
        pattern(BitOrder::highestFirst, [](int x, int y) { return (x / 4 + y / 4) % 2 == 0; });
    Circle stippled = disc(80, 64, cyan);
    Circle rings[6];
    Circle lights[3] = {disc(50, 64, {1, 0.2F, 0.2F, 0.6F}), disc(50, 64, {0.2F, 1, 0.2F, 0.6F}),
                        disc(50, 64, {0.3F, 0.4F, 1, 0.6F})};

    Picture() {
        const std::pair<double, Colour> levels[] = {{1.0, {0.05F, 0.2F, 0.55F, 1}},
                                                    {0.5, {0.55F, 0.8F, 1, 1}},
                                                    {0.5, {0.65F, 0.45F, 0.25F, 1}},
                                                    {0.0, {0.25F, 0.15F, 0.08F, 1}}};
        for (const auto& [v, colour] : levels) {
            horizon.addVertex(sky.at(0, v), colour);
            horizon.addVertex(sky.at(1, v), colour);
        }
        horizon.setUseMultiColor(true);
        turning.setPattern(hatch.data());
        stippled.setPattern(dots.data());
        for (int i = 0; i < 6; ++i) {
            rings[i] = disc(36, corners[i], green);
        }
    }

    void draw(double seconds) {
        sheet.draw();
        horizon.render();
        for (int i = 0; i < 6; ++i) {
            place(rims.row(i / 3, 2).column(i % 3, 3).centre(), 0, [&] { rings[i].render(); });
        }
        for (int i = 0; i < 3; ++i) {
            place(zones.centre(), 0, [&] { bands[i].render(); });
            place(polar(lamps.centre(), 120 * i + 30 * seconds, 30), 0,
                  [&] { lights[i].render(); });
        }
        place(hatched.centre(), 20 * seconds, [&] { turning.render(); });
        place(dotted.centre(), 0, [&] { stippled.render(); });
    }
};

}  // namespace

int main(int argc, char** argv) {
    return Gallery::show<Picture>(argc, argv, "triangles");
}
