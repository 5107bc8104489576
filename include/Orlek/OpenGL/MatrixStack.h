#pragma once

/// @file
/// The library's own transformation state: one stack of 4 x 4 matrices.
///
/// The top of the stack is the single model-view-projection matrix; every drawing class uploads it
/// just before it draws. Products are taken from the right, as glMultMatrix does: the last
/// transformation called is the first applied to the vertices. At load every level is the zero
/// matrix: call MatrixLoadIdent() or MatrixSet() before the first draw.
///
/// The stack is global and not locked; all functions belong to the one thread that draws. Only
/// MatrixActivate() makes GL calls.

#include <Orlek/Export.h>
#include <Orlek/Math/Matrix4.h>

namespace Orlek::OpenGL {

/// Makes the current matrix the identity.
ORLEK_EXPORT void MatrixLoadIdent();

/// Replaces the current matrix.
/// @param m sixteen floats, column-major, translation in elements 12 to 14.
ORLEK_EXPORT void MatrixSet(const Math::Matrix4<float>& m);

/// @return a copy of the current matrix.
ORLEK_EXPORT Math::Matrix4<float> MatrixGet();

/// Multiplies the current matrix by another from the right, in float.
/// @param m the factor; it acts on a vertex before everything already in the current matrix.
ORLEK_EXPORT void MatrixMult(const Math::Matrix4<float>& m);

/// Multiplies by a translation.
/// @param x, y, z the way, in units of the current coordinates; rounded to float.
ORLEK_EXPORT void MatrixTranslate(double x, double y, double z);

/// Multiplies by a scaling.
/// @param x, y, z the factors; rounded to float.
ORLEK_EXPORT void MatrixScale(double x, double y, double z);

/// Multiplies by a rotation about an axis through the origin, as glRotate does:
/// counter-clockwise for a positive angle when looking from the axis tip towards the origin.
/// @param angle the angle in degrees.
/// @param x, y, z the axis, rounded to float; must have unit length, it is not normalised.
ORLEK_EXPORT void MatrixRotate(double angle, double x, double y, double z);

/// Adds a level with a copy of the current matrix. The stack has 32 levels: with 31 pushes
/// outstanding nothing happens.
ORLEK_EXPORT void MatrixPush();

/// Returns to the level below; nothing happens on the lowest level.
ORLEK_EXPORT void MatrixPop();

/// Uploads the current matrix to the uniform "mvp" of the active standard program. GL errors are
/// printed with the label "glUniformMatrix4fv". Nothing happens when no program is active.
ORLEK_EXPORT void MatrixActivate();

}  // namespace Orlek::OpenGL
