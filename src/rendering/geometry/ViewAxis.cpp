#include "rendering/geometry/ViewAxis.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Orlek::Detail {

namespace {

using Place = std::array<double, 3>;
using Corner = Math::Vector3<float>;

Place coordinatesOf(const Corner& p) {
    return {p.x, p.y, p.z};
}

Place difference(const Place& a, const Place& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Place crossProduct(const Place& a, const Place& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double squaredLength(const Place& a) {
    return a[0] * a[0] + a[1] * a[1] + a[2] * a[2];
}

std::size_t longAxis(const Place& a) {
    const std::size_t longest = std::fabs(a[1]) > std::fabs(a[0]) ? 1 : 0;
    return std::fabs(a[2]) > std::fabs(a[longest]) ? 2 : longest;
}

}  // namespace

std::size_t viewAxis(std::span<const Corner> outline) {
    const auto [lowX, highX] = std::ranges::minmax_element(outline, {}, &Corner::x);
    const auto [lowY, highY] = std::ranges::minmax_element(outline, {}, &Corner::y);
    const auto [lowZ, highZ] = std::ranges::minmax_element(outline, {}, &Corner::z);
    if (lowZ->z == highZ->z) {
        return 2;
    }
    const std::array<Place, 3> extents{difference(coordinatesOf(*highX), coordinatesOf(*lowX)),
                                       difference(coordinatesOf(*highY), coordinatesOf(*lowY)),
                                       difference(coordinatesOf(*highZ), coordinatesOf(*lowZ))};
    const std::size_t longest = longAxis({extents[0][0], extents[1][1], extents[2][2]});
    const Place from = coordinatesOf(longest == 0 ? *lowX : longest == 1 ? *lowY : *lowZ);
    Place normal{};
    for (const Corner& corner : outline) {
        const Place n = crossProduct(extents[longest], difference(coordinatesOf(corner), from));
        normal = squaredLength(n) > squaredLength(normal) ? n : normal;
    }
    return longAxis(normal);
}

}  // namespace Orlek::Detail
