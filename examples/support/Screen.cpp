#include "Screen.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "HeadlessContext.h"
#include "Png.h"
#include "Signals.h"
#include "Window.h"

namespace OrlekSupport {

namespace {

// The variable that names a screen, with its value; empty when there is none.
std::string namedScreen() {
    for (const char* name : {"WAYLAND_DISPLAY", "DISPLAY"}) {
        const char* const value = std::getenv(name);
        if (value != nullptr && *value != '\0') {
            return std::string(name) + "=" + value;
        }
    }
    return {};
}

volatile std::sig_atomic_t asked = 0;

// The next one ends the program at once.
void ask(int signal) {
    asked = 1;
    std::signal(signal, SIG_DFL);
}

// While it lives, what asks a program to end closes its window, so that it can keep what it has to.
class EndingSignals {
public:
    EndingSignals() {
        for (Handler& one : mHandlers) {
            one.before = handleUnlessIgnored(one.signal, ask);
        }
    }
    ~EndingSignals() {
        for (const Handler& one : mHandlers) {
            std::signal(one.signal, one.before);
        }
    }
    EndingSignals(const EndingSignals&) = delete;
    EndingSignals& operator=(const EndingSignals&) = delete;

private:
    struct Handler {
        int signal;
        void (*before)(int);
    };
    Handler mHandlers[3] = {{SIGINT, SIG_DFL}, {SIGTERM, SIG_DFL}, {SIGHUP, SIG_DFL}};
};

void say(const std::string& line) {
    std::printf("%s\n", line.c_str());
    std::fflush(stdout);
}

}  // namespace

Screen::Screen(const ScreenOptions& options, const std::string& title, int width, int height)
    : mOptions(options), mWidth(width), mHeight(height) {
    if (options.window) {
        openWindow(title);
    } else if (options.picture) {
        openBuffer();
    } else {
        choose(title);
    }
}

Screen::~Screen() = default;

void Screen::choose(const std::string& title) {
    const std::string screen = namedScreen();
    std::string reason = "no screen, neither DISPLAY nor WAYLAND_DISPLAY is set";
    if (!screen.empty()) {
        try {
            openWindow(title);
            say("A window (" + screen + "); --out FILE draws a picture instead.");
            return;
        } catch (const std::runtime_error& error) {
            reason = error.what();
        }
    }
    openBuffer();
    say("A picture (" + reason + ").");
}

void Screen::openWindow(const std::string& title) {
    mWindow = std::make_unique<Window>(title, mWidth, mHeight);
}

void Screen::openBuffer() {
    mBuffer = std::make_unique<HeadlessContext>(mWidth, mHeight);
}

std::pair<int, int> Screen::size() const {
    return mWindow ? mWindow->framebufferSize() : std::pair(mWidth, mHeight);
}

double Screen::scale() const {
    return mWindow ? mWindow->contentScale() : 1.0;
}

int Screen::show(int frames, const std::function<void()>& draw) {
    int shown = 0;
    if (mWindow) {
        const EndingSignals signals;
        for (; mWindow->isOpen() && asked == 0 && (frames == 0 || shown < frames); ++shown) {
            draw();
            mWindow->showFrame();
        }
    }
    if (!mWindow || mOptions.picture) {
        draw();
        save();
    }
    return shown;
}

void Screen::save() const {
    const auto [width, height] = size();
    writePng(mOptions.file, readFramebuffer(width, height));
    say(mOptions.file);
}

}  // namespace OrlekSupport
