#pragma once

/// @file
/// The four-component vector that serves as homogeneous position and as colour.

namespace Orlek::Math {

/// A vector of four components. Only the element type float exists.
template <typename T>
struct Vector4;

/// A homogeneous position, or an RGBA colour with components 0 to 1.
///
/// A plain value: no allocation, no failure, no shared state.
template <>
struct Vector4<float> {
    float x;  ///< First component; red.
    float y;  ///< Second component; green.
    float z;  ///< Third component; blue.
    float w;  ///< Fourth component; alpha, 1 is opaque.

    /// Leaves all components unset.
    Vector4() = default;
    /// @param xValue, yValue, zValue, wValue the components.
    Vector4(float xValue, float yValue, float zValue, float wValue)
        : x(xValue), y(yValue), z(zValue), w(wValue) {}
};

static_assert(sizeof(Vector4<float>) == 4 * sizeof(float));

}  // namespace Orlek::Math
