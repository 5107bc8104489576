// Outlines of all texts go under all texts: no letter's outline covers its neighbour.
#include "TextLayer.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace MovingMap {

namespace {

using Orlek::Math::Matrix4;
using Orlek::OpenGL::TextureFont;
using Orlek::OpenGL::TextureFontSdf;

constexpr double outlinePixels = 1.6;

// The distance-field font has one atlas for all sizes, and scaled advances; they are measured at
// its own size.
constexpr int designSize = 50;

Matrix4<float> translation(Point at) {
    Orlek::OpenGL::MatrixPush();
    Orlek::OpenGL::MatrixLoadIdent();
    Orlek::OpenGL::MatrixTranslate(at.x, at.y, 0.0);
    const Matrix4<float> matrix = Orlek::OpenGL::MatrixGet();
    Orlek::OpenGL::MatrixPop();
    return matrix;
}

template <typename Font>
FontMetrics measure(Font& font, int pixelSize) {
    font.setColor(white);
    return measureFont(pixelSize, [&](double y, const std::string& text) {
        font.renderFont(0.0, y, text, Font::BOTTOM_LEFT);
    });
}

FontMetrics metricsOf(TextureFont& font, int pixelSize) {
    return measure(font, pixelSize);
}

FontMetrics metricsOf(TextureFontSdf& font, int pixelSize) {
    font.setSize(designSize);
    FontMetrics metrics = measure(font, designSize);
    font.setSize(pixelSize);
    const double scale = static_cast<double>(pixelSize) / designSize;
    for (double& advance : metrics.advances) {
        advance *= scale;
    }
    metrics.capHeight *= scale;
    return metrics;
}

}  // namespace

template <typename Font>
TextLayer<Font>::TextLayer(const std::string& fontFile, int pixelSize) : mPixelSize(pixelSize) {
    if (!mFont.load(fontFile.c_str(), pixelSize)) {
        throw std::runtime_error("cannot use the font file " + fontFile);
    }
    mMetrics = metricsOf(mFont, pixelSize);
}

template <typename Font>
double TextLayer<Font>::width(const std::string& text) const {
    double sum = 0.0;
    for (const char c : text) {
        sum += mMetrics.advances[static_cast<unsigned char>(c)];
    }
    return sum;
}

template <typename Font>
void TextLayer<Font>::add(const std::string& text, Point at, Align align, const Colour& colour) {
    const double shift = align == Align::left ? 0.0 : align == Align::centre ? 0.5 : 1.0;
    const Point start(std::round(at.x - shift * width(text)), std::round(at.y));
    mItems.push_back({text, start, colour});
}

template <typename Font>
void TextLayer<Font>::addToBatch(const Item& item) {
    mFont.addText(item.text, translation(item.at), Font::BOTTOM_LEFT);
}

template <typename Font>
void TextLayer<Font>::drawBatch(const Colour& colour) {
    mFont.setColor(colour);
    mFont.render();
    mFont.clearVertex();
}

template <>
void PlateText::drawOutlines() {}

template <>
void LabelText::drawOutlines() {
    for (const Item& item : mItems) {
        addToBatch(item);
    }
    constexpr double fieldPixels = 16.0 / designSize;  // Of a width of 1, for each pixel of size.
    mFont.setOutlineColor(halo);
    mFont.setOutlineWidth(static_cast<float>(outlinePixels / (fieldPixels * mPixelSize)));
    drawBatch(halo);
    mFont.setOutlineWidth(0.0F);
}

template <typename Font>
void TextLayer<Font>::draw() {
    mFont.clearVertex();
    drawOutlines();
    const auto sameColour = [](const Colour& a, const Colour& b) {
        return a.x == b.x && a.y == b.y && a.z == b.z && a.w == b.w;
    };
    while (!mItems.empty()) {
        const Colour colour = mItems.front().colour;
        const auto rest = std::stable_partition(
            mItems.begin(), mItems.end(),
            [&](const Item& item) { return !sameColour(item.colour, colour); });
        std::for_each(rest, mItems.end(), [this](const Item& item) { addToBatch(item); });
        mItems.erase(rest, mItems.end());
        drawBatch(colour);
    }
}

template class TextLayer<TextureFont>;
template class TextLayer<TextureFontSdf>;

}  // namespace MovingMap
