// Lengths of lines in pixels.
#pragma once

#include <Orlek/Math/Matrix4.h>
#include <Orlek/Math/Vector2.h>
#include <Orlek/Math/Vector3.h>

#include <span>
#include <vector>

namespace Orlek::Detail {

/// For each point the way from the first one in pixels, through all points in their order.
/// @param matrix model coordinates to clip coordinates; there is no division by w.
/// @param viewport width and height in pixels.
std::vector<float> measureLine(std::span<const Math::Vector3<float>> points,
                               const Math::Matrix4<float>& matrix,
                               const Math::Vector2<float>& viewport);

}  // namespace Orlek::Detail
