// Polygon operations against their rules written out plainly, the same rings to the last bit, and
// their areas beside those of GEOS.
#include <Orlek/Math/Polygon2D.h>
#include <geos_c.h>
#include <gtest/gtest.h>

#include <cstring>
#include <iomanip>
#include <memory>
#include <sstream>

#include "math/PolygonRings.h"
#include "math/Reference.h"
#include "support/Capture.h"

namespace {

using namespace Orlek::Math;
using namespace OrlekTest::Rules;
using OrlekTest::infinity;
using OrlekTest::notANumber;

bool same(const Ring& a, const Ring& b) {
    return a.size() == b.size() &&
           (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(Point)) == 0);
}

Polygon2D polygonOf(Ring ring) {
    Polygon2D polygon;
    polygon.setVertexes(ring);
    return polygon;
}

/// Runs all operations on both; one polygon serves all three, as an application's would.
/// @return the number of rings that came out.
std::size_t expectRules(const Ring& self, const Ring& other, const std::string& what) {
    std::size_t rings = 0;
    Polygon2D polygon = polygonOf(self);
    Polygon judge{{}, {}, self};
    for (const Operation operation : {intersection, unite, difference}) {
        const auto expected = judge.boolOperation(other, operation);
        const auto actual = polygon.boolOperation(polygonOf(other),
                                                  static_cast<Polygon2D::BoolOperation>(operation));
        EXPECT_EQ(actual.size(), expected.size()) << what << ", operation " << operation;
        auto ring = expected.begin();
        bool equal = actual.size() == expected.size();
        for (const Polygon2D& part : actual)
            equal = equal && same(part.vertexesD(), *ring++);
        EXPECT_TRUE(equal) << what << ", operation " << operation;
        EXPECT_TRUE(same(polygon.vertexesD(), judge.vertexes)) << what;
        rings += actual.size();
    }
    return rings;
}

Ring eitherWay(Ring ring, RingMaker& make) {
    if (make.count(0, 1) == 1)
        std::reverse(ring.begin(), ring.end());
    return ring;
}

using Maker = RingMaker&;
using Pair = std::pair<Ring, Ring>;

Ring star(Maker make, std::size_t least, std::size_t most, double shift) {
    return make.star(make.count(least, most), {make.number(-shift, shift), 0.1}, 0.25);
}

Ring grid(Maker make, std::size_t least, std::size_t most, int reach) {
    return make.onGrid(make.count(least, most), reach);
}

Pair moved(Maker make, std::size_t size, double centre, double amount) {
    const Ring ring = make.star(size, {centre, -centre}, 0.1);
    return {ring, make.jittered(ring, amount)};
}

Pair spirals(Maker make) {
    return {make.spiral(make.count(100, 900), {0, 0}, 5),
            make.spiral(make.count(100, 900), {make.number(0, 1), 0.1}, 4)};
}

Pair stairs(Maker make) {
    const Point corner(std::floor(make.number(-9, 9)), make.number(-1, 1));
    return {make.staircase(make.count(2, 150), {0, 0}), make.staircase(make.count(2, 150), corner)};
}

Pair hairs(Maker make) {
    return {make.jittered(make.staircase(60, {1, 1}), 2e-15),
            make.jittered(make.staircase(60, {-3, 2}), 2e-15)};
}

Pair nested(Maker make) {
    return {make.star(400, {0, 0}, 0.05), make.spiral(make.count(50, 200), {0.1, 0}, 1e3)};
}

// Which of two rings in brackets is made first is the compiler's choice.
const struct {
    const char* name;
    int rounds;
    Pair (*make)(Maker);
} shapes[] = {
    {"small stars", 1500, [](Maker m) { return Pair(star(m, 3, 24, 0), star(m, 3, 24, 2)); }},
    {"stars", 16, [](Maker m) { return Pair(star(m, 50, 500, 0), star(m, 50, 500, 1)); }},
    {"scribbles", 10, [](Maker m) { return Pair(m.scribble(m.count(3, 60)), m.scribble(45)); }},
    {"coarse grid", 1500, [](Maker m) { return Pair(grid(m, 1, 30, 4), grid(m, 1, 30, 4)); }},
    {"grid", 20, [](Maker m) { return Pair(grid(m, 60, 120, 9), grid(m, 60, 120, 9)); }},
    {"jittered", 1, [](Maker m) { return moved(m, 1200, 0, 1e-3); }},
    {"hardly jittered", 1, [](Maker m) { return moved(m, 1000, 1e3, 1e-13); }},
    {"far from the origin", 20, [](Maker m) { return moved(m, 200, 1e9, 0.5); }},
    {"spirals", 6, spirals},
    {"staircases", 40, stairs},
    {"upright hairs", 40, hairs},
    {"one in the other", 2, nested},
};

