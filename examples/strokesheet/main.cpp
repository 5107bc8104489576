// Draws the sheet of all characters of the stroke font with their codes.
#include <GL/gl.h>
#include <Orlek/Orlek.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>

#include "ScreenOptions.h"

namespace {

using namespace Orlek::OpenGL;

constexpr int columns = 16;
constexpr int rows = 8;
constexpr double captionSize = 9.0;

/// Places of the characters, in pixels.
struct Grid {
    int stepX;
    int stepY;
    double size;

    explicit Grid(double drawingSize)
        : stepX(std::max(30, static_cast<int>(1.3 * drawingSize))),
          stepY(static_cast<int>(2.0 * drawingSize + 1.5 * captionSize)),
          size(drawingSize) {}

    int width() const { return columns * stepX + stepX / 2; }
    int height() const { return rows * stepY + stepY / 5; }

    void add(VectorFont& font, int code, const std::string& text, double textSize,
             double below) const {
        const int row = code / columns;
        const double x = stepX * (code % columns + 0.75);
        const double y = stepY * (rows - row - 0.8) + 0.5 * size - below;
        font.addText(text,
                     {{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, static_cast<float>(x),
                       static_cast<float>(y), 0, 1}},
                     textSize, VectorFont::BOTTOM_CENTER);
    }
};

void draw() {
    using namespace OrlekSupport;
    const Grid grid(numberOf("--size", 6.0, 200.0));
    const double lineWidth = numberOf("--line-width", 0.5, 20.0);
    Screen screen(screenOptions(), "Stroke font", grid.width(), grid.height());
    VectorFont characters;
    VectorFont captions;
    for (int code = 0; code < columns * rows; ++code) {
        grid.add(characters, code, std::string(1, static_cast<char>(code)), grid.size, 0.0);
        grid.add(captions, code, std::to_string(code), captionSize,
                 0.4 * grid.size + 1.1 * captionSize);
    }
    captions.setColor({0.3F, 0.75F, 0.5F, 1.0F});
    screen.show(0, [&] {
        const auto [width, height] = screen.size();
        glViewport(0, 0, width, height);
        GlHandler::instance().setViewPort({static_cast<float>(width), static_cast<float>(height)});
        MatrixLoadIdent();
        MatrixTranslate(-1.0, -1.0, 0.0);
        MatrixScale(2.0 / grid.width(), 2.0 / grid.height(), 1.0);
        glClearColor(0.03F, 0.05F, 0.08F, 1.0F);
        glClear(GL_COLOR_BUFFER_BIT);
        characters.setLineWidth(lineWidth * screen.scale());
        characters.render();
        captions.setLineWidth(screen.scale());
        captions.render();
    });
}

}  // namespace

int main(int count, char** arguments) {
    auto& line = Orlek::Misc::CmdLine::instance();
    line.addParameter("--size", "height of a line of text, pixels", "36");
    line.addParameter("--line-width", "of the characters, pixels", "2");
    OrlekSupport::addScreenOptions("strokefont.png", "Escape closes it");
    try {
        if (OrlekSupport::parseArguments(count, arguments)) {
            draw();
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orlek-strokesheet: %s\n", error.what());
        return 1;
    }
}
