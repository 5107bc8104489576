// How a user wants the map to look.
#pragma once

#include "Colours.h"
#include "Units.h"

namespace MovingMap {

/// The colours that a user may choose.
struct Palette {
    Colour route = opaque(0xFF1ADB);  // magenta
    Colour flown = opaque(0x9E3894);
    Colour ownShip = opaque(0xFFE640);  // yellow
    Colour traffic = opaque(0x73F2FF);  // cyan
    Colour rings = white;
    Colour controlled = opaque(0x1F52F2);  // blue
    Colour prohibited = opaque(0xD91A1A);  // red
    Colour training = opaque(0x6B33BF);    // violet
};

struct Style {
    Palette colours;
    Units units;
};

}  // namespace MovingMap
