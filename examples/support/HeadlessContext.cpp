// EGL set-up: display, configuration, pixel buffer and context, released in the reverse order.
#include "HeadlessContext.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>

#include <array>
#include <stdexcept>
#include <string>
#include <vector>

namespace OrlekSupport {

namespace {

template <typename Function>
Function entryPoint(const char* name) {
    return reinterpret_cast<Function>(eglGetProcAddress(name));
}

EGLDisplay platformDisplay(EGLenum platform, void* native) {
    const auto getDisplay = entryPoint<PFNEGLGETPLATFORMDISPLAYEXTPROC>("eglGetPlatformDisplayEXT");
    return getDisplay == nullptr ? EGL_NO_DISPLAY : getDisplay(platform, native, nullptr);
}

EGLDisplay deviceDisplay() {
    const auto queryDevices = entryPoint<PFNEGLQUERYDEVICESEXTPROC>("eglQueryDevicesEXT");
    EGLDeviceEXT device = nullptr;
    EGLint count = 0;
    if (queryDevices == nullptr || queryDevices(1, &device, &count) == EGL_FALSE || count < 1) {
        return EGL_NO_DISPLAY;
    }
    return platformDisplay(EGL_PLATFORM_DEVICE_EXT, device);
}

bool initialise(EGLDisplay display) {
    return display != EGL_NO_DISPLAY && eglInitialize(display, nullptr, nullptr) == EGL_TRUE;
}

EGLDisplay openDisplay() {
    const EGLDisplay surfaceless =
        platformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY);
    if (initialise(surfaceless)) {
        return surfaceless;
    }
    const EGLDisplay device = deviceDisplay();
    if (initialise(device)) {
        return device;
    }
    const EGLDisplay standard = eglGetDisplay(EGL_DEFAULT_DISPLAY);
    if (initialise(standard)) {
        return standard;
    }
    throw std::runtime_error("no EGL display: cannot draw without a screen on this machine");
}

EGLConfig chooseConfig(EGLDisplay display) {
    const std::array<EGLint, 17> wanted = {EGL_SURFACE_TYPE,
                                           EGL_PBUFFER_BIT,
                                           EGL_RENDERABLE_TYPE,
                                           EGL_OPENGL_BIT,
                                           EGL_RED_SIZE,
                                           8,
                                           EGL_GREEN_SIZE,
                                           8,
                                           EGL_BLUE_SIZE,
                                           8,
                                           EGL_ALPHA_SIZE,
                                           8,
                                           EGL_DEPTH_SIZE,
                                           24,
                                           EGL_STENCIL_SIZE,
                                           8,
                                           EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    if (eglChooseConfig(display, wanted.data(), &config, 1, &count) == EGL_FALSE || count < 1) {
        throw std::runtime_error("no EGL configuration for OpenGL into an offscreen buffer");
    }
    return config;
}

EGLSurface createBuffer(EGLDisplay display, EGLConfig config, int width, int height) {
    const std::array<EGLint, 5> size = {EGL_WIDTH, width, EGL_HEIGHT, height, EGL_NONE};
    const EGLSurface surface = eglCreatePbufferSurface(display, config, size.data());
    if (surface == EGL_NO_SURFACE) {
        throw std::runtime_error("no offscreen buffer of " + std::to_string(width) + " x " +
                                 std::to_string(height) + " pixels");
    }
    return surface;
}

EGLContext createContext(EGLDisplay display, EGLConfig config, Profile profile) {
    const bool core = profile == Profile::Core;
    const std::array<EGLint, 7> wanted = {
        EGL_CONTEXT_MAJOR_VERSION,
        3,
        EGL_CONTEXT_MINOR_VERSION,
        3,
        EGL_CONTEXT_OPENGL_PROFILE_MASK,
        core ? EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT : EGL_CONTEXT_OPENGL_COMPATIBILITY_PROFILE_BIT,
        EGL_NONE};
    if (eglBindAPI(EGL_OPENGL_API) == EGL_FALSE) {
        throw std::runtime_error("the EGL library here has no OpenGL");
    }
    const EGLContext context = eglCreateContext(display, config, EGL_NO_CONTEXT, wanted.data());
    if (context == EGL_NO_CONTEXT) {
        throw std::runtime_error(std::string("no OpenGL 3.3 ") + (core ? "core" : "compatibility") +
                                 " profile on this machine");
    }
    return context;
}

}  // namespace

struct HeadlessContext::Egl {
    EGLDisplay display = EGL_NO_DISPLAY;
    EGLSurface surface = EGL_NO_SURFACE;
    EGLContext context = EGL_NO_CONTEXT;

    // The display itself stays initialised: EGL hands out one per process, and another context
    // may be using it.
    ~Egl() {
        if (display == EGL_NO_DISPLAY) {
            return;
        }
        if (context != EGL_NO_CONTEXT && eglGetCurrentContext() == context) {
            eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        }
        if (context != EGL_NO_CONTEXT) {
            eglDestroyContext(display, context);
        }
        if (surface != EGL_NO_SURFACE) {
            eglDestroySurface(display, surface);
        }
    }
};

HeadlessContext::HeadlessContext(int width, int height, Profile profile)
    : mEgl(std::make_unique<Egl>()), mWidth(width), mHeight(height) {
    mEgl->display = openDisplay();
    const EGLConfig config = chooseConfig(mEgl->display);
    mEgl->surface = createBuffer(mEgl->display, config, width, height);
    mEgl->context = createContext(mEgl->display, config, profile);
    makeCurrent();
}

HeadlessContext::~HeadlessContext() = default;

void HeadlessContext::makeCurrent() {
    if (eglMakeCurrent(mEgl->display, mEgl->surface, mEgl->surface, mEgl->context) == EGL_FALSE) {
        throw std::runtime_error("the OpenGL context cannot be made current");
    }
}

}  // namespace OrlekSupport
