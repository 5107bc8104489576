// Where polygon operations give something else than set theory does.
#include "CutSample.h"
#include "Show.h"

namespace {

using namespace Polygons;

const Ring flat{{0.1, 0.4}, {0.1, 0.65}, {0.9, 0.65}, {0.9, 0.4}};
const Ring tall{{0.4, 0.1}, {0.4, 0.95}, {0.6, 0.95}, {0.6, 0.1}};
const Ring tip{{0.1, 0.1}, {0.1, 0.9}, {0.65, 0.5}};
const Ring wall{{0.45, 0.05}, {0.45, 0.95}, {0.75, 0.95}, {0.75, 0.05}};
const Ring square{{0.2, 0.05}, {0.2, 0.9}, {0.8, 0.9}, {0.8, 0.05}};
const Ring inner{{0.35, 0.25}, {0.35, 0.7}, {0.65, 0.7}, {0.65, 0.25}};
const Ring left{{0.1, 0.125}, {0.1, 0.875}, {0.5, 0.875}, {0.5, 0.125}};
const Ring beside{{0.5, 0.25}, {0.5, 0.75}, {0.85, 0.75}, {0.85, 0.25}};
const Ring corner{{0.125, 0.125}, {0.125, 0.625}, {0.625, 0.625}, {0.625, 0.125}};
const Ring atCorner{{0.625, 0.625}, {0.25, 0.5}, {0.375, 0.875}};
const Ring overlapping{{0.3, 0.125}, {0.3, 0.875}, {0.85, 0.875}, {0.85, 0.125}};

struct Picture : CutSheet {
    Picture()
        : CutSheet(
              "Limits of polygon operations",
              "Where rings count as apart, touch or share edges, the result can differ from that "
              "of set theory.") {
        add(0, 0, "Intersection", "no vertex of the other inside: apart", flat, tall,
            Polygon2D::Intersection);
        add(1, 0, "Intersection", "the same; works with the two exchanged", tip, wall,
            Polygon2D::Intersection);
        add(2, 0, "Difference", "all inside: no ring with a hole", square, inner,
            Polygon2D::Difference);
        add(0, 1, "Intersection", "side by side: all of this polygon", left, beside,
            Polygon2D::Intersection);
        add(1, 1, "Intersection", "a shared corner: all of this polygon", corner, atCorner,
            Polygon2D::Intersection);
        add(2, 1, "Difference", "edges on one line: rings without area", left, overlapping,
            Polygon2D::Difference);
    }
};

}  // namespace

int main(int argc, char** argv) {
    return Gallery::show<Picture>(argc, argv, "limits");
}
