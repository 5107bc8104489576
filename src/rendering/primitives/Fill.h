// The uniforms that the filled shapes have in common.
#pragma once

#include <Orlek/Math/Vector4.h>
#include <Orlek/OpenGL/StippleMask.h>

#include "rendering/context/DrawPass.h"

namespace Orlek::Detail {

/// Colour and screen stipple; a program that has no stipple takes the colour alone.
inline void setFill(DrawPass& pass, const Math::Vector4<float>& color, const StippleMask& stipple) {
    pass.set("color", color);
    pass.set("stippleUse", stipple.use ? 1 : 0);
    pass.setPattern("stipplePattern", stipple.rows);
}

}  // namespace Orlek::Detail
