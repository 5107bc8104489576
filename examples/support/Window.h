// A window with an OpenGL context, and its mouse and keys.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace OrlekSupport {

/// A GLFW window (OpenGL 3.3 or later, compatibility profile) whose context is current on the
/// calling thread. One at a time; only the main thread may use it.
class Window {
public:
    using KeyHandler = std::function<void(const std::string& key)>;
    using DragHandler = std::function<void(double dx, double dy)>;
    using ScrollHandler = std::function<void(double steps)>;

    /// Opens a window of about width x height pixels of an ordinary screen; on a denser one it has
    /// more, so that it is as large to the eye.
    /// Throws std::runtime_error with one line that says what is missing, for example a display.
    Window(const std::string& title, int width, int height);
    ~Window();

    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    /// Called for each key press: "Space", "Left", "Right", "Up", "Down", "+", "-", and "A" to "Z",
    /// as they stand on the keyboard; again while arrows, + and - are held. Escape closes the
    /// window. Other keys are not reported.
    void onKey(KeyHandler handler);

    /// Called when the mouse moves with its left button held: pixels of the framebuffer to the
    /// right and down.
    void onDrag(DragHandler handler);

    /// Called when the wheel turns; positive away from the user.
    void onScroll(ScrollHandler handler);

    bool isOpen() const;

    /// Shows what was drawn and handles what happened since; the handlers run in here.
    void showFrame();

    /// Width and height in pixels, which differ from screen units on dense displays. 0 for a
    /// window that is minimised.
    std::pair<int, int> framebufferSize() const;

    /// Pixels for each pixel of an ordinary screen. Under Wayland it is known after some frames.
    double contentScale() const;

    /// Seconds since the window was opened.
    double seconds() const;

private:
    struct Glfw;

    std::unique_ptr<Glfw> mGlfw;
};

}  // namespace OrlekSupport
