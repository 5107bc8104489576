#pragma once

/// @file
/// Everything of Orlek::Math: vectors, the matrix, scalar and plane geometry, polygons.

#include <Orlek/Math/Circle.h>
#include <Orlek/Math/Cubic.h>
#include <Orlek/Math/Filter.h>
#include <Orlek/Math/Line.h>
#include <Orlek/Math/Matrix4.h>
#include <Orlek/Math/Plane.h>
#include <Orlek/Math/Polygon2D.h>
#include <Orlek/Math/Scalar.h>
#include <Orlek/Math/Vector2.h>
#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>

/// Values that the other parts pass around: vectors, the matrix, plane geometry, polygons.
namespace Orlek::Math {}
