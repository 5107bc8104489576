// Crossing circles: the radical line, which holds all points with equal power to both circles, is
// 2 (x1 - x0) x + 2 (y1 - y0) y = C; put into the equation of this circle it leaves a quadratic.
#include <Orlek/Math/Circle.h>

#include <cmath>

namespace Orlek::Math {

bool Circle<double>::cross(const Circle<double>& other, Vector2<double>& first,
                           Vector2<double>& second) const {
    const double c = radius * radius - other.radius * other.radius - x * x + other.x * other.x -
                     y * y + other.y * other.y;
    const double dy = 2.0 * (other.y - y);
    if (dy == 0.0) {
        const double crossX = c / (2.0 * other.x - 2.0 * x);
        const double discriminant = radius * radius - (crossX - x) * (crossX - x);
        if (!(discriminant > 0.0))
            return false;
        const double root = std::sqrt(discriminant);
        first = {crossX, y + root};
        second = {crossX, y - root};
        return true;
    }
    // The radical line is y = m x + k.
    const double k = c / dy;
    const double m = (2.0 * x - 2.0 * other.x) / dy;
    const double a = m * m + 1.0;
    const double h = (2.0 * m * k - 2.0 * x - 2.0 * m * y) / a * 0.5;
    const double discriminant = h * h - (k * k + x * x - 2.0 * k * y + y * y - radius * radius) / a;
    if (!(discriminant > 0.0))
        return false;
    const double root = std::sqrt(discriminant);
    first = {root - h, m * (root - h) + k};
    second = {-h - root, m * (-h - root) + k};
    return true;
}

bool Circle<double>::tangent(const Vector2<double>& point, Vector2<double>& first,
                             Vector2<double>& second) const {
    const Vector2<double> toPoint(point.x - x, point.y - y);
    const Circle<double> thales((x + point.x) / 2.0, (y + point.y) / 2.0, toPoint.Length() / 2.0);
    return cross(thales, first, second);
}

}  // namespace Orlek::Math
