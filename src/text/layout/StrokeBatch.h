// Appends text in stroke characters to the vertex lists of a font, to be drawn with one call later:
// each stroke is one line strip, then the restart index.
#pragma once

#include <Orlek/Math/Matrix4.h>
#include <Orlek/Math/Vector2.h>
#include <Orlek/Math/Vector3.h>

#include <cstdint>
#include <string_view>
#include <vector>

#include "text/layout/StrokeCharacters.h"

namespace Orlek::Detail {

/// Where a text goes.
struct StrokePlacement {
    double scale;                 ///< Lengths for each font unit.
    Math::Vector2<float> offset;  ///< Of the pen's start from the anchor, font units.
    Math::Matrix4<float> transform;
};

/// The pen's start for an anchor (0 to 8) of a text, in font units. The text counts as wide as all
/// its bytes, and as high as the nominal character.
Math::Vector2<float> strokeOffset(int alignment, const StrokeCharacters& characters,
                                  std::string_view text);

/// What a drawing size makes of a font unit: the nominal character height becomes `size`.
double strokeScale(double size);

/// Calls visit(byte, pen) for each byte below 128, pen in font units. The others take no room.
template <typename Visit>
void walkStrokes(const StrokeCharacters& characters, std::string_view text, Visit&& visit) {
    float pen = 0.0F;
    for (const char byte : text) {
        if (StrokeCharacters::has(byte)) {
            visit(byte, pen);
            pen += characters.advance();
        }
    }
}

/// Appends one text.
void appendStrokes(std::vector<Math::Vector3<float>>& vertices, std::vector<std::uint32_t>& indices,
                   const StrokeCharacters& characters, std::string_view text,
                   const StrokePlacement& placement, std::uint32_t restartIndex);

}  // namespace Orlek::Detail
