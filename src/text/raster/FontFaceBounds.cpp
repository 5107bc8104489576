#include "text/raster/FontFaceBounds.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_FONT_FORMATS_H
#include FT_TRUETYPE_TABLES_H
#include FT_TRUETYPE_TAGS_H

#include <algorithm>
#include <cstddef>
#include <new>
#include <string_view>
#include <vector>

#include "platform/Clock.h"
#include "platform/MallocArray.h"
#include "text/layout/CharacterSlots.h"
#include "text/raster/BitmapLocations.h"

namespace Orlek::Detail {
namespace {

// Whether the font has bitmaps that are made of others, or hides whether it has.
bool composesBitmaps(FT_Face face) {
    for (const FT_ULong tag : {TTAG_CBLC, TTAG_EBLC, TTAG_bloc}) {
        FT_ULong size = 0;
        if (FT_Load_Sfnt_Table(face, tag, 0, nullptr, &size) != 0 || size == 0) {
            continue;
        }
        const auto table = mallocArray<std::byte>(size);
        if (!table ||
            FT_Load_Sfnt_Table(face, tag, 0, reinterpret_cast<FT_Byte*>(table.get()), &size) != 0 ||
            hasCompositeBitmaps({table.get(), size})) {
            return true;
        }
    }
    return false;
}

bool isTrueType(FT_Face face) {
    const char* const format = FT_Get_Font_Format(face);
    return format != nullptr && std::string_view(format) == "TrueType";
}

// A character of a TrueType font may be made of others, and those again. Real fonts have a handful
// of parts on two levels. FreeType has no bound, and its autohinter loads characters that nobody
// asked for: 2 kB would keep it busy for days, 1 MB of parts within parts overflow the stack.
class PartCount {
public:
    PartCount(FT_Face face, const ProcessorBudget& budget)
        : mFace(face), mBudget(budget), mGlyphs(static_cast<std::size_t>(face->num_glyphs)) {}

    // FreeType's code for a glyph that is made of too many; 0 when there is none.
    int findExcess() {
        constexpr FT_UInt glyphsBetweenLooks = 64;  // a look takes as long as a small glyph
        for (FT_UInt glyph = 0; glyph < mGlyphs.size(); ++glyph) {
            if (glyph % glyphsBetweenLooks == 0 && mBudget.spent()) {
                return FT_Err_Execution_Too_Long;
            }
            if (!few(glyph, 0)) {
                return FT_Err_Invalid_Composite;
            }
        }
        return 0;
    }

private:
    static constexpr unsigned int maxParts = 256;
    static constexpr unsigned int maxLevels = 16;

    struct Extent {
        std::uint16_t parts = 0;  // with itself; 0: not looked at
        std::uint16_t levels = 0;
    };

    // The glyphs that a glyph names itself; none when it cannot be loaded, which ends the loading
    // of all that it is a part of. False when there are too many.
    bool readParts(FT_UInt glyph, std::vector<FT_UInt>& parts) {
        constexpr FT_Int32 alone = FT_LOAD_NO_RECURSE | FT_LOAD_NO_HINTING | FT_LOAD_NO_AUTOHINT;
        const FT_GlyphSlot slot = mFace->glyph;
        if (FT_Load_Glyph(mFace, glyph, alone) != 0 || slot->format != FT_GLYPH_FORMAT_COMPOSITE) {
            return true;
        }
        for (FT_UInt i = 0; i < slot->num_subglyphs && i < maxParts; ++i) {
            FT_Int part = 0;
            FT_UInt flags = 0;
            FT_Int x = 0;
            FT_Int y = 0;
            FT_Matrix transform;
            FT_Get_SubGlyph_Info(slot, i, &part, &flags, &x, &y, &transform);
            parts.push_back(static_cast<FT_UInt>(part));
        }
        return slot->num_subglyphs < maxParts;
    }

    // Recurses no deeper than `maxLevels`.
    bool few(FT_UInt glyph, unsigned int level) {
        if (glyph >= mGlyphs.size() || mGlyphs[glyph].parts > 0) {
            return true;
        }
        // FreeType finds out itself when a glyph comes back as a part of its own.
        mGlyphs[glyph].parts = 1;
        std::vector<FT_UInt> parts;
        if (!readParts(glyph, parts) || (level == maxLevels && !parts.empty())) {
            return false;
        }
        unsigned int count = 1;
        unsigned int levels = 0;
        for (const FT_UInt part : parts) {
            if (!few(part, level + 1)) {
                return false;
            }
            if (part < mGlyphs.size()) {
                count += mGlyphs[part].parts;
                levels = std::max(levels, mGlyphs[part].levels + 1U);
            }
        }
        if (count > maxParts || levels > maxLevels) {
            return false;
        }
        mGlyphs[glyph] = {static_cast<std::uint16_t>(count), static_cast<std::uint16_t>(levels)};
        return true;
    }

    FT_Face mFace;
    const ProcessorBudget& mBudget;
    std::vector<Extent> mGlyphs;
};

// Outlines may be programs: of a Type 1 or CFF font each of up to 20 million steps. What they take
// shows before the autohinter comes, which reads dozens of them in one call.
bool outlinesInTime(FT_Face face, const ProcessorBudget& budget) {
    for (unsigned int code = firstCharacter; code <= lastCharacter && !budget.spent(); ++code) {
        FT_Load_Glyph(face, FT_Get_Char_Index(face, code), FT_LOAD_NO_SCALE);
    }
    return !budget.spent();
}

}  // namespace

ProcessorBudget::ProcessorBudget(std::int64_t milliseconds) : mEnd(threadTimeMs() + milliseconds) {}

bool ProcessorBudget::spent() const {
    return threadTimeMs() > mEnd;
}

int findExcess(FT_FaceRec_* face, const ProcessorBudget& budget) {
    if (isTrueType(face)) {
        try {
            return PartCount(face, budget).findExcess();
        } catch (const std::bad_alloc&) {
            return FT_Err_Out_Of_Memory;
        }
    }
    return outlinesInTime(face, budget) ? 0 : static_cast<int>(FT_Err_Execution_Too_Long);
}

// Fonts that FreeType calls tricky move their strokes by programs, which it would run whatever else
// is asked for, each for up to a million steps over all points of a character: minutes.
std::int32_t boundedLoadFlags(FT_FaceRec_* face) {
    const FT_Int32 hinting =
        FT_IS_TRICKY(face) ? FT_LOAD_NO_HINTING | FT_LOAD_NO_AUTOHINT : FT_LOAD_FORCE_AUTOHINT;
    return composesBitmaps(face) ? hinting | FT_LOAD_NO_BITMAP : hinting;
}

}  // namespace Orlek::Detail
