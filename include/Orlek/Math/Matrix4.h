#pragma once

/// @file
/// The 4 x 4 matrix in the order in which OpenGL takes it.

namespace Orlek::Math {

/// A 4 x 4 matrix. Only the element type float exists.
template <typename T>
struct Matrix4;

/// Sixteen floats in OpenGL's column-major order.
///
/// Element 4 c + r holds row r of column c, so a translation sits in elements 12, 13 and 14 and
/// element 15 is the homogeneous 1. An aggregate without operations of its own: the matrix stack
/// builds, multiplies and uploads it.
template <>
struct Matrix4<float> {
    float m[16];  ///< The elements, column after column.
};

static_assert(sizeof(Matrix4<float>) == 16 * sizeof(float));

}  // namespace Orlek::Math
