// The form of a stroke character set: what VectorFont draws, and what an application may hand to
// it.
#pragma once

#include <cstdint>

namespace Orlek::OpenGL {

/// One point of a stroke character, 12 bytes.
struct CHARDEF_STRUCT {
    float x;  ///< Font units to the right of the pen.
    float y;  ///< Font units above the baseline.
    /// 1: a point of the current stroke; 2: its last point; 3: the last point of the character's
    /// last stroke. Records of any other type are skipped.
    std::int32_t type;
};

/// A set of stroke characters of one width.
///
/// The records of all characters stand one after another in the order of their codes, each run ends
/// with its record of type 3. The set must be well formed: nothing but those records says where a
/// character ends, so that a run without one is read on into the next.
///
/// @code
/// // Code 0 is blank, code 1 a cross.
/// CHARDEF_STRUCT points[] = {{0, 0, 1}, {0, 0, 3},
///                            {0, 0, 1}, {9, 13.7F, 2}, {0, 13.7F, 1}, {9, 0, 3}};
/// CHARSET_STRUCT set{{0, 0}, 2, {}, 13.1F, points};
/// font.vectorFontInit(&set);
/// @endcode
struct CHARSET_STRUCT {
    std::int32_t unused[2];         ///< Not read.
    std::uint32_t count;            ///< Number of characters; codes from 128 on are not read.
    float metrics[6];               ///< Measures of the design, not read.
    float advance;                  ///< Way of the pen from one character to the next, font units.
    const CHARDEF_STRUCT* records;  ///< The first record; null: no characters.
};

}  // namespace Orlek::OpenGL
