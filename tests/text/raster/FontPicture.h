// Pictures of text: as FreeType renders it, and as it was drawn.
#pragma once

#include <GL/glew.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "support/GlTest.h"
#include "text/FreeTypeReference.h"

namespace OrlekTest {

/// One channel, bottom row first.
struct FontPicture {
    int width;
    int height;
    std::vector<int> pixels;

    FontPicture(int columns, int rows)
        : width(columns), height(rows), pixels(static_cast<std::size_t>(columns * rows)) {}

    int& at(int x, int y) { return pixels.at(static_cast<std::size_t>(y * width + x)); }

    bool blank() const {
        return std::all_of(pixels.begin(), pixels.end(), [](int value) { return value == 0; });
    }

    /// The largest difference of a pixel.
    int distance(const FontPicture& other) const {
        int largest = width == other.width && height == other.height ? 0 : 256;
        for (std::size_t i = 0; largest < 256 && i < pixels.size(); ++i) {
            largest = std::max(largest, std::abs(pixels[i] - other.pixels[i]));
        }
        return largest;
    }
};

/// Columns and rows of the pixels that are at least half covered.
struct Box {
    int left = 10000, bottom = 10000, right = -1, top = -1;

    explicit Box(FontPicture picture) {
        for (int y = 0; y < picture.height; ++y) {
            for (int x = 0; x < picture.width; ++x) {
                if (picture.at(x, y) > 127) {
                    left = std::min(left, x);
                    right = std::max(right, x);
                    bottom = std::min(bottom, y);
                    top = std::max(top, y);
                }
            }
        }
    }
};

/// Blends a text in white, its pen starting at (x, y).
inline void drawReference(FontPicture& picture, const ReferenceFont& font, const std::string& text,
                          int x, int y) {
    for (const char byte : text) {
        const FT_GlyphSlotRec& glyph = font.glyph(byte);
        const auto columns = static_cast<int>(glyph.bitmap.width);
        for (int i = 0; i < columns * static_cast<int>(glyph.bitmap.rows); ++i) {
            const int row = i / columns;
            const int column = i % columns;
            int& pixel = picture.at(x + glyph.bitmap_left + column, y + glyph.bitmap_top - 1 - row);
            const int coverage = glyph.bitmap.buffer[row * glyph.bitmap.pitch + column];
            pixel += ((255 - pixel) * coverage + 127) / 255;
        }
        x += static_cast<int>(glyph.advance.x / 64);
    }
}

/// The red channel of the framebuffer.
inline FontPicture readPicture(int width, int height) {
    FontPicture picture(width, height);
    std::vector<std::uint8_t> bytes(picture.pixels.size() * 4);
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, bytes.data());
    for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
        picture.pixels[i] = bytes[4 * i];
    }
    return picture;
}

inline Orlek::Math::Matrix4<float> placedAt(float x, float y) {
    return {{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, y, 0, 1}};
}

/// How far an anchor lies to the right of a text's left end and above its lower one, as shares of
/// its width and height. Anchors run from top left downwards; what is no anchor is the lower left.
inline double shareLeftOf(int anchor) {
    return anchor < 9 ? anchor / 3 / 2.0 : 0.0;
}
inline double shareBelow(int anchor) {
    return anchor < 9 ? 1.0 - anchor % 3 / 2.0 : 0.0;
}

class FontTest : public GlTest {
protected:
    /// The picture that a function draws on black.
    template <typename Function>
    static FontPicture drawn(Function&& draw) {
        wipe();
        glDisable(GL_BLEND);
        silently(draw);
        return readPicture(width, height);
    }

    template <typename Font>
    static FontPicture batchOf(Font& font) {
        return drawn([&] { font.render(); });
    }
};

}  // namespace OrlekTest
