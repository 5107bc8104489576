// The plane of an outline.
#pragma once

#include <Orlek/Math/Vector3.h>

#include <cstddef>
#include <span>

namespace Orlek::Detail {

/// The axis to look along at an outline (0 x, 1 y, 2 z), so that it is seen wide: that of the
/// normal of a large triangle over its longest extent.
/// @param outline finite, not empty
std::size_t viewAxis(std::span<const Math::Vector3<float>> outline);

}  // namespace Orlek::Detail
