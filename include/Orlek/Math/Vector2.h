#pragma once

/// @file
/// Two-component vectors, packed so that arrays of them are arrays of their components.
/// In the plane x points east and y north; a heading runs clockwise from north, atan2(x, y).

#include <cmath>

namespace Orlek::Math {

/// A vector of two components. Only the element types float and double exist.
///
/// A plain value: no allocation, no failure, no shared state. All operations may be called from any
/// thread.
template <typename T>
struct Vector2;

/// A point or vector in single precision, as vertex and texture-coordinate arrays hold it.
template <>
struct Vector2<float> {
    float x;  ///< First component; east in the plane.
    float y;  ///< Second component; north in the plane.

    /// Leaves both components unset.
    Vector2() = default;
    /// @param xValue, yValue the components.
    Vector2(float xValue, float yValue) : x(xValue), y(yValue) {}

    /// @param other the vector to add.
    /// @return the component-wise sum.
    Vector2 operator+(const Vector2& other) const { return {x + other.x, y + other.y}; }

    /// @return the length, computed in single precision.
    float Length() const { return std::sqrt(LengthSquared()); }
    /// @return the square of the length, computed in single precision.
    float LengthSquared() const { return x * x + y * y; }

    /// Rotates counter-clockwise; computed in double precision, stored as float.
    /// @param a the angle in radians.
    void Rotate(double a) {
        const double cosine = std::cos(a);
        const double sine = std::sin(a);
        *this = {static_cast<float>(x * cosine - y * sine),
                 static_cast<float>(x * sine + y * cosine)};
    }

    /// Multiplies each component by its own factor, in double precision, stored as float.
    /// @param sx, sy the factors of x and y.
    void Scale(double sx, double sy) {
        x = static_cast<float>(x * sx);
        y = static_cast<float>(y * sy);
    }
};

/// A point or vector in double precision: positions in metres, directions.
template <>
struct Vector2<double> {
    double x;  ///< First component; east in the plane.
    double y;  ///< Second component; north in the plane.

    /// Leaves both components unset.
    Vector2() = default;
    /// @param xValue, yValue the components.
    Vector2(double xValue, double yValue) : x(xValue), y(yValue) {}

    /// @param other the vector to subtract.
    /// @return the component-wise difference.
    Vector2 operator-(const Vector2& other) const { return {x - other.x, y - other.y}; }
    /// @param other the vector to add.
    /// @return the component-wise sum.
    Vector2 operator+(const Vector2& other) const { return {x + other.x, y + other.y}; }
    /// Adds in place.
    /// @param other the vector to add.
    void operator+=(const Vector2& other) {
        x += other.x;
        y += other.y;
    }
    /// @return the vector with each component rounded to single precision.
    operator Vector2<float>() const { return {static_cast<float>(x), static_cast<float>(y)}; }

    /// @return the compass heading of the vector in radians, in [0, 2 pi]: 0 is +y, pi/2 is +x.
    double Heading() const {
        constexpr double fullTurn = 6.283185307179586;
        const double heading = std::atan2(x, y);
        return heading < 0.0 ? heading + fullTurn : heading;
    }

    /// Tells on which side of this vector another one lies.
    /// @param other the other vector.
    /// @return 1 when @p other lies clockwise of this vector or parallel to it, otherwise 0.
    int LeftRight(const Vector2& other) const { return x * other.y - y * other.x <= 0.0 ? 1 : 0; }

    /// @return the length.
    double Length() const { return std::sqrt(LengthSquared()); }
    /// @return the square of the length.
    double LengthSquared() const { return x * x + y * y; }

    /// Scales to unit length. The reciprocal of the length is rounded to single precision, so the
    /// result has length 1 to about 1e-7 from lengths of 3e-39 to 8e37. A zero vector becomes (NaN,
    /// NaN).
    void Normalize() {
        const double factor = static_cast<float>(1.0 / Length());
        x *= factor;
        y *= factor;
    }

    /// Rotates counter-clockwise.
    /// @param a the angle in radians.
    void Rotate(double a) {
        const double cosine = std::cos(a);
        const double sine = std::sin(a);
        *this = {x * cosine - y * sine, x * sine + y * cosine};
    }

    /// @param other the other vector.
    /// @return the unsigned angle between the vectors in radians, in [0, pi]. NaN for a zero
    /// vector, and where rounding takes the cosine beyond 1, which can happen for parallel vectors.
    double angle(const Vector2& other) const {
        return std::acos((x * other.x + y * other.y) / (Length() * other.Length()));
    }

    /// Tests whether the vectors are parallel or opposite.
    ///
    /// Compares one component with that of the multiple of @p other which has the same other
    /// component; the tolerance of 0.001 is absolute, in the unit of the components.
    /// @param other the other vector.
    /// @return true when they are; always true when @p other is zero.
    bool linearTo(const Vector2& other) const {
        constexpr double tolerance = 0.001;
        if (other.x != 0.0)
            return std::abs(y - x / other.x * other.y) < tolerance;
        return other.y == 0.0 || std::abs(x - y / other.y * other.x) < tolerance;
    }
};

static_assert(sizeof(Vector2<float>) == 2 * sizeof(float));
static_assert(sizeof(Vector2<double>) == 2 * sizeof(double));

}  // namespace Orlek::Math
