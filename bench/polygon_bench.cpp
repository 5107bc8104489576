// Polygon operations beside the plain loops that give the same rings, beside Clipper and
// Boost.Geometry, which a user would take instead, and the containment test beside a loop written
// by hand.
//
// Noise rings: radius 1 with octaves of noise, like a coast. "few" shifts one against another;
// "many" moves each vertex of the same ring by about half an edge, for about n/2 crossings;
// "spikes" has independent radii at all vertices, so that edges are long and lie side by side.
#include <Orlek/Math/Polygon2D.h>
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdint>
#include <map>
#include <random>
#include <utility>

#include "math/PolygonRules.h"

#ifdef ORLEK_HAVE_CLIPPER
#include <clipper.hpp>
#endif
#ifdef ORLEK_HAVE_BOOST_GEOMETRY
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/polygon.hpp>
#endif

namespace {

using OrlekTest::Rules::Point;
using OrlekTest::Rules::Ring;
using Pair = std::pair<Ring, Ring>;
using Numbers = std::uniform_real_distribution<double>;

enum Kind { few, many, spikes };

constexpr double fullTurn = 6.283185307179586;

Ring ringOf(std::size_t size, double shift, const std::vector<double>& radii) {
    Ring ring;
    for (std::size_t i = 0; i < size; ++i) {
        const double angle = -fullTurn * static_cast<double>(i) / static_cast<double>(size);
        ring.emplace_back(shift + radii[i] * std::cos(angle), radii[i] * std::sin(angle));
    }
    return ring;
}

/// Octaves of interpolated noise, the finest with a number for every other vertex.
Ring coast(std::size_t size, double shift, unsigned seed) {
    std::mt19937 engine(seed);
    Numbers number(-1.0, 1.0);
    std::vector<double> radii(size, 1.0);
    double height = 0.2;
    for (std::size_t knots = 4; knots <= size / 2; knots *= 2, height *= 0.55) {
        std::vector<double> noise(knots);
        for (double& value : noise)
            value = height * number(engine);
        for (std::size_t i = 0; i < size; ++i) {
            const double at =
                static_cast<double>(i) * static_cast<double>(knots) / static_cast<double>(size);
            const auto knot = static_cast<std::size_t>(at);
            const double part = at - static_cast<double>(knot);
            radii[i] += noise[knot] * (1.0 - part) + noise[(knot + 1) % knots] * part;
        }
    }
    return ringOf(size, shift, radii);
}

Ring spikedRing(std::size_t size, double shift, unsigned seed) {
    std::mt19937 engine(seed);
    Numbers number(0.9, 1.1);
    std::vector<double> radii(size);
    for (double& radius : radii)
        radius = number(engine);
    return ringOf(size, shift, radii);
}

Ring jittered(Ring ring, double amount) {
    std::mt19937 engine(99);
    Numbers number(-amount, amount);
    for (Point& point : ring)
        point += Point(number(engine), number(engine));
    return ring;
}

const Pair& pairOf(Kind kind, std::size_t size) {
    static std::map<std::pair<Kind, std::size_t>, Pair> made;
    auto [at, added] = made.try_emplace({kind, size});
    if (added && kind == few)
        at->second = {coast(size, 0.0, 1), coast(size, 0.6, 2)};
    if (added && kind == many)
        at->second = {coast(size, 0.0, 1),
                      jittered(coast(size, 0.0, 1), 4.0 / static_cast<double>(size))};
    if (added && kind == spikes)
        at->second = {spikedRing(size, 0.0, 1), spikedRing(size, 0.3, 2)};
    return at->second;
}

const Pair& pairOf(const benchmark::State& state) {
    return pairOf(static_cast<Kind>(state.range(0)), static_cast<std::size_t>(state.range(1)));
}

Orlek::Math::Polygon2D polygonOf(Ring ring) {
    Orlek::Math::Polygon2D polygon;
    polygon.setVertexes(ring);
    return polygon;
}

void operationOrlek(benchmark::State& state) {
    const auto& [first, second] = pairOf(state);
    const auto self = polygonOf(first);
    const auto other = polygonOf(second);
    std::size_t rings = 0;
    for (auto _ : state) {
        auto polygon = self;
        rings = polygon.boolOperation(other, Orlek::Math::Polygon2D::Intersection).size();
    }
    state.counters["rings"] = static_cast<double>(rings);
}

void operationPlain(benchmark::State& state) {
    const auto& [first, second] = pairOf(state);
    std::size_t rings = 0;
    std::size_t crossings = 0;
    for (auto _ : state) {
        OrlekTest::Rules::Polygon polygon{{}, {}, first};
        rings = polygon.boolOperation(second, OrlekTest::Rules::intersection).size();
        crossings = polygon.crosses.size();
    }
    state.counters["rings"] = static_cast<double>(rings);
    state.counters["crossings"] = static_cast<double>(crossings);
}

#ifdef ORLEK_HAVE_CLIPPER
ClipperLib::Path pathOf(const Ring& ring) {
    constexpr double unit = 1e9;
    ClipperLib::Path path;
    for (const Point point : ring)
        path.emplace_back(std::llround(point.x * unit), std::llround(point.y * unit));
    return path;
}

void operationClipper(benchmark::State& state) {
    const auto& [first, second] = pairOf(state);
    const auto self = pathOf(first);
    const auto other = pathOf(second);
    std::size_t rings = 0;
    for (auto _ : state) {
        ClipperLib::Clipper clipper;
        clipper.AddPath(self, ClipperLib::ptSubject, true);
        clipper.AddPath(other, ClipperLib::ptClip, true);
        ClipperLib::Paths result;
        clipper.Execute(ClipperLib::ctIntersection, result);
        rings = result.size();
    }
    state.counters["rings"] = static_cast<double>(rings);
}
#endif

#ifdef ORLEK_HAVE_BOOST_GEOMETRY
using BoostPolygon = boost::geometry::model::polygon<boost::geometry::model::d2::point_xy<double>>;

BoostPolygon boostPolygonOf(const Ring& ring) {
    BoostPolygon polygon;
    for (const Point point : ring)
        polygon.outer().emplace_back(point.x, point.y);
    boost::geometry::correct(polygon);
    return polygon;
}

void operationBoost(benchmark::State& state) {
    const auto& [first, second] = pairOf(state);
    const auto self = boostPolygonOf(first);
    const auto other = boostPolygonOf(second);
    std::size_t rings = 0;
    for (auto _ : state) {
        std::vector<BoostPolygon> result;
        boost::geometry::intersection(self, other, result);
        rings = result.size();
    }
    state.counters["rings"] = static_cast<double>(rings);
}
#endif

/// The usual loop: an edge counts when it passes the point's x and lies above it there.
bool insideByHand(const Ring& ring, Point p) {
    bool odd = false;
    for (std::size_t i = 0, last = ring.size() - 1; i < ring.size(); last = i++) {
        const Point& a = ring[i];
        const Point& b = ring[last];
        if ((a.x > p.x) != (b.x > p.x) && p.y < (b.y - a.y) * (p.x - a.x) / (b.x - a.x) + a.y)
            odd = !odd;
    }
    return odd;
}

/// Points all over the ring's extent.
template <typename Inside>
void overPoints(benchmark::State& state, Inside inside) {
    std::mt19937 engine(3);
    Numbers number(-1.2, 1.2);
    Ring points;
    for (int i = 0; i < 1024; ++i) {
        const double x = number(engine);
        points.emplace_back(x, number(engine));
    }
    std::size_t at = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(inside(points[at++ % points.size()]));
}

void insideHand(benchmark::State& state) {
    const Ring& ring = pairOf(state).first;
    overPoints(state, [&ring](Point point) { return insideByHand(ring, point); });
}

void insideOrlek(benchmark::State& state) {
    const auto polygon = polygonOf(pairOf(state).first);
    overPoints(state, [&polygon](Point point) { return polygon.pointInside(point); });
}

void allSizes(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"kind", "n"})->Unit(benchmark::kMicrosecond);
    bench->ArgsProduct({{few, many}, {10, 100, 1000, 10000, 100000}});
    bench->ArgsProduct({{spikes}, {1000, 10000}});
}

void plainSizes(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"kind", "n"})->Unit(benchmark::kMicrosecond);
    bench->ArgsProduct({{few, many}, {10, 100, 1000}});
}

void insideSizes(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"kind", "n"})->ArgsProduct({{few, spikes}, {10, 10000}});
}

BENCHMARK(operationPlain)->Apply(plainSizes);
BENCHMARK(operationOrlek)->Apply(allSizes);
#ifdef ORLEK_HAVE_CLIPPER
BENCHMARK(operationClipper)->Apply(allSizes);
#endif
#ifdef ORLEK_HAVE_BOOST_GEOMETRY
BENCHMARK(operationBoost)->Apply(allSizes);
#endif
BENCHMARK(insideHand)->Apply(insideSizes);
BENCHMARK(insideOrlek)->Apply(insideSizes);

}  // namespace

BENCHMARK_MAIN();
