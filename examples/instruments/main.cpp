// orlek-instruments: a primary flight display and a horizontal situation indicator, as a picture or
// in a window.
#include <GL/gl.h>

#include <chrono>
#include <cstdio>
#include <exception>
#include <optional>
#include <string>

#include "Panel.h"
#include "ScreenOptions.h"
#include "Window.h"

namespace {

using namespace Instruments;
using OrlekSupport::numberOf;
using OrlekSupport::textOf;

struct Options {
    OrlekSupport::ScreenOptions screen;
    std::string font;
    double seconds;
    int width;
    int height;
    int frames;
};

std::optional<Options> readOptions(int argc, char** argv) {
    auto& line = Orlek::Misc::CmdLine::instance();
    OrlekSupport::addScreenOptions("instruments.png", "Space holds the flight, Escape closes it");
    line.addParameter("--font", "font file of the words",
                      "/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf");
    line.addParameter("--at", "moment of the flight, seconds after its start", "58");
    line.addParameter("--width", "width of the picture, pixels", "1280");
    line.addParameter("--height", "height of the picture, pixels", "800");
    line.addParameter("--frames",
                      "draw and time as many frames of the flight; the window closes after them",
                      "0");
    if (!OrlekSupport::parseArguments(argc, argv)) {
        return std::nullopt;
    }
    return Options{OrlekSupport::screenOptions(),  textOf("--font"),
                   numberOf("--at", 0.0, 1e6),     numberOf("--width", 64, 8192),
                   numberOf("--height", 64, 8192), numberOf("--frames", 0, 1000000)};
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

void drawPicture(const Options& options, OrlekSupport::Screen& screen) {
    Panel panel(options.font);
    screen.show(1, [&] { panel.draw(options.seconds, options.width, options.height); });
    if (options.frames > 0) {
        timeFrames(options, panel);
    }
}

void fly(const Options& options, OrlekSupport::Screen& screen) {
    OrlekSupport::Window& window = *screen.window();
    bool held = false;
    window.onKey([&](const std::string& key) { held = key == "Space" ? !held : held; });
    Panel panel(options.font);
    double flown = options.seconds;
    const double start = window.seconds();
    double before = start;
    const int frames = screen.show(options.frames, [&] {
        const double now = window.seconds();
        flown += held ? 0.0 : now - before;
        before = now;
        const auto [width, height] = screen.size();
        panel.draw(flown, width, height);
    });
    std::printf("%.1f frames a second\n", frames / (window.seconds() - start));
}

void run(const Options& options) {
    OrlekSupport::Screen screen(options.screen, "Instruments", options.width, options.height);
    screen.window() != nullptr ? fly(options, screen) : drawPicture(options, screen);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        if (const auto options = readOptions(argc, argv)) {
            run(*options);
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "orlek-instruments: %s\n", error.what());
        return 1;
    }
}
