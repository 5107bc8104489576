#include "text/raster/FontFace.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_MODULE_H
#include FT_SYSTEM_H

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "platform/Report.h"
#include "platform/WholeFile.h"

namespace Orlek::Detail {
namespace {

constexpr long maxBlock = 64L << 20;
constexpr int maxPixelHeight = 256;
constexpr int maxBitmapSide = 1024;
constexpr int leastTimeMs = 1000;
constexpr int bytesPerMs = (10 << 20) / 1000;

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

// FreeType itself chooses none in a font without Unicode.
void chooseCharmap(FT_Face face) {
    const bool chosen =
        face->charmap != nullptr || FT_Select_Charmap(face, FT_ENCODING_MS_SYMBOL) == 0;
    if (!chosen && face->num_charmaps > 0) {
        FT_Set_Charmap(face, face->charmaps[0]);
    }
}

}  // namespace

FT_LibraryRec_* openFreeType() {
    FT_Library library = nullptr;
    if (FT_New_Library(&boundedMemory, &library) != 0) {
        return nullptr;
    }
    FT_Add_Default_Modules(library);
    removeOldFormats(library);
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

FontFace::FontFace(FT_LibraryRec_* library, const char* data, int size)
    : mBudget(std::max(leastTimeMs, size / bytesPerMs)) {
    const auto* bytes = reinterpret_cast<const FT_Byte*>(data);
    mError = size < 0 ? static_cast<int>(FT_Err_Invalid_Argument)
                      : FT_New_Memory_Face(library, bytes, size, 0, &mFace);
    if (mError != 0) {
        return;
    }
    chooseCharmap(mFace);
    mError = findExcess(mFace, mBudget);
    if (mError != 0) {
        FT_Done_Face(std::exchange(mFace, nullptr));
        return;
    }
    mLoadFlags = boundedLoadFlags(mFace);
}

FontFace::~FontFace() {
    FT_Done_Face(mFace);  // does nothing without a face
}

bool FontFace::setPixelHeight(int pixelHeight) {
    return pixelHeight >= 1 && pixelHeight <= maxPixelHeight &&
           FT_Set_Pixel_Sizes(mFace, 0, static_cast<FT_UInt>(pixelHeight)) == 0;
}

// Symbol fonts have their characters from U+F000 on.
unsigned int FontFace::glyphOf(unsigned int character) const {
    constexpr FT_ULong symbols = 0xF000;
    const FT_UInt glyph = FT_Get_Char_Index(mFace, character);
    const bool again = glyph == 0 && mFace->charmap != nullptr &&
                       mFace->charmap->encoding == FT_ENCODING_MS_SYMBOL;
    return again ? FT_Get_Char_Index(mFace, symbols + character) : glyph;
}

GlyphSize FontFace::measure(unsigned int character) {
    const bool late = mBudget.spent();
    if (late || FT_Load_Glyph(mFace, glyphOf(character), mLoadFlags) != 0) {
        report("FT_Load_Glyph failed!\n");
    }
    if (late) {
        return {0, 0};
    }
    const FT_Glyph_Metrics& metrics = mFace->glyph->metrics;
    return {wholePixels(metrics.width), wholePixels(metrics.height)};
}

std::optional<RenderedGlyph> FontFace::render(unsigned int character) {
    // Loaded first without its bitmap, whose memory and time would follow the font's word alone.
    if (mBudget.spent() || FT_Load_Glyph(mFace, glyphOf(character), mLoadFlags) != 0) {
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
