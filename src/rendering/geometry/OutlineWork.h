// How long it will take to cut an outline into triangles.
#pragma once

#include <Orlek/Math/Vector3.h>

#include <span>

namespace Orlek::Detail {

/// Estimates the steps of a sweep over a closed outline that walks along its boundary at each
/// crossing, and along a list of the edges under the sweep line and of those from one place at each
/// corner: corners x (crossings + edges under the line + edges from there). A step takes 10 to 30
/// ns.
double outlineWork(std::span<const Math::Vector3<float>> corners);

}  // namespace Orlek::Detail
