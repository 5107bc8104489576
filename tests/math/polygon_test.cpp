// Polygon operations against their rules written out plainly: the same rings, to the last bit.
#include <Orlek/Math/Polygon2D.h>
#include <gtest/gtest.h>

#include <cstring>

#include "math/PolygonRings.h"

namespace {

using namespace Orlek::Math;
using namespace OrlekTest::Rules;

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

struct Shape {
    const char* name;
    int rounds;
    Ring (*self)(RingMaker&);
    Ring (*other)(RingMaker&);
};

const Shape shapes[] = {
    {"small stars", 3000,
     [](RingMaker& m) {
         return m.star(m.count(3, 24), {0, 0}, 0.3);
     },
     [](RingMaker& m) {
         return m.star(m.count(3, 24), {m.number(-2, 2), 0.3}, 0.3);
     }},
    {"stars", 60,
     [](RingMaker& m) {
         return m.star(m.count(50, 700), {0, 0}, 0.2);
     },
     [](RingMaker& m) {
         return m.star(m.count(50, 700), {m.number(-1, 1), 0}, 0.2);
     }},
    {"star and a jittered copy", 4,
     [](RingMaker&) {
         return RingMaker(7).star(3000, {0, 0}, 0.1);
     },
     [](RingMaker& m) {
         return m.jittered(RingMaker(7).star(3000, {0, 0}, 0.1), 1e-3);
     }},
    {"star and a hardly jittered copy", 4,
     [](RingMaker&) {
         return RingMaker(8).star(1500, {1e3, -1e3}, 0.1);
     },
     [](RingMaker& m) {
         return m.jittered(RingMaker(8).star(1500, {1e3, -1e3}, 0.1), 1e-13);
     }},
    {"spirals", 20,
     [](RingMaker& m) {
         return m.spiral(m.count(100, 900), {0, 0}, 5);
     },
     [](RingMaker& m) {
         return m.spiral(m.count(100, 900), {m.number(0, 1), 0.1}, 4);
     }},
    {"scribbles", 20, [](RingMaker& m) { return m.scribble(m.count(3, 70)); },
     [](RingMaker& m) { return m.scribble(m.count(30, 90)); }},
    {"coarse grid", 3000, [](RingMaker& m) { return m.onGrid(m.count(1, 30), 4); },
     [](RingMaker& m) { return m.onGrid(m.count(1, 30), 4); }},
    {"grid", 60, [](RingMaker& m) { return m.onGrid(m.count(60, 120), 9); },
     [](RingMaker& m) { return m.onGrid(m.count(60, 120), 9); }},
    {"staircases", 60,
     [](RingMaker& m) {
         return m.staircase(m.count(2, 150), {0, 0});
     },
     [](RingMaker& m) {
         return m.staircase(m.count(2, 150), {std::floor(m.number(-9, 9)), m.number(-1, 1)});
     }},
    {"far from the origin", 40,
     [](RingMaker& m) {
         return m.star(200, {1e9, 1e9}, 0.2);
     },
     [](RingMaker& m) {
         return m.star(200, {1e9 + m.number(-1, 1), 1e9}, 0.2);
     }},
    {"inside", 6,
     [](RingMaker& m) {
         return m.star(600, {0, 0}, 0.2);
     },
     [](RingMaker& m) {
         return m.spiral(m.count(50, 300), {0, 0}, 3 * 1e3);
     }},
    {"upright hairs", 40,
     [](RingMaker& m) {
         return m.jittered(m.staircase(60, {1, 1}), 2e-15);
     },
     [](RingMaker& m) {
         return m.jittered(m.staircase(60, {-3, 2}), 2e-15);
     }},
};

TEST(Polygon2D, GivesTheRingsOfTheRulesToTheLastBit) {
    for (const Shape& shape : shapes) {
        RingMaker make(static_cast<std::uint64_t>(shape.rounds));
        std::size_t rings = 0;
        for (int round = 0; round < shape.rounds; ++round) {
            const Ring self = eitherWay(shape.self(make), make);
            const Ring other = eitherWay(shape.other(make), make);
            rings += expectRules(self, other, std::string(shape.name) + std::to_string(round));
        }
        printf("%s %zu\n", shape.name, rings);
        EXPECT_GT(rings, static_cast<std::size_t>(shape.rounds)) << shape.name;
    }
}

}  // namespace
