// Options, contexts, the window's loop and the PNG file: what the pictures have in common.
#include "Show.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>
#include <stdexcept>
#include <utility>

#include "ScreenOptions.h"
#include "Window.h"

namespace Gallery {

namespace {

using OrlekSupport::numberOf;

struct Options {
    OrlekSupport::ScreenOptions screen;
    double seconds = 0.0;
    int frames = 0;
};

std::optional<Options> readOptions(int argc, char** argv, const std::string& name) {
    auto& line = Orlek::Misc::CmdLine::instance();
    OrlekSupport::addScreenOptions(name + ".png", "Escape closes it");
    line.addParameter("--time", "moment of the picture, seconds after the start", "2");
    line.addParameter("--frames", "close the window after as many frames; 0: when asked", "0");
    if (!OrlekSupport::parseArguments(argc, argv)) {
        return std::nullopt;
    }
    return Options{OrlekSupport::screenOptions(), numberOf("--time", 0.0, 1e6),
                   numberOf("--frames", 0, 1000000)};
}

// Units of the page become pixels, in the middle of the framebuffer and as large as fits.
void usePage(int width, int height) {
    using namespace Orlek::OpenGL;
    const double scale = std::min(1.0 * width / pageWidth, 1.0 * height / pageHeight);
    const int wide = std::max(1, static_cast<int>(std::lround(pageWidth * scale)));
    const int high = std::max(1, static_cast<int>(std::lround(pageHeight * scale)));
    glViewport((width - wide) / 2, (height - high) / 2, wide, high);
    GlHandler::instance().setViewPort({static_cast<float>(wide), static_cast<float>(high)});
    MatrixLoadIdent();
    MatrixTranslate(-1.0, -1.0, 0.0);
    MatrixScale(2.0 / pageWidth, 2.0 / pageHeight, 1.0);
}

void show(const Options& options, const std::string& name, const std::function<Draw()>& make) {
    OrlekSupport::Screen screen(options.screen, "Orlek gallery: " + name, pageWidth, pageHeight);
    const OrlekSupport::Window* const window = screen.window();
    Draw draw;
    double scale = 0.0;
    screen.show(options.frames, [&] {
        const auto [width, height] = screen.size();
        usePage(width, height);
        if (std::exchange(scale, screen.scale()) != screen.scale()) {
            setPixelsOfUnit(scale);
            draw = make();
        }
        draw(window == nullptr ? options.seconds : window->seconds());
    });
}

}  // namespace

int run(int argc, char** argv, const std::string& name, const std::function<Draw()>& make) {
    try {
        const std::optional<Options> options = readOptions(argc, argv, name);
        if (options) {
            show(*options, name, make);
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orlek-gallery-%s: %s\n", name.c_str(), error.what());
        return 1;
    }
}

}  // namespace Gallery