TEST(Polygon2D, GivesTheRingsOfTheRulesToTheLastBit) {
    for (const auto& [name, rounds, make] : shapes) {
        RingMaker maker(static_cast<std::uint64_t>(rounds));
        std::size_t rings = 0;
        for (int round = 0; round < rounds; ++round) {
            auto [self, other] = make(maker);
            self = eitherWay(self, maker);
            other = eitherWay(other, maker);
            rings += expectRules(self, other, std::string(name) + std::to_string(round));
        }
        EXPECT_GT(rings, static_cast<std::size_t>(rounds)) << name;
    }
}

// The ray's answer on and near the vertices' own columns, where whole runs of edges are passed by.
TEST(Polygon2D, TellsWhatIsInsideAsTheRayCounts) {
    RingMaker make(12);
    for (const Ring& ring : {make.star(3000, {5, 5}, 0.1), make.onGrid(700, 20), make.scribble(300),
                             make.spiral(1000, {-1, 0}, 9), Ring{{1, 1}, {1e300, 2}, {3, 0}}}) {
        const Polygon2D polygon = polygonOf(ring);
        std::size_t insideCount = 0;
        for (int i = 0; i < 400; ++i) {
            Point p = ring[make.count(0, ring.size() - 1)];
            p.y -= make.number(0, 1);
            if (i % 3 == 0)
                p.x = std::nextafter(p.x, i % 2 == 0 ? 1e9 : -1e9);
            EXPECT_EQ(polygon.pointInside(p), inside(ring, p)) << ring.size() << " " << i;
            insideCount += polygon.pointInside(p) ? 1 : 0;
        }
        EXPECT_GT(insideCount, 0U);
    }
    const Polygon2D square = polygonOf({{0, 0}, {1, 0}, {1, 1}, {0, 1}});
    EXPECT_TRUE(square.pointInside(Vector2<float>(0.5F, 0.5F)));
    EXPECT_FALSE(square.pointInside(Point(1.5, 0.5)));
    EXPECT_FALSE(Polygon2D().pointInside(Point(0, 0)));
}

TEST(Polygon2D, CutsTwoSquares) {
    const Ring first{{0, 0}, {2, 0}, {2, 2}, {0, 2}};
    const Ring corner{{1, 1}, {3, 1}, {3, 3}, {1, 3}};
    const Ring inner{{0.5, 0.5}, {0.5, 1}, {1, 1}, {1, 0.5}};
    const Ring away{{5, 5}, {5, 6}, {6, 6}, {6, 5}};
    const Ring clockwise{{0, 2}, {2, 2}, {2, 0}, {0, 0}};
    const Ring across{{-1, 0.5}, {-1, 1}, {3, 1}, {3, 0.5}};  // like a plus
    const struct {
        Ring other;
        Polygon2D::BoolOperation operation;
        std::vector<Ring> result;
    } rows[] = {
        {corner, Polygon2D::Intersection, {{{1, 2}, {2, 2}, {2, 1}, {1, 1}}}},
        {corner,
         Polygon2D::Union,
         {{{1, 2}, {1, 3}, {3, 3}, {3, 1}, {2, 1}, {2, 0}, {0, 0}, {0, 2}}}},
        {corner, Polygon2D::Difference, {{{1, 2}, {1, 1}, {2, 1}, {2, 0}, {0, 0}, {0, 2}}}},
        {inner, Polygon2D::Intersection, {inner}},
        {inner, Polygon2D::Union, {clockwise}},
        {inner, Polygon2D::Difference, {}},
        {away, Polygon2D::Intersection, {}},
        {away, Polygon2D::Union, {}},
        {away, Polygon2D::Difference, {clockwise}},
        {across, Polygon2D::Intersection, {}},
        {across, Polygon2D::Union, {}},
        {across, Polygon2D::Difference, {clockwise}},
        {{}, Polygon2D::Intersection, {}},
        {{}, Polygon2D::Union, {first}},
        {{}, Polygon2D::Difference, {first}},
    };
    for (const auto& row : rows) {
        Polygon2D polygon = polygonOf(first);
        std::vector<Ring> result;
        for (const Polygon2D& part : polygon.boolOperation(polygonOf(row.other), row.operation))
            result.push_back(part.vertexesD());
        EXPECT_TRUE(
            std::equal(result.begin(), result.end(), row.result.begin(), row.result.end(), same))
            << "row " << &row - rows;
        EXPECT_TRUE(same(polygon.vertexesD(), row.other.empty() ? first : clockwise));
    }
    EXPECT_TRUE(Polygon2D().boolOperation(polygonOf(first), Polygon2D::Difference).empty());
    EXPECT_EQ(Polygon2D().boolOperation(polygonOf(first), Polygon2D::Union).size(), 1U);
}

TEST(Polygon2D, KeepsItsRing) {
    std::vector<Vector2<float>> given{{0.1F, 1}, {2, 3}};
    Polygon2D polygon;
    polygon.setVertexes(given);
    polygon.addVertex(Vector2<float>(4, 5));
    polygon.addVertex(Point(0.1, 1e300));
    polygon.invert();
    const Polygon2D copy = polygon;
    polygon.clear();
    EXPECT_TRUE(polygon.vertexesD().empty());
    EXPECT_TRUE(same(copy.vertexesD(), {{0.1, 1e300}, {4, 5}, {2, 3}, {double{0.1F}, 1}}));
    EXPECT_EQ(copy.vertexes().back().x, 0.1F);
    EXPECT_EQ(copy.vertexes().size(), 4U);
}

