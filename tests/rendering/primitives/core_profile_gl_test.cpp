// In a core profile the legacy stipple raises GL errors: the lines are drawn all the same, and the
// errors are printed with the name of the class.
#include <EGL/egl.h>
#include <GL/glew.h>
#include <Orlek/OpenGL/GlHandler.h>
#include <Orlek/OpenGL/LineLoops.h>
#include <Orlek/OpenGL/Lines.h>
#include <Orlek/OpenGL/MatrixStack.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <vector>

#include "HeadlessContext.h"
#include "support/Capture.h"

namespace {

using namespace Orlek::OpenGL;
using OrlekTest::captureStderr;
using OrlekTest::captureStdout;
using Points = std::vector<Orlek::Math::Vector2<float>>;

// A core context that draws into the buffer of the context that is current.
class CoreContext {
public:
    CoreContext() {
        const EGLSurface surface = eglGetCurrentSurface(EGL_DRAW);
        EGLint configId = 0;
        eglQuerySurface(mDisplay, surface, EGL_CONFIG_ID, &configId);
        const std::array<EGLint, 3> same = {EGL_CONFIG_ID, configId, EGL_NONE};
        EGLConfig config = nullptr;
        EGLint count = 0;
        eglChooseConfig(mDisplay, same.data(), &config, 1, &count);
        const std::array<EGLint, 7> core = {EGL_CONTEXT_MAJOR_VERSION,
                                            3,
                                            EGL_CONTEXT_MINOR_VERSION,
                                            3,
                                            EGL_CONTEXT_OPENGL_PROFILE_MASK,
                                            EGL_CONTEXT_OPENGL_CORE_PROFILE_BIT,
                                            EGL_NONE};
        mContext = eglCreateContext(mDisplay, config, EGL_NO_CONTEXT, core.data());
        mCurrent = eglMakeCurrent(mDisplay, surface, surface, mContext) == EGL_TRUE;
    }
    ~CoreContext() {
        eglMakeCurrent(mDisplay, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        eglDestroyContext(mDisplay, mContext);
    }
    CoreContext(const CoreContext&) = delete;
    CoreContext& operator=(const CoreContext&) = delete;

    bool current() const { return mContext != EGL_NO_CONTEXT && mCurrent; }

private:
    EGLDisplay mDisplay = eglGetCurrentDisplay();
    EGLContext mContext = EGL_NO_CONTEXT;
    bool mCurrent = false;
};

TEST(CoreProfile, PrintsTheStippleErrorsAndDraws) {
    const OrlekSupport::HeadlessContext buffer(64, 64);
    const CoreContext context;
    ASSERT_TRUE(context.current());
    GlHandler::instance().setViewPort({64, 64});
    MatrixLoadIdent();
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);

    Lines lines;
    lines.setAntiAlias(false);
    lines.addVertex(Points{{-1, 0.01F}}.front());
    lines.addVertex(Points{{1, 0.01F}}.front());
    LineLoops loops;
    loops.addLineLoop(Points{{-0.5F, -0.5F}, {0.5F, -0.5F}, {0, 0.5F}});
    std::string linesText;
    std::string loopsText;
    captureStderr([&] {
        linesText = captureStdout([&] { lines.render(); });
        loopsText = captureStdout([&] { loops.render(1.0); });
    });
    EXPECT_EQ(linesText, "Error <Lines> <Nix> 1280\n");
    EXPECT_EQ(loopsText, "Error <LineLoops> <Nix> 1280\n");
    std::array<std::uint8_t, 4> pixel{};
    glReadPixels(5, 32, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel.data());
    EXPECT_EQ(pixel[0], 255);
    lines.clear();
    loops.clear();
}

}  // namespace
