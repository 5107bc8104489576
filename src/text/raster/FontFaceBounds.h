// What keeps a font from occupying FreeType for hours: its own bounds allow that.
#pragma once

#include <cstdint>

struct FT_FaceRec_;

namespace Orlek::Detail {

/// Processor time that the calling thread may spend from the construction on.
class ProcessorBudget {
public:
    explicit ProcessorBudget(std::int64_t milliseconds);

    bool spent() const;

private:
    std::int64_t mEnd;
};

/// FreeType's code of what is too much: of a TrueType font Invalid_Composite for a glyph that is
/// made of more than 256 parts, itself and the parts of parts counted, or of parts on more than 16
/// levels; of any font Execution_Too_Long when the budget is spent before that is known, or, where
/// outlines may be programs, before those of all characters have been read. Out_Of_Memory
/// when there is none to look. 0 when nothing is.
int findExcess(FT_FaceRec_* face, const ProcessorBudget& budget);

/// How to load characters of a face: with the autohinter where that takes a bounded time.
std::int32_t boundedLoadFlags(FT_FaceRec_* face);

}  // namespace Orlek::Detail
