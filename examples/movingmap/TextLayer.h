// Sharp text with a dark rim, collected and drawn in a few calls.
#pragma once

#include <Orlek/OpenGL.h>

#include <array>
#include <string>
#include <vector>

#include "Colours.h"
#include "MapView.h"

namespace MovingMap {

enum class Align { left, centre, right };

/// Text of one size. Needs the GL context and GlHandler.
class TextLayer {
public:
    /// @param fontFile a font that FreeType reads
    /// @param pixelSize 8 to 64
    /// Throws std::runtime_error when the font cannot be used.
    TextLayer(const std::string& fontFile, int pixelSize);

    /// The advance of a text in pixels.
    double width(const std::string& text) const;

    /// The height of capitals and digits above the baseline in pixels.
    double capHeight() const { return mCapHeight; }

    /// Adds a text to the picture; @p at is on the baseline, at the end or middle that @p align
    /// says. Whole pixels keep it sharp, so the place is rounded.
    void add(const std::string& text, Point at, Align align, const Colour& colour, bool rim = true);

    /// Draws what was added, rims first, and forgets it.
    void draw();

private:
    struct Item {
        std::string text;
        Point at;
        Colour colour;
        bool rim;
    };

    void measure();
    void drawBatch(const Colour& colour);
    void drawRims();
    void addToBatch(const Item& item, double dx, double dy);

    Orlek::OpenGL::TextureFont mFont;
    std::array<double, 256> mAdvances{};
    double mCapHeight = 0.0;
    double mPixelSize;
    std::vector<Item> mItems;
};

}  // namespace MovingMap
