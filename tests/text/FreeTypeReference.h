// Glyphs as FreeType itself renders them, for comparison. Also the font that the tests draw with.
#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <cstddef>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace OrlekTest {

inline const char* const sansFont = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";

inline std::string readFont(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    if (bytes.empty()) {
        throw std::runtime_error("cannot read " + path);
    }
    return bytes;
}

/// FreeType's error code for a font of these bytes.
inline int openingError(const std::string& bytes) {
    FT_Library library = nullptr;
    FT_Face face = nullptr;
    FT_Init_FreeType(&library);
    const FT_Error error =
        FT_New_Memory_Face(library, reinterpret_cast<const FT_Byte*>(bytes.data()),
                           static_cast<FT_Long>(bytes.size()), 0, &face);
    FT_Done_FreeType(library);
    return error;
}

struct ReferenceGlyph {
    int left;     ///< Columns from the pen to the bitmap.
    int top;      ///< Rows from the baseline up to the bitmap's top.
    int advance;  ///< Whole pixels.
    int width;
    int rows;
    std::vector<unsigned char> coverage;  ///< Top row first.

    int at(int row, int column) const {
        return coverage[static_cast<std::size_t>(row * width + column)];
    }
};

class ReferenceFont {
public:
    ReferenceFont(const std::string& path, int pixelSize) {
        if (FT_Init_FreeType(&mLibrary) != 0 ||
            FT_New_Face(mLibrary, path.c_str(), 0, &mFace) != 0 ||
            FT_Set_Pixel_Sizes(mFace, 0, static_cast<FT_UInt>(pixelSize)) != 0) {
            throw std::runtime_error("cannot open " + path);
        }
    }
    ~ReferenceFont() {
        FT_Done_Face(mFace);
        FT_Done_FreeType(mLibrary);
    }
    ReferenceFont(const ReferenceFont&) = delete;
    ReferenceFont& operator=(const ReferenceFont&) = delete;

    ReferenceGlyph glyph(unsigned int code) const {
        if (FT_Load_Char(mFace, code, FT_LOAD_RENDER | FT_LOAD_FORCE_AUTOHINT) != 0) {
            throw std::runtime_error("cannot render a character");
        }
        const FT_GlyphSlot slot = mFace->glyph;
        const FT_Bitmap& bitmap = slot->bitmap;
        ReferenceGlyph glyph{slot->bitmap_left,
                             slot->bitmap_top,
                             static_cast<int>(slot->advance.x / 64),
                             static_cast<int>(bitmap.width),
                             static_cast<int>(bitmap.rows),
                             {}};
        for (int row = 0; row < glyph.rows; ++row) {
            const unsigned char* line = bitmap.buffer + row * bitmap.pitch;
            glyph.coverage.insert(glyph.coverage.end(), line, line + bitmap.width);
        }
        return glyph;
    }

    /// Sum of the advances, in whole pixels.
    int width(const std::string& text) const {
        int sum = 0;
        for (const char byte : text) {
            sum += glyph(static_cast<unsigned char>(byte)).advance;
        }
        return sum;
    }

    /// Height of the highest of the characters 32 to 255.
    int lineHeight() const {
        int height = 0;
        for (unsigned int code = 32; code < 256; ++code) {
            const int rows = glyph(code).rows;
            height = rows > height ? rows : height;
        }
        return height;
    }

private:
    FT_Library mLibrary = nullptr;
    FT_Face mFace = nullptr;
};

}  // namespace OrlekTest
