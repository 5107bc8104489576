#pragma once

/// @file
/// Three-component vectors, packed so that arrays of them are arrays of their components.

#include <cmath>

namespace Orlek::Math {

/// A vector of three components. Only the element types float and double exist.
///
/// A plain value: no allocation, no failure, no shared state. All operations may be called from any
/// thread.
template <typename T>
struct Vector3;

/// A point, vector or normal in single precision, as vertex arrays hold it.
template <>
struct Vector3<float> {
    float x = 0.0F;  ///< First component.
    float y = 0.0F;  ///< Second component.
    float z = 0.0F;  ///< Third component.

    /// Makes the zero vector.
    Vector3() = default;
    /// @param xValue, yValue, zValue the components.
    Vector3(float xValue, float yValue, float zValue) : x(xValue), y(yValue), z(zValue) {}

    /// @param other the vector to subtract.
    /// @return the component-wise difference.
    Vector3 operator-(const Vector3& other) const {
        return {x - other.x, y - other.y, z - other.z};
    }
    /// @param other the vector to add.
    /// @return the component-wise sum.
    Vector3 operator+(const Vector3& other) const {
        return {x + other.x, y + other.y, z + other.z};
    }
    /// @param s the divisor; 0 gives infinite or NaN components.
    /// @return each component divided by @p s.
    Vector3 operator/(float s) const { return {x / s, y / s, z / s}; }
    /// @param s the factor.
    /// @return each component multiplied by @p s.
    Vector3 operator*(float s) const { return {x * s, y * s, z * s}; }

    /// @param b the second vector.
    /// @return the cross product of this vector with @p b.
    Vector3 Cross(const Vector3& b) const {
        return {y * b.z - z * b.y, z * b.x - x * b.z, x * b.y - y * b.x};
    }

    /// @return the length, computed in single precision.
    float Length() const { return std::sqrt(x * x + y * y + z * z); }

    /// Scales to unit length in single precision. A zero vector gets NaN components.
    void Normalize() { *this = Normalized(); }
    /// @return the vector scaled to unit length in single precision; NaN components for a zero
    /// vector. This vector stays as it is.
    Vector3 Normalized() const { return *this * (1.0F / Length()); }
};

/// A point or vector in double precision.
template <>
struct Vector3<double> {
    double x = 0.0;  ///< First component.
    double y = 0.0;  ///< Second component.
    double z = 0.0;  ///< Third component.

    /// Makes the zero vector.
    Vector3() = default;
    /// @param xValue, yValue, zValue the components.
    Vector3(double xValue, double yValue, double zValue) : x(xValue), y(yValue), z(zValue) {}

    /// @param other the vector to subtract.
    /// @return the component-wise difference.
    Vector3 operator-(const Vector3& other) const {
        return {x - other.x, y - other.y, z - other.z};
    }

    /// @param b the second vector.
    /// @return the cross product of this vector with @p b.
    Vector3 Cross(const Vector3& b) const {
        return {y * b.z - z * b.y, z * b.x - x * b.z, x * b.y - y * b.x};
    }

    /// Rotates about the z axis: (x, y) turns counter-clockwise, z stays.
    /// @param a the angle in radians.
    void RotateZ(double a) {
        const double cosine = std::cos(a);
        const double sine = std::sin(a);
        *this = {x * cosine - y * sine, x * sine + y * cosine, z};
    }
};

static_assert(sizeof(Vector3<float>) == 3 * sizeof(float));
static_assert(sizeof(Vector3<double>) == 3 * sizeof(double));

}  // namespace Orlek::Math
