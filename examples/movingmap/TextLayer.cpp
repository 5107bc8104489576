// A font tells no widths, so they are measured once on drawn text: in each cell stands a character
// with a bar behind it, and where the bar's ink ends tells how far the character advanced.
#include "TextLayer.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <stdexcept>

#include "Ortho.h"

namespace MovingMap {

namespace {

using Orlek::Math::Matrix4;
using Orlek::OpenGL::TextureFont;

constexpr int firstCharacter = 32;
constexpr int characterCount = TextureFont::MAX_CHAR;
constexpr int inkThreshold = 64;

Matrix4<float> translation(double x, double y) {
    Orlek::OpenGL::MatrixPush();
    Orlek::OpenGL::MatrixLoadIdent();
    Orlek::OpenGL::MatrixTranslate(x, y, 0.0);
    const Matrix4<float> matrix = Orlek::OpenGL::MatrixGet();
    Orlek::OpenGL::MatrixPop();
    return matrix;
}

// A cell of the framebuffer, read back.
class Cell {
public:
    Cell(int width, int height)
        : mWidth(width), mHeight(height), mInk(static_cast<std::size_t>(width * height)) {}

    void draw(TextureFont& font, const std::string& text) {
        glClear(GL_COLOR_BUFFER_BIT);
        font.renderFont(0.0, baseline(), text, TextureFont::BOTTOM_LEFT);
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadPixels(0, 0, mWidth, mHeight, GL_RED, GL_UNSIGNED_BYTE, mInk.data());
    }

    double baseline() const { return mHeight / 3; }

    // One past the rightmost column with ink.
    int inkEnd() const {
        for (int x = mWidth; x-- > 0;) {
            for (int y = 0; y < mHeight; ++y) {
                if (inked(x, y)) {
                    return x + 1;
                }
            }
        }
        return 0;
    }

    int inkTop() const {
        for (int y = mHeight; y-- > 0;) {
            for (int x = 0; x < mWidth; ++x) {
                if (inked(x, y)) {
                    return y + 1;
                }
            }
        }
        return 0;
    }

private:
    bool inked(int x, int y) const {
        return mInk[static_cast<std::size_t>(y * mWidth + x)] > inkThreshold;
    }

    int mWidth;
    int mHeight;
    std::vector<std::uint8_t> mInk;
};

}  // namespace

TextLayer::TextLayer(const std::string& fontFile, int pixelSize) : mPixelSize(pixelSize) {
    if (!mFont.load(fontFile.c_str(), pixelSize)) {
        throw std::runtime_error("cannot use the font file " + fontFile);
    }
    measure();
}

void TextLayer::measure() {
    const int side = static_cast<int>(mPixelSize) * 3;
    setPixelMatrix(Point(side, side));
    glViewport(0, 0, side, side);
    glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
    mFont.setColor(white);
    Cell cell(side, side);
    cell.draw(mFont, "H");
    mCapHeight = cell.inkTop() - cell.baseline();
    cell.draw(mFont, "|");
    const int bar = cell.inkEnd();
    for (int code = firstCharacter; code < firstCharacter + characterCount; ++code) {
        cell.draw(mFont, {static_cast<char>(code), '|'});
        mAdvances[static_cast<std::size_t>(code)] = cell.inkEnd() - bar;
    }
}

double TextLayer::width(const std::string& text) const {
    double sum = 0.0;
    for (const char c : text) {
        sum += mAdvances[static_cast<unsigned char>(c)];
    }
    return sum;
}

void TextLayer::add(const std::string& text, Point at, Align align, const Colour& colour,
                    bool rim) {
    const double shift = align == Align::left ? 0.0 : align == Align::centre ? 0.5 : 1.0;
    const Point start(std::round(at.x - shift * width(text)), std::round(at.y));
    mItems.push_back({text, start, colour, rim});
}

void TextLayer::addToBatch(const Item& item, double dx, double dy) {
    mFont.addText(item.text, translation(item.at.x + dx, item.at.y + dy), TextureFont::BOTTOM_LEFT);
}

void TextLayer::drawBatch(const Colour& colour) {
    mFont.setColor(colour);
    mFont.render();
    mFont.clearVertex();
}

void TextLayer::drawRims() {
    for (const Item& item : mItems) {
        for (int dy = -1; item.rim && dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) {
                addToBatch(item, dx, dy);
            }
        }
    }
    drawBatch(halo);
}

void TextLayer::draw() {
    mFont.clearVertex();
    drawRims();
    const auto sameColour = [](const Colour& a, const Colour& b) {
        return a.x == b.x && a.y == b.y && a.z == b.z && a.w == b.w;
    };
    while (!mItems.empty()) {
        const Colour colour = mItems.front().colour;
        const auto rest = std::stable_partition(
            mItems.begin(), mItems.end(),
            [&](const Item& item) { return !sameColour(item.colour, colour); });
        std::for_each(rest, mItems.end(), [this](const Item& item) { addToBatch(item, 0, 0); });
        mItems.erase(rest, mItems.end());
        drawBatch(colour);
    }
}

}  // namespace MovingMap
