// Intersection, union and difference of rings: pieces, holes, a coast in a sector.
#include <cmath>
#include <numbers>

#include "CutSample.h"
#include "Show.h"

namespace {

using namespace Polygons;

const Ring comb{{0.05, 0.1}, {0.05, 0.85}, {0.2, 0.85}, {0.26, 0.4},  {0.42, 0.4},  {0.48, 0.85},
                {0.6, 0.85}, {0.66, 0.4},  {0.82, 0.4}, {0.85, 0.85}, {0.95, 0.85}, {0.95, 0.1}};
const Ring bar{{0.12, 0.55}, {0.5, 0.72}, {0.99, 0.68}, {0.99, 0.5}};
const Ring clasp{{0.3, 0.1},  {0.1, 0.3}, {0.1, 0.7}, {0.3, 0.9},  {0.7, 0.9},  {0.7, 0.72},
                 {0.4, 0.72}, {0.3, 0.6}, {0.3, 0.4}, {0.4, 0.28}, {0.7, 0.28}, {0.7, 0.1}};
const Ring bolt{{0.5, 0.18}, {0.52, 0.82}, {0.85, 0.75}, {0.9, 0.2}};
const Ring slab{{0.1, 0.3}, {0.1, 0.7}, {0.9, 0.8}, {0.9, 0.2}};
const Ring wedge{{0.35, 0.95}, {0.55, 0.95}, {0.65, 0.4}, {0.6, 0.05}, {0.45, 0.05}, {0.5, 0.5}};

/// A coast: a circle with waves of several lengths.
Ring coast() {
    Ring ring;
    for (int i = 0; i < 400; ++i) {
        const double angle = -2.0 * std::numbers::pi * i / 400;
        const double radius = 0.34 + 0.05 * std::sin(3 * angle) + 0.035 * std::sin(8 * angle + 1) +
                              0.018 * std::sin(21 * angle) + 0.008 * std::sin(57 * angle + 2);
        ring.emplace_back(0.42 + 0.85 * radius * std::cos(angle), 0.5 + radius * std::sin(angle));
    }
    return ring;
}

Ring sector() {
    Ring ring{{0.45, 0.45}};
    for (int degree = 10; degree <= 130; degree += 4) {
        const double bearing = degree * std::numbers::pi / 180.0;
        ring.emplace_back(0.45 + 0.5 * std::sin(bearing), 0.45 + 0.5 * std::cos(bearing));
    }
    return ring;
}

struct Picture : CutSheet {
    Picture()
        : CutSheet("Polygon operations",
                   "Cyan: this polygon. Amber: the other. Green: the result, a red dot where each "
                   "ring starts.") {
        add(0, 0, "Intersection", "in both", comb, bar, Polygon2D::Intersection);
        add(1, 0, "Union", "in either; holes counter-clockwise", comb, bar, Polygon2D::Union);
        add(2, 0, "Difference", "in this one only", comb, bar, Polygon2D::Difference);
        add(0, 1, "Union", "of a clasp and a bolt", clasp, bolt, Polygon2D::Union);
        add(1, 1, "Difference", "cut in two", slab, wedge, Polygon2D::Difference);
        add(2, 1, "Intersection", "a coast in a sector", coast(), sector(),
            Polygon2D::Intersection);
    }
};

}  // namespace

int main(int argc, char** argv) {
    return Gallery::show<Picture>(argc, argv, "operations");
}
