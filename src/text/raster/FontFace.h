// The one door to FreeType: a font in memory that is measured and drawn character by character.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "text/raster/FontFaceBounds.h"

struct FT_FaceRec_;
struct FT_LibraryRec_;

namespace Orlek::Detail {

/// Starts FreeType; null when it fails. The handle is never released. No single request of a font
/// for memory is granted beyond 64 MiB, so a font that lies about its sizes fails to open. Left out
/// are two formats of the past, PFR and Type 42.
FT_LibraryRec_* openFreeType();

/// Starts FreeType for a class of fonts unless `done` says that it runs, and prints whether it
/// does.
void startFreeType(bool& done, FT_LibraryRec_*& library);

/// Reads a font file whole. A failure is printed as one of `label`'s `load`.
bool readFontFile(const char* label, const char* fileName, std::vector<char>& bytes);

/// Pixels of a rendered character, valid until the face loads the next one.
class GlyphBitmap {
public:
    GlyphBitmap() = default;
    /// `bytes` is the topmost row; `pitch` leads from each row to the one below. One byte a pixel
    /// when `grey`, else one bit, most significant first.
    GlyphBitmap(const unsigned char* bytes, std::ptrdiff_t pitch, bool grey)
        : mBytes(bytes), mPitch(pitch), mGrey(grey) {}

    /// Coverage 0 to 255; row 0 is the top.
    unsigned char coverage(std::size_t row, std::size_t column) const;

private:
    const unsigned char* mBytes = nullptr;
    std::ptrdiff_t mPitch = 0;
    bool mGrey = true;
};

/// A rendered character: pixels, y up, relative to the pen position on the baseline.
struct RenderedGlyph {
    float top;
    float advance;
    float bearingX;
    float bearingY;
    std::size_t width;
    std::size_t rows;
    GlyphBitmap bitmap;
};

/// Sizes of a character's bitmap in whole pixels, 0 to 32,767.
struct GlyphSize {
    int width;
    int height;
};

class FontFace {
public:
    /// Opens the first face of the font in `data`, which must outlive the object. Without a face,
    /// `error` says why and the other members must not be called. A font is refused for what
    /// `findExcess` finds. From here on it has one second of the calling thread's processor time
    /// for each 10 MiB, one at least: usual fonts take a hundredth. Characters that come later
    /// cannot be loaded.
    FontFace(FT_LibraryRec_* library, const char* data, int size);
    ~FontFace();
    FontFace(const FontFace&) = delete;
    FontFace& operator=(const FontFace&) = delete;

    /// FreeType's error code of the opening, 0 for success.
    int error() const { return mError; }

    /// Sets the pixel height, 1 to 256. False when the height is another or the font has no such
    /// size.
    bool setPixelHeight(int pixelHeight);

    /// Loads the character, hinted by FreeType's autohinter, and returns its size. A character that
    /// cannot be loaded is reported and has the size that the glyph slot then holds, usually 0.
    GlyphSize measure(unsigned int character);

    /// Draws the character. Nothing when it cannot be loaded, when a bitmap font gives it a size
    /// but no bits, and when it is wider or higher than 1,024 pixels, four times the largest pixel
    /// height.
    std::optional<RenderedGlyph> render(unsigned int character);

private:
    unsigned int glyphOf(unsigned int character) const;

    ProcessorBudget mBudget;
    FT_FaceRec_* mFace = nullptr;
    int mError = 0;
    int mLoadFlags = 0;
};

}  // namespace Orlek::Detail
