#include "rendering/geometry/LineMeasure.h"

#include <cmath>
#include <cstddef>

namespace Orlek::Detail {

namespace {

using Point = Math::Vector3<float>;

// One row of the matrix, and what becomes of its product with a point. In double once for all
// points: what is written per point could otherwise alias the matrix.
struct Row {
    double x, y, z, w;

    Row(const Math::Matrix4<float>& matrix, std::size_t row)
        : x(matrix.m[row]), y(matrix.m[row + 4]), z(matrix.m[row + 8]), w(matrix.m[row + 12]) {}

    double operator()(const Point& p) const { return x * p.x + y * p.y + z * p.z + w; }
};

class Screen {
public:
    Screen(const Math::Matrix4<float>& matrix, const Math::Vector2<float>& viewport)
        : mX(matrix, 0), mY(matrix, 1), mZ(matrix, 2), mWidth(viewport.x), mHeight(viewport.y) {}

    Point operator()(const Point& p) const {
        return {static_cast<float>((mX(p) + 1.0) * 0.5 * mWidth),
                static_cast<float>((mY(p) + 1.0) * 0.5 * mHeight), static_cast<float>(mZ(p))};
    }

private:
    Row mX, mY, mZ;
    double mWidth, mHeight;
};

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
    std::vector<float> positions(points.size());
    if (points.empty()) {
        return positions;
    }
    const Screen screen(matrix, viewport);
    double way = 0.0;
    Point previous = screen(points.front());
    for (std::size_t i = 1; i < points.size(); ++i) {
        const Point current = screen(points[i]);
        way += distance(current, previous);
        positions[i] = static_cast<float>(way);
        previous = current;
    }
    return positions;
}

}  // namespace Orlek::Detail
