#include "rendering/geometry/LineMeasure.h"

#include <cmath>
#include <cstddef>

namespace Orlek::Detail {

namespace {

using Point = Math::Vector3<float>;

double transformed(const Math::Matrix4<float>& matrix, std::size_t row, const Point& p) {
    const auto element = [&](std::size_t column) {
        return static_cast<double>(matrix.m[4 * column + row]);
    };
    return element(0) * p.x + element(1) * p.y + element(2) * p.z + element(3);
}

Point toScreen(const Math::Matrix4<float>& matrix, const Math::Vector2<float>& viewport,
               const Point& p) {
    const double x = (transformed(matrix, 0, p) + 1.0) * 0.5 * viewport.x;
    const double y = (transformed(matrix, 1, p) + 1.0) * 0.5 * viewport.y;
    return {static_cast<float>(x), static_cast<float>(y),
            static_cast<float>(transformed(matrix, 2, p))};
}

double distance(const Point& a, const Point& b) {
    const double dx = static_cast<double>(a.x) - b.x;
    const double dy = static_cast<double>(a.y) - b.y;
    const double dz = static_cast<double>(a.z) - b.z;
    return std::sqrt(dx * dx + dy * dy + dz * dz);
}

}  // namespace

std::vector<float> measureLine(std::span<const Math::Vector3<float>> points,
                               const Math::Matrix4<float>& matrix,
                               const Math::Vector2<float>& viewport) {
    std::vector<float> positions;
    positions.reserve(points.size());
    double way = 0.0;
    Point previous;
    for (const Point& p : points) {
        const Point screen = toScreen(matrix, viewport, p);
        way += positions.empty() ? 0.0 : distance(screen, previous);
        positions.push_back(static_cast<float>(way));
        previous = screen;
    }
    return positions;
}

}  // namespace Orlek::Detail
