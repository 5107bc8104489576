// Glyphs as FreeType itself renders them, for comparison. Also the font that the tests draw with.
#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>
#include <numeric>
#include <stdexcept>
#include <string>

#include "support/WholeText.h"

namespace OrlekTest {

inline const char* const sansFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
inline const std::string oddFonts = ORLEK_SOURCE_DIR "/fuzz/corpus/font_load/";

class ReferenceFont {
public:
    explicit ReferenceFont(std::string bytes, int pixelSize = 16) : mBytes(std::move(bytes)) {
        FT_Init_FreeType(&mLibrary);
        mError = FT_New_Memory_Face(mLibrary, reinterpret_cast<const FT_Byte*>(mBytes.data()),
                                    static_cast<FT_Long>(mBytes.size()), 0, &mFace);
        if (mError == 0) {
            FT_Set_Pixel_Sizes(mFace, 0, static_cast<FT_UInt>(pixelSize));
        }
    }
    ~ReferenceFont() { FT_Done_FreeType(mLibrary); }
    ReferenceFont(const ReferenceFont&) = delete;
    ReferenceFont& operator=(const ReferenceFont&) = delete;

    /// FreeType's error code for a font of these bytes.
    int error() const { return mError; }

    /// The rendered character; valid until the next call.
    const FT_GlyphSlotRec& glyph(char byte) const {
        if (FT_Load_Char(mFace, static_cast<unsigned char>(byte),
                         FT_LOAD_RENDER | FT_LOAD_FORCE_AUTOHINT) != 0) {
            throw std::runtime_error("cannot render a character");
        }
        return *mFace->glyph;
    }

    /// Sum of the advances, in whole pixels.
    int width(const std::string& text) const {
        long sum = 0;
        for (const char byte : text) {
            sum += glyph(byte).advance.x / 64;
        }
        return static_cast<int>(sum);
    }

    /// Height of the highest of these characters.
    int lineHeight(const std::string& text) const {
        unsigned int height = 0;
        for (const char byte : text) {
            height = std::max(height, glyph(byte).bitmap.rows);
        }
        return static_cast<int>(height);
    }

    /// Height of the highest of the characters 32 to 255.
    int lineHeight() const {
        std::string all(224, '\0');
        std::iota(all.begin(), all.end(), ' ');
        return lineHeight(all);
    }

private:
    std::string mBytes;
    FT_Library mLibrary = nullptr;
    FT_Face mFace = nullptr;
    int mError = 0;
};

}  // namespace OrlekTest
