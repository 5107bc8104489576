// The colours of the panel, by the customs of cockpits: magenta for what guides, cyan for what the
// pilot selected, green for what holds, white for scales.
#pragma once

#include <Orlek/Math/Vector4.h>

namespace Instruments {

using Colour = Orlek::Math::Vector4<float>;

inline const Colour white(1.0F, 1.0F, 1.0F, 1.0F);
inline const Colour grey(0.62F, 0.66F, 0.70F, 1.0F);
inline const Colour black(0.0F, 0.0F, 0.0F, 1.0F);
inline const Colour plate(0.04F, 0.05F, 0.07F, 0.62F);
inline const Colour bezel(0.16F, 0.18F, 0.21F, 1.0F);
inline const Colour magenta(1.0F, 0.25F, 0.95F, 1.0F);
inline const Colour cyan(0.30F, 0.90F, 1.0F, 1.0F);
inline const Colour green(0.30F, 0.95F, 0.35F, 1.0F);
inline const Colour yellow(1.0F, 0.88F, 0.15F, 1.0F);
inline const Colour skyTop(0.02F, 0.22F, 0.55F, 1.0F);
inline const Colour skyLow(0.25F, 0.55F, 0.90F, 1.0F);
inline const Colour groundHigh(0.50F, 0.32F, 0.14F, 1.0F);
inline const Colour groundLow(0.24F, 0.14F, 0.05F, 1.0F);

}  // namespace Instruments
