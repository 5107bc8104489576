// Rings of whatever coordinates come: the same rings as the plain rules give, to the last bit, also
// when the boxes are used, which so small rings would do without.
// Input: the operation, the number of vertices of this polygon, of the other (up to 15 each; the
// highest bit set: the ring comes six times, each time shifted), then 2 bytes a coordinate: a row
// of a table of values, and how many steps of rounding away from it; rows beyond the table take the
// second byte for a number on a coarse grid.
#include <Orlek/Math/Polygon2D.h>

#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>
#include <span>

#include "FuzzTarget.h"
#include "math/PolygonRules.h"
#include "math/polygon2d/EdgeCrossings.h"

namespace {

using namespace OrlekTest::Rules;
using Orlek::Math::Polygon2D;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double values[] = {0.0,    -0.0,   1.0,   -1.0,   3.0,      1e-14,     1e-200, -1e-201,
                             5e-324, 1e-310, 1e15,  -1e16,  1e99,     2e100,     1e154,  -1e160,
                             1e295,  1e308,  1e-99, 1e-153, infinity, -infinity, NAN,    0.1};

bool same(const Ring& a, const Ring& b) {
    return a.size() == b.size() &&
           (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(Point)) == 0);
}

class Input {
public:
    explicit Input(std::span<const std::uint8_t> bytes) : mBytes(bytes) {}

    unsigned byte() {
        const unsigned value = mBytes.empty() ? 0U : mBytes[0];
        mBytes = mBytes.subspan(mBytes.empty() ? 0 : 1);
        return value;
    }

    double coordinate() {
        const std::size_t row = byte() % 64;
        const auto detail = static_cast<double>(static_cast<std::int8_t>(byte()));
        if (row >= std::size(values))
            return detail / 8.0;
        double value = values[row];
        for (int step = static_cast<int>(detail) % 4; step != 0; step += step < 0 ? 1 : -1)
            value = std::nextafter(value, step < 0 ? -infinity : infinity);
        return value;
    }

    Ring ring(unsigned head) {
        Ring made;
        while (made.size() < head % 16) {
            const double x = coordinate();
            made.emplace_back(x, coordinate());
        }
        const std::size_t once = made.size();
        for (std::size_t i = 0; (head & 0x80U) != 0 && i < 5 * once; ++i)
            made.emplace_back(made[i].x + 0.375, made[i].y - 0.25);
        return made;
    }

private:
    std::span<const std::uint8_t> mBytes;
};

/// The boxes find what the plain loop finds.
void requireSameCrossings(const Ring& self, const Ring& other) {
    const Orlek::Detail::RingPair plain(self, other, self.size() * other.size());
    const Orlek::Detail::RingPair boxed(self, other, 0);
    std::vector<Polygon2D::Cross> expected;
    std::vector<Polygon2D::Cross> found;
    require(Orlek::Detail::findCrossings(plain, expected));
    require(Orlek::Detail::findCrossings(boxed, found));
    require(found.size() == expected.size());
    for (std::size_t i = 0; i < found.size(); ++i)
        require(found[i].edgeA == expected[i].edgeA && found[i].edgeB == expected[i].edgeB);
    require(Orlek::Detail::relationOf(plain) == Orlek::Detail::relationOf(boxed));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input({data, size});
    const auto operation = static_cast<Operation>(input.byte() % 3);
    const unsigned selfHead = input.byte();
    const unsigned otherHead = input.byte();
    Ring self = input.ring(selfHead);
    Ring other = input.ring(otherHead);

    Polygon judge{{}, {}, self};
    const auto expected = judge.boolOperation(other, operation);
    Polygon2D polygon;
    Polygon2D cutter;
    polygon.setVertexes(self);
    cutter.setVertexes(other);
    const auto found =
        polygon.boolOperation(cutter, static_cast<Polygon2D::BoolOperation>(operation));
    require(found.size() == expected.size());
    auto ring = expected.begin();
    for (const Polygon2D& part : found)
        require(same(part.vertexesD(), *ring++));
    require(same(polygon.vertexesD(), judge.vertexes));
    if (!self.empty() && !other.empty())
        requireSameCrossings(self, other);
    return 0;
}