TEST(Polygon2D, KnowsTheWayRound) {
    const Ring square{{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    const Ring reversed(square.rbegin(), square.rend());
    EXPECT_EQ(getWindingDirection(square), 0);
    EXPECT_EQ(getWindingDirection(reversed), 1);
    EXPECT_EQ(getWindingDirection(Ring{{3, 4}}), 1);
    EXPECT_EQ(getWindingDirection(Ring{}), 1);
    // A sliver that single precision cannot tell from a line.
    const Ring sliver{{0, 0}, {1e6, 1}, {1e6, 1 + 1e-9}};
    EXPECT_EQ(getWindingDirection(sliver), 0);
    EXPECT_EQ(getWindingDirection(polygonOf(sliver).vertexes()), 1);
    EXPECT_TRUE(pointInPolygon({0.5, 0.5}, reversed));
    EXPECT_TRUE(pointInPolygon({1, 0.5}, reversed));
    EXPECT_FALSE(pointInPolygon({2, 0.5}, reversed));
    EXPECT_FALSE(pointInPolygon({0.5, 0.5}, square));
    EXPECT_TRUE(pointInPolygon({0.5, 0.5}, {}));
}

/// Positive for clockwise rings, so that holes count negative.
double area(const Ring& ring) {
    double twice = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Point a = ring[i] - ring[0];
        const Point b = ring[(i + 1) % ring.size()] - ring[0];
        twice += b.x * a.y - a.x * b.y;
    }
    return twice / 2;
}

using Shape = std::unique_ptr<GEOSGeometry, decltype(&GEOSGeom_destroy)>;

Shape shapeOf(Ring ring) {
    std::ostringstream text;
    ring.push_back(ring.front());
    for (const Point& point : ring)
        text << (text.tellp() == 0 ? "POLYGON((" : ",") << std::setprecision(17) << point.x << ' '
             << point.y;
    return {GEOSGeomFromWKT((text.str() + "))").c_str()), GEOSGeom_destroy};
}

// In general position.
TEST(Polygon2D, HasTheAreasOfGeosWhereRingsCross) {
    initGEOS(nullptr, nullptr);
    const std::pair<Polygon2D::BoolOperation, decltype(&GEOSUnion)> operations[] = {
        {Polygon2D::Intersection, GEOSIntersection},
        {Polygon2D::Union, GEOSUnion},
        {Polygon2D::Difference, GEOSDifference}};
    RingMaker make(31);
    std::size_t compared = 0;
    for (int round = 0; round < 300; ++round) {
        const Ring self = make.star(make.count(3, 200), {0, 0}, 0.3);
        const Ring other = round % 3 == 0 ? make.spiral(make.count(30, 400), {0.2, 0.1}, 3)
                                          : make.star(make.count(3, 200), {0.8, 0.1}, 0.3);
        Polygon judge{{}, {}, self};
        judge.boolOperation(other, unite);
        if (judge.nodes.empty())
            continue;  // apart or one in the other
        for (const auto& [operation, ofGeos] : operations) {
            double sum = 0.0;
            for (const auto& part : polygonOf(self).boolOperation(polygonOf(other), operation))
                sum += area(part.vertexesD());
            const Shape result(ofGeos(shapeOf(self).get(), shapeOf(other).get()), GEOSGeom_destroy);
            double expected = -1.0;
            EXPECT_EQ(GEOSArea(result.get(), &expected), 1);
            EXPECT_NEAR(sum, expected, 1e-9) << "round " << round << ", operation " << operation;
            ++compared;
        }
    }
    EXPECT_GT(compared, 600U);
    finishGEOS();
}

#ifndef ORLEK_SANITIZED  // takes half a gibibyte and long enough without

/// A line that goes to and fro over a square of the size `strokes`, to its `end`th part or beyond.
Ring hatching(int strokes, bool upright, double end) {
    Ring ring;
    for (int i = 0; i <= strokes; ++i) {
        const double along = strokes * (i % 2 == 0 ? -1.0 : end);
        ring.push_back(upright ? Point(i, along) : Point(along, i));
    }
    return ring;
}

TEST(Polygon2D, GivesUpWhenTheCrossingsWouldFillTheMemory) {
    Polygon2D polygon = polygonOf(hatching(3800, true, 2.0));
    Polygon2D other = polygonOf(hatching(3800, false, 0.6 + 0.5 / 3800));
    std::size_t rings = 1;
    EXPECT_EQ(OrlekTest::captureStdout(
                  [&] { rings = polygon.boolOperation(other, Polygon2D::Intersection).size(); }),
              "Polygon2D::boolOperation Error: more than 8388608 crossings\n");
    EXPECT_EQ(rings, 0U);
}

#endif

}  // namespace
