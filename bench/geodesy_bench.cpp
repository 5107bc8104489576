// Bearing and distance beside the plain formulas, written out in the loop, and beside the geodesic
// on the ellipsoid (GeographicLib), which answers another question and stands here as cost only.
#include <Orlek/Geodetic/Navigation.h>
#include <benchmark/benchmark.h>

#include <cmath>
#include <random>
#include <vector>

#ifdef ORLEK_HAVE_GEOGRAPHICLIB
#include <GeographicLib/Geodesic.hpp>
#endif

namespace {

struct Leg {
    double lat1, lon1, lat2, lon2;
};

constexpr double radiansPerDegree = 0.017453292519943295;
constexpr double degreesPerRadian = 57.29577951308232;

// Legs of up to a few hundred kilometres anywhere, enough that no branch is learnt by heart.
const std::vector<Leg>& legs() {
    static const std::vector<Leg> all = [] {
        std::mt19937 engine(7);
        std::uniform_real_distribution<double> lat(-80.0, 80.0);
        std::uniform_real_distribution<double> lon(-180.0, 180.0);
        std::uniform_real_distribution<double> step(-3.0, 3.0);
        std::vector<Leg> made(4096);
        for (Leg& leg : made) {
            leg = {lat(engine), lon(engine), 0.0, 0.0};
            leg.lat2 = leg.lat1 + step(engine);
            leg.lon2 = leg.lon1 + step(engine);
        }
        return made;
    }();
    return all;
}

template <typename Measure>
void overLegs(benchmark::State& state, Measure measure) {
    const auto& all = legs();
    for (auto _ : state)
        for (const Leg& leg : all)
            benchmark::DoNotOptimize(measure(leg));
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(all.size()));
}

void distancePlain(benchmark::State& state) {
    overLegs(state, [](const Leg& leg) {
        const double phi1 = leg.lat1 * radiansPerDegree;
        const double phi2 = leg.lat2 * radiansPerDegree;
        const double deltaLambda = (leg.lon2 - leg.lon1) * radiansPerDegree;
        return std::acos(std::cos(deltaLambda) * std::cos(phi2) * std::cos(phi1) +
                         std::sin(phi2) * std::sin(phi1)) *
               degreesPerRadian * 60.0 * 1852.0;
    });
}

void distanceOrlek(benchmark::State& state) {
    overLegs(state, [](const Leg& leg) {
        return Orlek::Geodetic::calcDistance(leg.lat1, leg.lon1, leg.lat2, leg.lon2);
    });
}

void bearingPlain(benchmark::State& state) {
    overLegs(state, [](const Leg& leg) {
        const double phi1 = leg.lat1 * radiansPerDegree;
        const double phi2 = leg.lat2 * radiansPerDegree;
        const double deltaLambda = (leg.lon2 - leg.lon1) * radiansPerDegree;
        const double y = std::cos(phi2) * std::sin(deltaLambda);
        const double x = std::cos(phi1) * std::sin(phi2) -
                         std::sin(phi1) * std::cos(phi2) * std::cos(deltaLambda);
        const double bearing = std::atan2(y, x) * degreesPerRadian;
        return bearing < 0.0 ? bearing + 360.0 : bearing;
    });
}

void bearingOrlek(benchmark::State& state) {
    overLegs(state, [](const Leg& leg) {
        return Orlek::Geodetic::calcBearing(leg.lat1, leg.lon1, leg.lat2, leg.lon2);
    });
}

BENCHMARK(distancePlain);
BENCHMARK(distanceOrlek);
BENCHMARK(bearingPlain);
BENCHMARK(bearingOrlek);

#ifdef ORLEK_HAVE_GEOGRAPHICLIB
void geodesicDistance(benchmark::State& state) {
    const auto& earth = GeographicLib::Geodesic::WGS84();
    overLegs(state, [&earth](const Leg& leg) {
        double metres = 0.0;
        earth.Inverse(leg.lat1, leg.lon1, leg.lat2, leg.lon2, metres);
        return metres;
    });
}

void geodesicBearing(benchmark::State& state) {
    const auto& earth = GeographicLib::Geodesic::WGS84();
    overLegs(state, [&earth](const Leg& leg) {
        double bearing = 0.0;
        double backBearing = 0.0;
        earth.Inverse(leg.lat1, leg.lon1, leg.lat2, leg.lon2, bearing, backBearing);
        return bearing;
    });
}

BENCHMARK(geodesicDistance);
BENCHMARK(geodesicBearing);
#endif

}  // namespace

BENCHMARK_MAIN();
