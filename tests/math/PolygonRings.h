// Rings for tests of polygon operations: general ones, and such as lie on a grid and so share
// vertices and edges. The same in every run.
#pragma once

#include <cmath>
#include <cstdint>
#include <random>

#include "math/PolygonRules.h"

namespace OrlekTest::Rules {

class RingMaker {
public:
    explicit RingMaker(std::uint64_t seed) : mEngine(seed) {}

    double number(double low, double high) {
        return low + static_cast<double>(mEngine() >> 11U) * 0x1p-53 * (high - low);
    }
    std::size_t count(std::size_t low, std::size_t high) {
        return low + static_cast<std::size_t>(mEngine() % (high - low + 1));
    }

    /// Star-shaped, simple: radius 1, each vertex off by up to a part of it.
    Ring star(std::size_t size, Point centre, double noise) {
        Ring ring;
        for (std::size_t i = 0; i < size; ++i) {
            const double angle = -2 * pi * static_cast<double>(i) / static_cast<double>(size);
            const double radius = 1 + number(-noise, noise);
            ring.emplace_back(centre.x + radius * std::cos(angle),
                              centre.y + radius * std::sin(angle));
        }
        return ring;
    }

    /// A band wound round its centre: out along one side, back along the other.
    Ring spiral(std::size_t size, Point centre, double turns) {
        Ring ring;
        const auto half = static_cast<double>(size / 2);
        for (std::size_t i = 0; i < size; ++i) {
            const bool out = i < size / 2;
            const double along = static_cast<double>(out ? i : size - 1 - i) / half;
            const double radius = 0.1 + along + (out ? 0.0 : 0.4 / turns);
            const double angle = 2 * pi * turns * along;
            ring.emplace_back(centre.x + radius * std::cos(angle),
                              centre.y + radius * std::sin(angle));
        }
        return ring;
    }

    /// Points anywhere; every edge crosses many others.
    Ring scribble(std::size_t size) {
        Ring ring;
        for (std::size_t i = 0; i < size; ++i)
            ring.emplace_back(number(-1, 1), number(-1, 1));
        return ring;
    }

    /// Points of a coarse grid: shared vertices, edges along one line, repeated points.
    Ring onGrid(std::size_t size, int reach) {
        Ring ring;
        for (std::size_t i = 0; i < size; ++i)
            ring.emplace_back(std::floor(number(-reach, reach)), std::floor(number(-reach, reach)));
        return ring;
    }

    /// A staircase between the axes, simple, all edges along the grid.
    Ring staircase(std::size_t steps, Point corner) {
        Ring ring{corner};
        for (std::size_t i = 0; i < steps; ++i) {
            const auto down = static_cast<double>(steps - i);
            ring.emplace_back(corner.x + static_cast<double>(i), corner.y + down);
            ring.emplace_back(corner.x + static_cast<double>(i + 1), corner.y + down);
        }
        ring.emplace_back(corner.x + static_cast<double>(steps), corner.y);
        return ring;
    }

    /// The ring with every vertex moved a little.
    Ring jittered(Ring ring, double amount) {
        for (Point& p : ring)
            p += Point(number(-amount, amount), number(-amount, amount));
        return ring;
    }

private:
    static constexpr double pi = 3.14159265358979323846;
    std::mt19937_64 mEngine;
};

}  // namespace OrlekTest::Rules
