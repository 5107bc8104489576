// A position under a matrix, as the text batches apply it.
#pragma once

#include <Orlek/Math/Matrix4.h>
#include <Orlek/Math/Vector3.h>

namespace Orlek::Detail {

/// transform x (x, y, z, 1), w dropped.
inline Math::Vector3<float> transformed(const Math::Matrix4<float>& transform, float x, float y,
                                        float z) {
    const float* m = transform.m;
    return {m[0] * x + m[4] * y + m[8] * z + m[12], m[1] * x + m[5] * y + m[9] * z + m[13],
            m[2] * x + m[6] * y + m[10] * z + m[14]};
}

}  // namespace Orlek::Detail
