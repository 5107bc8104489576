// Where an example draws: a window, or a PNG file where there is no screen.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace OrlekSupport {

class HeadlessContext;
class Window;

/// What the user asked for.
struct ScreenOptions {
    bool window = false;   ///< A window, or an error.
    bool picture = false;  ///< The file: of the last frame of a window that was asked for, too.
    std::string file;
};

/// A window or an offscreen buffer, its context current on the calling thread from construction to
/// destruction. One at a time; only the main thread may use it.
class Screen {
public:
    /// Opens a window of about width x height screen units or a buffer of as many pixels. Without a
    /// wish of the user it is a window where DISPLAY or WAYLAND_DISPLAY names a screen that can be
    /// used; then a line on the standard output says which it is and why.
    /// Throws std::runtime_error with one line that says what is missing.
    Screen(const ScreenOptions& options, const std::string& title, int width, int height);
    ~Screen();

    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// The window; null for a picture.
    Window* window() const { return mWindow.get(); }

    /// Width and height of the framebuffer in pixels. Those of a window may change.
    std::pair<int, int> size() const;

    /// Pixels for each pixel of an ordinary screen; that of a window may change.
    double scale() const;

    /// Calls @p draw once for a picture and writes the file; for a window until it is closed, by
    /// Ctrl+C in its terminal, too, or has shown as many frames (0: until it is closed). Returns
    /// the number of frames. Throws std::runtime_error when the file cannot be written.
    int show(int frames, const std::function<void()>& draw);

private:
    void choose(const std::string& title);
    void openWindow(const std::string& title);
    void openBuffer();
    void save() const;

    ScreenOptions mOptions;
    int mWidth;
    int mHeight;
    std::unique_ptr<Window> mWindow;
    std::unique_ptr<HeadlessContext> mBuffer;
};

}  // namespace OrlekSupport
