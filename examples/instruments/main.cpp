// orlek-instruments: a primary flight display and a horizontal situation indicator, as a picture or
// in a window.
#include <GL/gl.h>

#include <chrono>
#include <cstdio>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>

#include "HeadlessContext.h"
#include "OptionValues.h"
#include "Panel.h"
#include "Png.h"
#include "Window.h"

namespace {

using namespace Instruments;
using OrlekSupport::numberOf;
using OrlekSupport::textOf;

struct Options {
    std::string out;
    std::string font;
    double seconds;
    int width;
    int height;
    int frames;
    bool window;
};

std::optional<Options> readOptions(int argc, char** argv) {
    auto& line = Orlek::Misc::CmdLine::instance();
    line.addParameter("--out", "picture to write", "instruments.png");
    line.addParameter("--font", "font file of the words",
                      "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf");
    line.addParameter("--at", "moment of the flight, seconds after its start", "58");
    line.addParameter("--width", "width of the picture, pixels", "1280");
    line.addParameter("--height", "height of the picture, pixels", "800");
    line.addSwitch("--window", "open a window; Space holds the flight, Escape closes it");
    line.addParameter("--frames",
                      "draw and time as many frames of the flight; the window closes after them",
                      "0");
    if (!OrlekSupport::parseArguments(argc, argv)) {
        return std::nullopt;
    }
    return Options{textOf("--out"),
                   textOf("--font"),
                   numberOf("--at", 0.0, 1e6),
                   numberOf("--width", 64, 8192),
                   numberOf("--height", 64, 8192),
                   numberOf("--frames", 0, 1000000),
                   line.getSwitch("--window")};
}

// Frames at 60 a second of the flight, each waited for.
void timeFrames(const Options& options, Panel& panel) {
    const auto start = std::chrono::steady_clock::now();
    for (int frame = 0; frame < options.frames; ++frame) {
        panel.draw(options.seconds + frame / 60.0, options.width, options.height);
        glFinish();
    }
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - start;
    std::printf("%.1f ms a frame\n", taken.count() / options.frames);
}

void drawPicture(const Options& options) {
    const OrlekSupport::HeadlessContext context(options.width, options.height);
    Panel panel(options.font);
    panel.draw(options.seconds, options.width, options.height);
    OrlekSupport::writePng(options.out,
                           OrlekSupport::readFramebuffer(options.width, options.height));
    if (options.frames > 0) {
        timeFrames(options, panel);
    }
    std::printf("%s\n", options.out.c_str());
}

void openWindow(const Options& options) {
    OrlekSupport::Window window("Instruments", options.width, options.height);
    bool held = false;
    window.onKey([&](const std::string& key) {
        if (key == "Escape") {
            window.close();
        } else if (key == "Space") {
            held = !held;
        }
    });
    Panel panel(options.font);
    double flown = options.seconds;
    const double start = window.seconds();
    double before = start;
    int frame = 0;
    for (; window.isOpen() && (options.frames == 0 || frame < options.frames); ++frame) {
        const double now = window.seconds();
        flown += held ? 0.0 : now - before;
        before = now;
        const auto [width, height] = window.framebufferSize();
        panel.draw(flown, width, height);
        window.showFrame();
    }
    std::printf("%.1f frames a second\n", frame / (window.seconds() - start));
}

}  // namespace

int main(int argc, char** argv) {
    try {
        if (const auto options = readOptions(argc, argv)) {
            options->window ? openWindow(*options) : drawPicture(*options);
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orlek-instruments: %s\n", error.what());
        return 1;
    }
}
