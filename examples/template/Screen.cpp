// The window is GLFW's, the offscreen buffer EGL's, the file libpng's.
#include "Screen.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GLFW/glfw3.h>
#include <png.h>

#include <cstdio>
#include <fstream>
#include <initializer_list>
#include <stdexcept>
#include <vector>

namespace {

EGLDisplay platformDisplay(EGLenum platform, void* device) {
    const auto get = reinterpret_cast<PFNEGLGETPLATFORMDISPLAYEXTPROC>(
        eglGetProcAddress("eglGetPlatformDisplayEXT"));
    return get == nullptr ? EGL_NO_DISPLAY : get(platform, device, nullptr);
}

EGLDisplay firstDevice() {
    const auto query =
        reinterpret_cast<PFNEGLQUERYDEVICESEXTPROC>(eglGetProcAddress("eglQueryDevicesEXT"));
    EGLDeviceEXT device = nullptr;
    EGLint count = 0;
    const bool found = query != nullptr && query(1, &device, &count) == EGL_TRUE && count > 0;
    return found ? platformDisplay(EGL_PLATFORM_DEVICE_EXT, device) : EGL_NO_DISPLAY;
}

/// Mesa without a screen, a graphics card without a screen, whatever the system takes for usual.
EGLDisplay openDisplay() {
    for (const auto& open :
         {+[] { return platformDisplay(EGL_PLATFORM_SURFACELESS_MESA, nullptr); },
          +[] { return firstDevice(); }, +[] { return eglGetDisplay(EGL_DEFAULT_DISPLAY); }}) {
        const EGLDisplay display = open();
        if (display != EGL_NO_DISPLAY && eglInitialize(display, nullptr, nullptr) == EGL_TRUE) {
            return display;
        }
    }
    throw std::runtime_error("no EGL display: install libegl-mesa0 and libgl1-mesa-dri");
}

void writePng(const std::string& file, int width, int height) {
    std::vector<unsigned char> rgb(std::size_t(width) * std::size_t(height) * 3);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, rgb.data());
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    png.width = png_uint_32(width);
    png.height = png_uint_32(height);
    png.format = PNG_FORMAT_RGB;
    const int bottomFirst = -width * 3;  // GL's lowest row comes first
    std::vector<char> bytes(PNG_IMAGE_PNG_SIZE_MAX(png));
    png_alloc_size_t size = bytes.size();
    png_image_write_to_memory(&png, bytes.data(), &size, 0, rgb.data(), bottomFirst, nullptr);
    std::ofstream picture(file, std::ios::binary);
    picture.write(bytes.data(), std::streamsize(size));
    picture.close();
    if (PNG_IMAGE_FAILED(png) || !picture) {
        throw std::runtime_error("cannot write " + file);
    }
    std::printf("%s\n", file.c_str());
}

}  // namespace

Screen::Screen(const std::string& title, int width, int height, bool pictureOnly)
    : mWidth(width), mHeight(height) {
    if (!pictureOnly && openWindow(title)) {
        std::puts("A window; Escape closes it, --picture FILE draws a picture instead.");
        return;
    }
    openOffscreen();
    std::puts(pictureOnly ? "A picture, as was asked for." : "A picture, as no window opens here.");
}

bool Screen::openWindow(const std::string& title) {
    if (glfwInit() != GLFW_TRUE) {
        return false;
    }
    glfwWindowHint(GLFW_CONTEXT_VERSION_MAJOR, 3);
    glfwWindowHint(GLFW_CONTEXT_VERSION_MINOR, 3);
    glfwWindowHint(GLFW_OPENGL_PROFILE, GLFW_OPENGL_COMPAT_PROFILE);
    glfwWindowHint(GLFW_ALPHA_BITS, 0);  // nothing shines through
    glfwWindowHint(GLFW_SCALE_TO_MONITOR, GLFW_TRUE);
    mWindow = glfwCreateWindow(mWidth, mHeight, title.c_str(), nullptr, nullptr);
    if (mWindow == nullptr) {
        glfwTerminate();
        return false;
    }
    glfwMakeContextCurrent(mWindow);
    glfwSwapInterval(1);
    return true;
}

void Screen::openOffscreen() {
    mDisplay = openDisplay();
    const EGLint wanted[] = {EGL_SURFACE_TYPE,
                             EGL_PBUFFER_BIT,
                             EGL_RENDERABLE_TYPE,
                             EGL_OPENGL_BIT,
                             EGL_RED_SIZE,
                             8,
                             EGL_GREEN_SIZE,
                             8,
                             EGL_BLUE_SIZE,
                             8,
                             EGL_NONE};
    const EGLint size[] = {EGL_WIDTH, mWidth, EGL_HEIGHT, mHeight, EGL_NONE};
    const EGLint version[] = {EGL_CONTEXT_MAJOR_VERSION,
                              3,
                              EGL_CONTEXT_MINOR_VERSION,
                              3,
                              EGL_CONTEXT_OPENGL_PROFILE_MASK,
                              EGL_CONTEXT_OPENGL_COMPATIBILITY_PROFILE_BIT,
                              EGL_NONE};
    EGLConfig config = nullptr;
    EGLint count = 0;
    if (eglBindAPI(EGL_OPENGL_API) == EGL_FALSE ||
        eglChooseConfig(mDisplay, wanted, &config, 1, &count) == EGL_FALSE || count < 1) {
        throw std::runtime_error("EGL has no OpenGL here");
    }
    mSurface = eglCreatePbufferSurface(mDisplay, config, size);
    mContext = eglCreateContext(mDisplay, config, EGL_NO_CONTEXT, version);
    if (mSurface == EGL_NO_SURFACE || mContext == EGL_NO_CONTEXT ||
        eglMakeCurrent(mDisplay, mSurface, mSurface, mContext) == EGL_FALSE) {
        throw std::runtime_error("no OpenGL 3.3 compatibility profile here");
    }
}

Screen::~Screen() {
    if (mWindow != nullptr) {
        glfwDestroyWindow(mWindow);
        glfwTerminate();
    } else if (mDisplay != nullptr) {
        eglTerminate(mDisplay);
    }
}

bool Screen::begin() {
    if (mWindow == nullptr) {
        return !mDone;
    }
    glfwPollEvents();
    glfwGetFramebufferSize(mWindow, &mWidth, &mHeight);
    glfwGetWindowContentScale(mWindow, &mScale, nullptr);
    return glfwWindowShouldClose(mWindow) == GLFW_FALSE &&
           glfwGetKey(mWindow, GLFW_KEY_ESCAPE) != GLFW_PRESS;
}

void Screen::end(const std::string& pictureFile) {
    if (mWindow == nullptr) {
        writePng(pictureFile, mWidth, mHeight);
        mDone = true;
    } else {
        glfwSwapBuffers(mWindow);
    }
}

double Screen::seconds() const {
    return mWindow == nullptr ? 0.0 : glfwGetTime();
}
