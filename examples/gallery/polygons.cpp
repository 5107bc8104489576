// Tesselator, Polygon: outlines filled, concave or crossing themselves; screen stipple.
#include "Show.h"
#include "Stipple.h"

namespace {

using namespace Gallery;
using namespace Orlek::OpenGL;

Pattern hatch = pattern(BitOrder::lowestFirst, [](int x, int y) { return (x + y) % 8 < 4; });
Pattern dots = pattern(BitOrder::lowestFirst, [](int x, int y) { return x % 8 < 4 && y % 8 < 4; });
const Colour colours[] = {cyan, amber, green, magenta, blue, red, white};

Tesselator::TessPolygon tesselated(const Points& outline) {
    Tesselator tesselator;
    for (const Point& point : outline) {
        tesselator.addVertex(point);
    }
    return tesselator.tesselate();
}

// A filled outline. Fills have hard edges; a line around hides them.
struct Shape {
    Polygon fill;
    LineLoops edge;

    Shape(const Points& outline, const Colour& colour, unsigned char* stipple = nullptr) {
        fill.addTessPolygon(tesselated(outline));
        fill.setColor(glass(colour));
        fill.setPattern(stipple);
        edge.addLineLoop(outline);
        edge.setLineWidth(pixels(1));
        edge.setColor(colour);
    }
};

struct Picture {
    Sheet sheet{"Polygons", "Tesselator cuts an outline into triangles, Polygon fills it.", 3, 2};
    std::vector<Shape> shapes;
    std::vector<Polygon> pieces;
    Shape turning{polygon({0, 0}, 80, 7, 2), amber, hatch.data()};
    Box hatched = sheet.sample(0, 1, "setPattern(hatch)", "stays on the screen, whatever turns");

    Picture() {
        Box box = sheet.sample(0, 0, "tesselator.tesselate()", "concave");
        shapes.emplace_back(box.points({{0.1, 0}, {0.2, 1}, {0.5, 0.5}, {0.8, 0.9}, {0.9, 0.1}}),
                            cyan);
        box = sheet.sample(1, 0, "addTessPolygon(polygon)", "crossing itself: non-zero rule");
        shapes.emplace_back(polygon(box.centre(), 84, 5, 2), magenta);
        box = sheet.sample(2, 0, "setColor({r, g, b, 0.5F})", "blended with what is below");
        shapes.emplace_back(polygon(box.at(0.35, 0.6), 60, 6), red);
        shapes.emplace_back(polygon(box.at(0.65, 0.6), 60, 6), green);
        shapes.emplace_back(polygon(box.at(0.5, 0.4), 60, 6), blue);
        box = sheet.sample(1, 1, "setPattern(dots)", "32 x 32 pixels, a bit for each");
        shapes.emplace_back(box.points({{0, 0}, {1, 1}, {1, 0}, {0, 1}}), green, dots.data());
        box = sheet.sample(2, 1, "TessPolygon::primitives", "strips, fans, triangles");
        for (const auto& primitive : tesselated(polygon(box.centre(), 84, 8, 3)).primitives) {
            pieces.emplace_back().addTessPolygon({{primitive}});
            pieces.back().setColor(colours[pieces.size() % 7]);
        }
    }

    void draw(double seconds) {
        sheet.draw();
        for (Shape& shape : shapes) {
            shape.fill.render();
            shape.edge.render(1.0);
        }
        for (Polygon& piece : pieces)
            piece.render();
        place(hatched.centre(), 10 * seconds, [&] { turning.fill.render(); });
    }
};

}  // namespace

int main(int argc, char** argv) {
    return Gallery::show<Picture>(argc, argv, "polygons");
}
