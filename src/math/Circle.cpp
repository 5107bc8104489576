// Crossing circles: the radical line, which holds all points with equal power to both circles, is
// 2 (x1 - x0) x + 2 (y1 - y0) y = C; put into the equation of this circle it leaves a quadratic.
#include <Orlek/Math/Circle.h>

#include <cmath>

namespace Orlek::Math {

namespace {

// The constant of the radical line.
double radicalConstant(const Circle<double>& one, const Circle<double>& other) {
    return one.radius * one.radius - other.radius * other.radius - one.x * one.x +
           other.x * other.x - one.y * one.y + other.y * other.y;
}

// With the centres level, the radical line is upright; the upper crossing comes first.
bool crossUpright(const Circle<double>& one, const Circle<double>& other, Vector2<double>& first,
                  Vector2<double>& second) {
    const double x = radicalConstant(one, other) / (2.0 * other.x - 2.0 * one.x);
    const double discriminant = one.radius * one.radius - (x - one.x) * (x - one.x);
    if (!(discriminant > 0.0))
        return false;
    const double root = std::sqrt(discriminant);
    first = {x, one.y + root};
    second = {x, one.y - root};
    return true;
}

// With the radical line as y = m x + k; the crossing with the greater x comes first.
bool crossSloping(const Circle<double>& one, const Circle<double>& other, Vector2<double>& first,
                  Vector2<double>& second) {
    const auto [x0, y0, r0] = one;
    const double dy = 2.0 * (other.y - y0);
    const double k = radicalConstant(one, other) / dy;
    const double m = (2.0 * x0 - 2.0 * other.x) / dy;
    const double a = m * m + 1.0;
    const double h = (2.0 * m * k - 2.0 * x0 - 2.0 * m * y0) / a * 0.5;
    const double discriminant = h * h - (k * k + x0 * x0 - 2.0 * k * y0 + y0 * y0 - r0 * r0) / a;
    if (!(discriminant > 0.0))
        return false;
    const double root = std::sqrt(discriminant);
    first = {root - h, m * (root - h) + k};
    second = {-h - root, m * (-h - root) + k};
    return true;
}

// With the radical line nearly upright its slope overwhelms the sloping form, whose error grows
// with the square of the slope; so x and y change places.
bool crossNearlyUpright(const Circle<double>& one, const Circle<double>& other,
                        Vector2<double>& first, Vector2<double>& second) {
    Vector2<double> upper;
    Vector2<double> lower;
    if (!crossSloping({one.y, one.x, one.radius}, {other.y, other.x, other.radius}, upper, lower))
        return false;
    const bool rising = (one.x < other.x) != (one.y < other.y);
    first = rising ? Vector2<double>(upper.y, upper.x) : Vector2<double>(lower.y, lower.x);
    second = rising ? Vector2<double>(lower.y, lower.x) : Vector2<double>(upper.y, upper.x);
    return true;
}

}  // namespace

bool Circle<double>::cross(const Circle<double>& other, Vector2<double>& first,
                           Vector2<double>& second) const {
    constexpr double steep = 1e4;
    const double dx = std::abs(other.x - x);
    const double dy = std::abs(other.y - y);
    if (dy == 0.0)
        return crossUpright(*this, other, first, second);
    return dx > steep * dy ? crossNearlyUpright(*this, other, first, second)
                           : crossSloping(*this, other, first, second);
}

bool Circle<double>::tangent(const Vector2<double>& point, Vector2<double>& first,
                             Vector2<double>& second) const {
    const Vector2<double> toPoint(point.x - x, point.y - y);
    const Circle<double> thales((x + point.x) / 2.0, (y + point.y) / 2.0, toPoint.Length() / 2.0);
    return cross(thales, first, second);
}

}  // namespace Orlek::Math
