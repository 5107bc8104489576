// LineLoops: any number of closed outlines in one draw call.
#include "Show.h"

namespace {

using namespace Gallery;
using namespace Orlek::OpenGL;

struct Picture {
    Sheet sheet{"LineLoops",
                "Closed outlines: airspaces, range rings, frames. Any number in one draw call.", 3,
                2};
    LineLoops rings, star, rectangle, airspace, thick, square;
    Box frame, turning;

    Picture() {
        const Box range = sheet.sample(0, 0, "addLineLoop(points)", "eight loops, one object");
        for (int corners = 3; corners <= 10; ++corners) {
            rings.addLineLoop(polygon(range.centre(), 10.0 * corners - 20.0, corners));
        }
        rings.setColor(cyan);
        rings.setLineWidth(pixels(1));

        const Box corners = sheet.sample(1, 0, "addVertex(point)", "closed by itself, 7 vertices");
        for (const Point& corner : polygon(corners.centre(), 80.0, 7, 3)) {
            star.addVertex(corner);
        }
        star.setColor(amber);
        star.setLineWidth(pixels(2));

        frame = sheet.sample(2, 0, "setRect(60, 40)", "from the origin; the matrix places it");
        rectangle.setRect(60, 40);
        rectangle.setColor(green);
        rectangle.setLineWidth(pixels(1));

        const Box zone =
            sheet.sample(0, 1, "setStipple(0xFF18)", "an airspace boundary in dots and dashes");
        airspace.addLineLoop(zone.points(
            {{0.05, 0.1}, {0.35, 0.95}, {0.6, 0.7}, {0.95, 0.85}, {0.8, 0.2}, {0.5, 0.35}}));
        airspace.setColor(magenta);
        airspace.setLineWidth(pixels(2));
        airspace.setStipple(0xFF18);

        const Box wide =
            sheet.sample(1, 1, "setLineWidth(9)", "corners stay open; program 9 joins them");
        thick.addLineLoop(polygon(wide.at(0.25, 0.5), 55.0, 3));
        thick.addLineLoop(polygon(wide.at(0.75, 0.5), 55.0, 32));
        thick.setLineWidth(pixels(9));
        thick.setColor(blue);

        turning =
            sheet.sample(2, 1, "MatrixRotate(5 * i, 0, 0, 1)", "one square, rendered 18 times");
        square.addLineLoop(polygon({0, 0}, 78.0, 4));
        square.setColor({0.93F, 0.95F, 0.97F, 0.7F});
        square.setLineWidth(pixels(1));
    }

    void draw(double seconds) {
        sheet.draw();
        for (LineLoops* loops : {&rings, &star, &airspace, &thick}) {
            loops->render(1.0);
        }
        for (int i = 0; i < 5; ++i) {
            place(frame.at(0.05 + 0.18 * i, 0.1 + 0.13 * i), 0.0, [&] { rectangle.render(1.0); });
        }
        for (int i = 0; i < 18; ++i) {
            place(turning.centre(), 5.0 * i + 4.0 * seconds, [&] { square.render(1.0); });
        }
    }
};

}  // namespace

int main(int argc, char** argv) {
    return Gallery::show<Picture>(argc, argv, "loops");
}
