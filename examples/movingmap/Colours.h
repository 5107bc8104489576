// The colours of everything that is drawn over the relief.
#pragma once

#include <Orlek/Math/Vector4.h>

namespace MovingMap {

using Colour = Orlek::Math::Vector4<float>;

/// From 0xRRGGBB, so that it is the same after it was text.
inline Colour opaque(unsigned rgb) {
    const auto part = [rgb](unsigned bits) {
        return static_cast<float>(rgb >> bits & 0xFFU) / 255.0F;
    };
    return {part(16), part(8), part(0), 1.0F};
}

inline Colour withAlpha(const Colour& colour, float alpha) {
    return {colour.x, colour.y, colour.z, alpha};
}

/// The same hue for text: mixed with this share of white.
inline Colour paler(const Colour& colour, float share) {
    const auto mix = [share](float part) { return part + (1.0F - part) * share; };
    return {mix(colour.x), mix(colour.y), mix(colour.z), colour.w};
}

inline const Colour white(1.0F, 1.0F, 1.0F, 1.0F);
inline const Colour grey(0.72F, 0.76F, 0.80F, 1.0F);
inline const Colour black(0.0F, 0.0F, 0.0F, 1.0F);
inline const Colour halo(0.04F, 0.05F, 0.07F, 0.85F);
inline const Colour shadow(0.04F, 0.05F, 0.07F, 0.45F);
inline const Colour plate(0.05F, 0.07F, 0.10F, 0.88F);
inline const Colour amber(1.0F, 0.72F, 0.20F, 1.0F);
inline const Colour red(1.0F, 0.36F, 0.30F, 1.0F);
inline const Colour green(0.45F, 0.95F, 0.50F, 1.0F);

}  // namespace MovingMap
