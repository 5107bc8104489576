// Vertex positions from vectors of two, three and four components.
#pragma once

#include <Orlek/Math/Vector2.h>
#include <Orlek/Math/Vector3.h>
#include <Orlek/Math/Vector4.h>

namespace Orlek::Detail {

inline Math::Vector3<float> toPosition(const Math::Vector2<float>& p) {
    return {p.x, p.y, 0.0F};
}

inline const Math::Vector3<float>& toPosition(const Math::Vector3<float>& p) {
    return p;
}

/// Drops w.
inline Math::Vector3<float> toPosition(const Math::Vector4<float>& p) {
    return {p.x, p.y, p.z};
}

}  // namespace Orlek::Detail
