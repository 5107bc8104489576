#include "text/raster/FontFace.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_FONT_FORMATS_H
#include FT_MODULE_H
#include FT_SYSTEM_H
#include FT_TRUETYPE_TABLES_H
#include FT_TRUETYPE_TAGS_H

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "platform/MallocArray.h"
#include "platform/Report.h"
#include "platform/WholeFile.h"
#include "text/raster/BitmapLocations.h"

namespace Orlek::Detail {
namespace {

constexpr long maxBlock = 64L << 20;
constexpr int maxPixelHeight = 256;
constexpr int maxBitmapSide = 1024;

bool granted(long size) {
    return size > 0 && size <= maxBlock;
}

// FreeType asks for memory with sizes that it read from the font.
FT_MemoryRec_ boundedMemory = {
    nullptr,
    [](FT_Memory, long size) { return granted(size) ? std::malloc(std::size_t(size)) : nullptr; },
    [](FT_Memory, void* block) { std::free(block); },
    [](FT_Memory, long, long size, void* block) {
        return granted(size) ? std::realloc(block, std::size_t(size)) : nullptr;
    }};

int wholePixels(FT_Pos length) {
    return static_cast<int>(std::clamp<FT_Pos>(length / 64, 0, 0x7FFF));
}

float pixels(FT_Pos length) {
    return static_cast<float>(length) / 64.0F;
}

// Both compose characters of others without any bound, and no font of these kinds has been made
// for decades.
void removeOldFormats(FT_Library library) {
    for (const char* format : {"pfr", "type42"}) {
        if (const FT_Module module = FT_Get_Module(library, format)) {
            FT_Remove_Module(library, module);
        }
    }
}

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

// Fonts that FreeType calls tricky move their strokes by programs, which it would run whatever else
// is asked for, each for up to a million steps over all points of a character: minutes.
FT_Int32 loadFlags(FT_Face face) {
    const FT_Int32 hinting =
        FT_IS_TRICKY(face) ? FT_LOAD_NO_HINTING | FT_LOAD_NO_AUTOHINT : FT_LOAD_FORCE_AUTOHINT;
    return composesBitmaps(face) ? hinting | FT_LOAD_NO_BITMAP : hinting;
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
    explicit PartCount(FT_Face face)
        : mFace(face), mGlyphs(static_cast<std::size_t>(face->num_glyphs)) {}

    // Whether every glyph is made of few enough.
    bool allFew() {
        for (FT_UInt glyph = 0; glyph < mGlyphs.size(); ++glyph) {
            if (!few(glyph, 0)) {
                return false;
            }
        }
        return true;
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
    std::vector<Extent> mGlyphs;
};

}  // namespace

FT_LibraryRec_* openFreeType() {
    FT_Library library = nullptr;
    if (FT_New_Library(&boundedMemory, &library) != 0) {
        return nullptr;
    }
    FT_Add_Default_Modules(library);
    removeOldFormats(library);
    FT_Set_Default_Properties(library);
    return library;
}

void startFreeType(bool& done, FT_LibraryRec_*& library) {
    if (done) {
        return;
    }
    library = openFreeType();
    done = library != nullptr;
    report(done ? "INIT Freetype done\n" : "init freetype failed !\n");
}

bool readFontFile(const char* label, const char* fileName, std::vector<char>& bytes) {
    if (fileName == nullptr || !readWholeFile(fileName, bytes)) {
        report("%s::load could not open <%s>\n", label, fileName == nullptr ? "" : fileName);
        return false;
    }
    return true;
}

unsigned char GlyphBitmap::coverage(std::size_t row, std::size_t column) const {
    const unsigned char* line = mBytes + static_cast<std::ptrdiff_t>(row) * mPitch;
    if (mGrey) {
        return line[column];
    }
    return (line[column / 8] >> (7 - column % 8) & 1) != 0 ? 255 : 0;
}

FontFace::FontFace(FT_LibraryRec_* library, const char* data, int size) {
    const auto* bytes = reinterpret_cast<const FT_Byte*>(data);
    mError = size < 0 ? static_cast<int>(FT_Err_Invalid_Argument)
                      : FT_New_Memory_Face(library, bytes, size, 0, &mFace);
    if (mError == 0 && isTrueType(mFace) && !PartCount(mFace).allFew()) {
        mError = FT_Err_Invalid_Composite;
        FT_Done_Face(std::exchange(mFace, nullptr));
    }
    mLoadFlags = mError == 0 ? loadFlags(mFace) : 0;
}

FontFace::~FontFace() {
    FT_Done_Face(mFace);  // does nothing without a face
}

bool FontFace::setPixelHeight(int pixelHeight) {
    return pixelHeight >= 1 && pixelHeight <= maxPixelHeight &&
           FT_Set_Pixel_Sizes(mFace, 0, static_cast<FT_UInt>(pixelHeight)) == 0;
}

GlyphSize FontFace::measure(unsigned int character) {
    const FT_UInt glyph = FT_Get_Char_Index(mFace, character);
    if (FT_Load_Glyph(mFace, glyph, mLoadFlags) != 0) {
        report("FT_Load_Glyph failed!\n");
    }
    const FT_Glyph_Metrics& metrics = mFace->glyph->metrics;
    return {wholePixels(metrics.width), wholePixels(metrics.height)};
}

std::optional<RenderedGlyph> FontFace::render(unsigned int character) {
    // Loaded first without its bitmap, whose memory and time would follow the font's word alone.
    if (FT_Load_Char(mFace, character, mLoadFlags) != 0) {
        return std::nullopt;
    }
    const FT_GlyphSlot slot = mFace->glyph;
    if (std::max(wholePixels(slot->metrics.width), wholePixels(slot->metrics.height)) >
            maxBitmapSide ||
        FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) != 0) {
        return std::nullopt;
    }
    const FT_Bitmap& bitmap = slot->bitmap;
    // A bitmap font may give a character a size, but no bits.
    if (bitmap.buffer == nullptr && bitmap.rows > 0 && bitmap.width > 0) {
        return std::nullopt;
    }
    const std::ptrdiff_t pitch = bitmap.pitch;
    // With a negative pitch the rows stand in memory from the bottom up.
    const std::ptrdiff_t topRow =
        pitch < 0 && bitmap.rows > 0 ? -pitch * (static_cast<std::ptrdiff_t>(bitmap.rows) - 1) : 0;
    return RenderedGlyph{static_cast<float>(slot->bitmap_top),
                         pixels(slot->advance.x),
                         pixels(slot->metrics.horiBearingX),
                         pixels(slot->metrics.horiBearingY),
                         bitmap.width,
                         bitmap.rows,
                         {bitmap.buffer + topRow, pitch, bitmap.pixel_mode == FT_PIXEL_MODE_GRAY}};
}

}  // namespace Orlek::Detail
