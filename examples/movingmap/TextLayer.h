// Text of one size, collected and drawn in a few calls.
#pragma once

#include <Orlek/OpenGL.h>

#include <string>
#include <vector>

#include "Colours.h"
#include "FontMetrics.h"
#include "MapView.h"

namespace MovingMap {

enum class Align { left, centre, right };

/// Text of one size. Needs the GL context and GlHandler.
/// @tparam Font TextureFont: hinted, for plates; or TextureFontSdf: with a dark outline, for the
/// map
template <typename Font>
class TextLayer {
public:
    /// @param fontFile a font that FreeType reads
    /// @param pixelSize as the font takes it, 1 to 256; the framebuffer has three times as many
    /// rows and columns, to measure the font in.
    /// Throws std::runtime_error when the font cannot be used.
    TextLayer(const std::string& fontFile, int pixelSize);

    /// The advance of a text in pixels.
    double width(const std::string& text) const;

    /// The height of capitals and digits above the baseline in pixels.
    double capHeight() const { return mMetrics.capHeight; }

    /// Adds a text to the picture; @p at is on the baseline, at the end or middle that @p align
    /// says. Whole pixels keep it sharp, so the place is rounded.
    void add(const std::string& text, Point at, Align align, const Colour& colour);

    /// Draws what was added, outlines first, and forgets it.
    void draw();

private:
    struct Item {
        std::string text;
        Point at;
        Colour colour;
    };

    void drawOutlines();
    void addToBatch(const Item& item);
    void drawBatch(const Colour& colour);

    Font mFont;
    FontMetrics mMetrics;
    double mPixelSize;
    std::vector<Item> mItems;
};

using PlateText = TextLayer<Orlek::OpenGL::TextureFont>;
using LabelText = TextLayer<Orlek::OpenGL::TextureFontSdf>;

}  // namespace MovingMap
