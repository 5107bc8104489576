// An OpenGL context without a screen, for programs that draw into files and for tests.
#pragma once

#include <memory>

namespace OrlekSupport {

enum class Profile { Compatibility, Core };

/// An EGL context (OpenGL 3.3 or later) with an offscreen buffer of its
/// own, current on the calling thread from construction to destruction.
///
/// Three kinds of EGL display are tried in turn: Mesa's surfaceless platform, the first device,
/// the default display. Only the thread that made the object may use and destroy it.
class HeadlessContext {
public:
    /// Makes a context that draws into width x height pixels (both at least 1).
    /// Throws std::runtime_error with one line that says what is missing.
    HeadlessContext(int width, int height, Profile profile = Profile::Compatibility);
    ~HeadlessContext();

    HeadlessContext(const HeadlessContext&) = delete;
    HeadlessContext& operator=(const HeadlessContext&) = delete;

    /// Makes the context current again after another one was.
    void makeCurrent();

    int width() const { return mWidth; }
    int height() const { return mHeight; }

private:
    struct Egl;

    std::unique_ptr<Egl> mEgl;
    int mWidth;
    int mHeight;
};

}  // namespace OrlekSupport
