// Where the program draws: a window, or a PNG file where there is no screen.
#pragma once

#include <string>

struct GLFWwindow;

/// An OpenGL context (3.3, compatibility profile), current on the thread that made it until it is
/// destroyed. Throws std::runtime_error with one line that says what is missing.
class Screen {
public:
    /// Opens a window, or prepares a picture: when asked to, and when no window can be had.
    Screen(const std::string& title, int width, int height, bool pictureOnly);
    ~Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    /// Begins a frame. False when the window was closed, or the picture is done.
    bool begin();
    /// Shows the frame in the window, or writes it to the file.
    void end(const std::string& pictureFile);

    int width() const { return mWidth; }    ///< Pixels of the framebuffer.
    int height() const { return mHeight; }  ///< Pixels of the framebuffer.
    float scale() const { return mScale; }  ///< Pixels for what is a pixel at a scale of 1.
    double seconds() const;                 ///< Since the window opened; 0 for a picture.

private:
    bool openWindow(const std::string& title);
    void openOffscreen();

    int mWidth;
    int mHeight;
    float mScale = 1.0F;
    bool mDone = false;
    GLFWwindow* mWindow = nullptr;
    void* mDisplay = nullptr;  // EGL's, of a picture
    void* mSurface = nullptr;
    void* mContext = nullptr;
};
