// Options, contexts, the window's loop and the PNG file: what the pictures have in common.
#include "Show.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>
#include <stdexcept>

#include "HeadlessContext.h"
#include "OptionValues.h"
#include "Png.h"
#include "Window.h"

namespace Gallery {

namespace {

using OrlekSupport::numberOf;
using OrlekSupport::textOf;

struct Options {
    bool window = false;
    std::string out;
    double seconds = 0.0;
    int frames = 0;
};

std::optional<Options> readOptions(int argc, char** argv, const std::string& name) {
    auto& line = Orlek::Misc::CmdLine::instance();
    line.addParameter("--out", "picture to write", name + ".png");
    line.addParameter("--time", "moment of the picture, seconds after the start", "2");
    line.addSwitch("--window", "open a window instead; Escape closes it");
    line.addParameter("--frames", "close the window after as many frames; 0: when asked", "0");
    if (!OrlekSupport::parseArguments(argc, argv)) {
        return std::nullopt;
    }
    return Options{line.getSwitch("--window"), textOf("--out"), numberOf("--time", 0.0, 1e6),
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

void drawFile(const Options& options, const std::function<Draw()>& make) {
    const OrlekSupport::HeadlessContext context(pageWidth, pageHeight);
    usePage(pageWidth, pageHeight);
    const Draw draw = make();
    draw(options.seconds);
    OrlekSupport::writePng(options.out, OrlekSupport::readFramebuffer(pageWidth, pageHeight));
    std::printf("%s\n", options.out.c_str());
}

void openWindow(const Options& options, const std::string& name,
                const std::function<Draw()>& make) {
    OrlekSupport::Window window("Orlek gallery: " + name, pageWidth, pageHeight);
    window.onKey([&](const std::string& key) {
        if (key == "Escape") {
            window.close();
        }
    });
    const Draw draw = make();
    for (int frame = 0; window.isOpen() && (options.frames == 0 || frame < options.frames);
         ++frame) {
        const auto [width, height] = window.framebufferSize();
        usePage(width, height);
        draw(window.seconds());
        window.showFrame();
    }
}

}  // namespace

int run(int argc, char** argv, const std::string& name, const std::function<Draw()>& make) {
    try {
        const std::optional<Options> options = readOptions(argc, argv, name);
        if (options && options->window) {
            openWindow(*options, name, make);
        } else if (options) {
            drawFile(*options, make);
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orlek-gallery-%s: %s\n", name.c_str(), error.what());
        return 1;
    }
}

}  // namespace Gallery
