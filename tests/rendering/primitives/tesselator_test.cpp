// Triangles out of outlines, held against winding numbers and known areas.
#include <gtest/gtest.h>

#include <Orlek/OpenGL/Tesselator.h>

#include <array>
#include <cmath>
#include <numbers>
#include <random>
#include <utility>
#include <vector>

namespace {

using namespace Orlek::OpenGL;
using Point = Orlek::Math::Vector2<float>;
using Vertex = Orlek::Math::Vector3<float>;
using Points = std::vector<Point>;
using Triangle = std::array<Vertex, 3>;

Tesselator outline(const Points& points) {
    Tesselator tesselator;
    for (const Point& p : points) {
        tesselator.addVertex(p);
    }
    return tesselator;
}

std::vector<Triangle> triangles(const Tesselator::TessPolygon& polygon) {
    std::vector<Triangle> list;
    for (const auto& [v, type, start] : polygon.primitives) {
        for (std::size_t i = 2; i < v.size(); i += type == 4 ? 3 : 1) {
            list.push_back({v[type == 6 ? 0 : i - 2], v[i - 1], v[i]});
        }
    }
    return list;
}

template <typename P>
double cross(const P& a, const P& b, double x, double y) {
    return (double{b.x} - a.x) * (y - a.y) - (double{b.y} - a.y) * (x - a.x);
}

double area(const Tesselator::TessPolygon& polygon) {
    double sum = 0.0;
    for (const auto& [a, b, c] : triangles(polygon)) {
        sum += std::abs(cross(a, b, c.x, c.y)) / 2;
    }
    return sum;
}

double areaOf(const Points& points) {
    return area(outline(points).tesselate());
}

Points ring(int corners, double step, const auto& radius) {
    Points points;
    for (int i = 0; i < corners; ++i) {
        const double angle = step * i;
        const double r = radius(i);
        points.emplace_back(static_cast<float>(r * std::cos(angle)),
                            static_cast<float>(r * std::sin(angle)));
    }
    return points;
}

TEST(Tesselator, FillsWhatTheOutlineWindsAround) {
    const double fullTurn = 2 * std::numbers::pi;
    const double t = std::tan(fullTurn / 20);
    const double tiny = double{1e-42F} * double{1e-42F};
    const struct {
        const char* what;
        Points points;
        double area;
    } rows[] = {
        {"nothing", {}, 0},
        {"a point", {{1, 1}}, 0},
        {"a segment", {{0, 0}, {1, 1}}, 0},
        {"out and back", {{0, 0}, {4, 0}, {8, 0}, {4, 0}}, 0},
        {"one point, many times", Points(50, {3, 3}), 0},
        {"clockwise", {{0, 0}, {0, 2}, {2, 2}, {2, 0}}, 4},
        {"anticlockwise", {{0, 0}, {2, 0}, {2, 2}, {0, 2}}, 4},
        {"closed explicitly", {{0, 0}, {2, 0}, {2, 2}, {0, 2}, {0, 0}}, 4},
        {"points twice", {{0, 0}, {0, 0}, {2, 0}, {2, 0}, {2, 2}, {0, 2}, {0, 2}}, 4},
        {"concave", {{0, 0}, {4, 0}, {4, 1}, {1, 1}, {1, 4}, {0, 4}}, 7},
        {"with a spike", {{0, 0}, {2, 0}, {2, 2}, {5, 5}, {2, 2}, {0, 2}}, 4},
        {"touching itself in a corner", {{0, 0}, {2, 0}, {1, 1}, {2, 2}, {0, 2}, {1, 1}}, 2},
        {"touching itself in an edge", {{0, 0}, {3, 0}, {3, 3}, {1, 3}, {1, 0}, {0, 0}}, 6},
        {"figure of eight: both lobes", {{0, 0}, {2, 2}, {2, 0}, {0, 2}}, 2},
        {"pentagram: the middle too", ring(5, fullTurn * 2 / 5, [](int) { return 1.0; }),
         10 * t / (3 - t * t)},
        {"huge", {{-3e38F, -3e38F}, {3e38F, -3e38F}, {3e38F, 3e38F}, {-3e38F, 3e38F}}, 3.6e77},
        {"denormal", {{0, 0}, {1e-42F, 0}, {1e-42F, 1e-42F}}, tiny / 2},
    };
    for (const auto& row : rows) {
        EXPECT_NEAR(areaOf(row.points), row.area, row.area * 1e-5) << row.what;
    }
}

// Which part a crossing outline fills, against the winding number of sampled points; each of them
// lies in no triangle or in exactly one.
TEST(Tesselator, CoversEachInsidePointOnce) {
    std::mt19937 random(7);
    std::uniform_real_distribution<float> coordinate(0, 100);
    int inside = 0;
    for (int round = 0; round < 20; ++round) {
        Points points(12);
        for (Point& p : points) {
            p = {coordinate(random), coordinate(random)};
        }
        const std::vector<Triangle> fill = triangles(outline(points).tesselate());
        for (int sample = 0; sample < 200; ++sample) {
            const float x = coordinate(random);
            const float y = coordinate(random);
            int winding = 0;
            for (std::size_t i = 0; i < points.size(); ++i) {
                const Point& a = points[i];
                const Point& b = points[(i + 1) % points.size()];
                if ((a.y <= y) != (b.y <= y) && (cross(a, b, x, y) > 0) == (b.y > a.y)) {
                    winding += b.y > a.y ? 1 : -1;
                }
            }
            int covered = 0;
            for (const auto& [a, b, c] : fill) {
                const bool left = cross(a, b, x, y) > 0;
                covered += (cross(b, c, x, y) > 0) == left && (cross(c, a, x, y) > 0) == left;
            }
            EXPECT_EQ(covered, winding != 0 ? 1 : 0) << round << ": " << x << " " << y;
            inside += covered;
        }
    }
    EXPECT_GT(inside, 1000);
}

TEST(Tesselator, NumbersTheVerticesAndKeepsOutlineAndPlane) {
    Tesselator tesselator =
        outline(ring(200, std::numbers::pi / 100, [](int i) { return i % 3 + 1.0; }));
    const Tesselator::TessPolygon polygon = tesselator.tesselate();
    ASSERT_GT(polygon.primitives.size(), 3U);
    std::size_t vertices = 0;
    for (const auto& primitive : polygon.primitives) {
        EXPECT_EQ(primitive.start, vertices);
        EXPECT_TRUE(primitive.type >= 4 && primitive.type <= 6) << primitive.type;
        EXPECT_GE(primitive.vertices.size(), 3U);
        vertices += primitive.vertices.size();
    }
    Tesselator copy = tesselator;
    tesselator.clearVertex();
    EXPECT_TRUE(tesselator.tesselate().primitives.empty());
    EXPECT_EQ(area(copy.tesselate()), area(polygon));

    tesselator.addVertex(Point(0, 0));
    tesselator.addVertex(Vertex(4, 0, 8));
    tesselator.addVertex(Orlek::Math::Vector4<float>(4, 4, 8, 9));
    tesselator.addVertex(Vertex(0, 4, 0));
    const Tesselator::TessPolygon sloping = tesselator.tesselate();
    EXPECT_EQ(area(sloping), 16);
    for (const auto& vertex : sloping.primitives.at(0).vertices) {
        EXPECT_EQ(vertex.z, vertex.x * 2);
    }
}

TEST(Tesselator, FillsOutlinesThatAreSmallBesideTheirHeight) {
    for (const auto& [side, z] : {std::pair(1.0F, 1e9F), std::pair(3e-5F, 12000.0F)}) {
        Tesselator tesselator;
        for (const Point& p : {Point(0, 0), Point(side, 0), Point(side, side), Point(0, side)}) {
            tesselator.addVertex(Vertex(p.x, p.y, z));
        }
        EXPECT_EQ(area(tesselator.tesselate()), double{side} * side);
    }
}

TEST(Tesselator, TakesAHundredThousandCornersUnlessTheyTangle) {
    constexpr int corners = 100000;
    const double step = 2 * std::numbers::pi / corners;
    EXPECT_NEAR(areaOf(ring(corners, step, [](int) { return 10.0; })), 100 * std::numbers::pi, 0.1);

    std::mt19937 random(3);
    std::uniform_real_distribution<double> anywhere(-10, 10);
    EXPECT_EQ(areaOf(ring(corners, 1.0, [&](int) { return anywhere(random); })), 0);
    Tesselator wall;
    Tesselator folded;  // edges on one another
    for (int i = 0; i < 3000; ++i) {
        const auto along = static_cast<float>(anywhere(random));
        wall.addVertex(Vertex(along, along, static_cast<float>(anywhere(random)) / 100));
        folded.addVertex(Vertex(along, i == 0 ? 1.0F : 0.0F, 0.0F));
    }
    EXPECT_TRUE(wall.tesselate().primitives.empty());
    EXPECT_TRUE(folded.tesselate().primitives.empty());
    Points comb;  // whose last edge crosses all others
    for (int i = 0; i < corners; ++i) {
        comb.emplace_back(static_cast<float>(i), static_cast<float>(i % 2));
    }
    EXPECT_EQ(areaOf(comb), 0);
    comb.emplace_back(static_cast<float>(corners), -1.0F);
    comb.emplace_back(0.0F, -1.0F);
    EXPECT_NEAR(areaOf(comb), 1.5 * corners, corners * 1e-3);
}

}  // namespace
