// The colours of everything that is drawn over the relief.
#pragma once

#include <Orlek/Math/Vector4.h>

namespace MovingMap {

using Colour = Orlek::Math::Vector4<float>;

inline const Colour white(1.0F, 1.0F, 1.0F, 1.0F);
inline const Colour grey(0.72F, 0.76F, 0.80F, 1.0F);
inline const Colour black(0.0F, 0.0F, 0.0F, 1.0F);
inline const Colour halo(0.04F, 0.05F, 0.07F, 0.85F);
inline const Colour shadow(0.04F, 0.05F, 0.07F, 0.45F);
inline const Colour plate(0.05F, 0.07F, 0.10F, 0.88F);
inline const Colour magenta(1.0F, 0.10F, 0.86F, 1.0F);
inline const Colour magentaText(1.0F, 0.62F, 0.96F, 1.0F);
inline const Colour flownMagenta(0.62F, 0.22F, 0.58F, 1.0F);
inline const Colour yellow(1.0F, 0.90F, 0.25F, 1.0F);
inline const Colour amber(1.0F, 0.72F, 0.20F, 1.0F);
inline const Colour red(1.0F, 0.36F, 0.30F, 1.0F);
inline const Colour cyan(0.45F, 0.95F, 1.0F, 1.0F);
inline const Colour green(0.45F, 0.95F, 0.50F, 1.0F);

}  // namespace MovingMap
