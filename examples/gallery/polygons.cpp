// Tesselator, Polygon: outlines filled, concave or crossing themselves; screen stipple.
#include "Show.h"
#include "Stipple.h"

namespace {

using namespace Gallery;
using namespace Orlek::OpenGL;

// A filled outline. The fill has hard edges, which a line around it hides.
struct Shape {
    Polygon fill;
    LineLoops edge;

    Shape(const Points& outline, Colour colour) {
        edge.addLineLoop(outline);
        edge.setColor(colour);
        Tesselator tesselator;
        for (const Point& point : outline) {
            tesselator.addVertex(point);
        }
        fill.addTessPolygon(tesselator.tesselate());
        colour.w = 0.5F;
        fill.setColor(colour);
    }

    void render() {
        fill.render();
        edge.render(1.0);
    }
};

Points gear(Point centre) {
    Points points;
    for (int i = 0; i < 24; ++i) {
        points.push_back(polar(centre, 15.0 * i, i % 4 < 2 ? 80.0 : 48.0));
    }
    return points;
}

struct Picture {
    Sheet sheet{"Polygons", "Tesselator cuts an outline into triangles, Polygon draws them.", 3, 2};
    Box zone = sheet.sample(0, 0, "tesselate()", "concave");
    Box star = sheet.sample(1, 0, "addTessPolygon(polygon)", "crossing itself: non-zero rule");
    Box many = sheet.sample(2, 0, "setColor({r, g, b, 0.5F})", "translucent, blended");
    Box hatched =
        sheet.sample(0, 1, "setPattern(pattern)", "32 x 32 pixels that stay on the screen");
    Box dotted = sheet.sample(1, 1, "setPattern(pattern)", "a bit for each pixel, from lower left");
    Box pieces =
        sheet.sample(2, 1, "TessPolygon::primitives", "each in a colour: strips, fans, triangles");
    std::vector<Shape> shapes;
    std::vector<Polygon> primitives;
    Shape turning{gear({0, 0}), amber};

    Picture() {
        shapes.emplace_back(Points{zone.at(0.1, 0.0), zone.at(0.2, 1.0), zone.at(0.5, 0.5),
                                   zone.at(0.85, 0.95), zone.at(0.9, 0.2), zone.at(0.6, 0.25)},
                            cyan);
        shapes.emplace_back(polygon(star.centre(), 84, 5, 2), magenta);
        shapes.emplace_back(polygon(many.at(0.35, 0.6), 60, 6), red);
        shapes.emplace_back(polygon(many.at(0.65, 0.6), 60, 6), green);
        shapes.emplace_back(polygon(many.at(0.5, 0.4), 60, 6), blue);
        shapes.emplace_back(
            Points{dotted.at(0, 0.1), dotted.at(1, 0.9), dotted.at(1, 0.1), dotted.at(0, 0.9)},
            green);
        Pattern dots =
            pattern(BitOrder::lowestFirst, [](int x, int y) { return x % 8 < 4 && y % 8 < 4; });
        shapes.back().fill.setPattern(dots.data());
        Pattern hatch =
            pattern(BitOrder::lowestFirst, [](int x, int y) { return (x + y) % 8 < 3; });
        turning.fill.setPattern(hatch.data());
        Tesselator tesselator;
        for (const Point& point : gear(pieces.centre())) {
            tesselator.addVertex(point);
        }
        const Colour colours[] = {cyan, amber, green, magenta, blue, red, white};
        for (const auto& primitive : tesselator.tesselate().primitives) {
            Polygon& piece = primitives.emplace_back();
            piece.addTessPolygon({{primitive}});
            piece.setColor(colours[primitives.size() % 7]);
        }
    }

    void draw(double seconds) {
        sheet.draw();
        for (Shape& shape : shapes) {
            shape.render();
        }
        for (Polygon& piece : primitives) {
            piece.render();
        }
        place(hatched.centre(), 10 * seconds, [&] { turning.render(); });
    }
};

}  // namespace

int main(int argc, char** argv) {
    return Gallery::show<Picture>(argc, argv, "polygons");
}
