// A font tells no widths, so they are measured once on drawn text: in each cell stands a character
// with a bar behind it, and where the bar's ink ends tells how far the character advanced.
#include "FontMetrics.h"

#include <GL/gl.h>

#include <cstdint>
#include <vector>

#include "MapView.h"
#include "Ortho.h"

namespace MovingMap {

namespace {

constexpr int firstCharacter = 32;
constexpr int characterCount = 224;
constexpr int inkThreshold = 64;

using DrawText = std::function<void(double, const std::string&)>;

// A cell of the framebuffer, read back.
class Cell {
public:
    Cell(int side, const DrawText& draw)
        : mSide(side), mDraw(draw), mInk(static_cast<std::size_t>(side * side)) {}

    void draw(const std::string& text) {
        glClear(GL_COLOR_BUFFER_BIT);
        mDraw(baseline(), text);
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadPixels(0, 0, mSide, mSide, GL_RED, GL_UNSIGNED_BYTE, mInk.data());
    }

    double baseline() const { return mSide / 3; }

    // One past the rightmost column with ink.
    int inkEnd() const {
        for (int x = mSide; x-- > 0;) {
            for (int y = 0; y < mSide; ++y) {
                if (inked(x, y)) {
                    return x + 1;
                }
            }
        }
        return 0;
    }

    int inkTop() const {
        for (int y = mSide; y-- > 0;) {
            for (int x = 0; x < mSide; ++x) {
                if (inked(x, y)) {
                    return y + 1;
                }
            }
        }
        return 0;
    }

private:
    bool inked(int x, int y) const {
        return mInk[static_cast<std::size_t>(y * mSide + x)] > inkThreshold;
    }

    int mSide;
    const DrawText& mDraw;
    std::vector<std::uint8_t> mInk;
};

}  // namespace

FontMetrics measureFont(int pixelSize, const DrawText& draw) {
    const int side = pixelSize * 3;
    setPixelMatrix(Point(side, side));
    glViewport(0, 0, side, side);
    glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
    FontMetrics metrics;
    Cell cell(side, draw);
    cell.draw("H");
    metrics.capHeight = cell.inkTop() - cell.baseline();
    cell.draw("|");
    const int bar = cell.inkEnd();
    for (int code = firstCharacter; code < firstCharacter + characterCount; ++code) {
        cell.draw({static_cast<char>(code), '|'});
        metrics.advances[static_cast<std::size_t>(code)] = cell.inkEnd() - bar;
    }
    return metrics;
}

}  // namespace MovingMap
