#include "rendering/gl/EntryPoints.h"

#include <GL/glew.h>

#include <algorithm>

#include "platform/Report.h"

namespace Orlek::Detail {

namespace {

struct Loaded {
    GLenum code;
    bool ready;
};

bool allPresent() {
    const bool present[] = {
        glCreateShader != nullptr,
        glCreateProgram != nullptr,
        glBindAttribLocation != nullptr,
        glGetUniformLocation != nullptr,
        glUniform1iv != nullptr,
        glUniformMatrix4fv != nullptr,
        glGenBuffers != nullptr,
        glBufferData != nullptr,
        glGenVertexArrays != nullptr,
        glVertexAttribPointer != nullptr,
        glActiveTexture != nullptr,
        glGenerateMipmap != nullptr,
        glPrimitiveRestartIndex != nullptr,
    };
    return std::ranges::all_of(present, [](bool found) { return found; });
}

// Without a GLX display (EGL, Wayland) the loader ends with a complaint after it has loaded
// everything.
Loaded load() {
    glewExperimental = GL_TRUE;
    const GLenum code = glewInit();
    const bool usable = code == GLEW_OK || code == GLEW_ERROR_NO_GLX_DISPLAY;
    return {code, usable && allPresent()};
}

// Tries again while it has failed: something may have asked before a context was current.
const Loaded& loaded() {
    static Loaded result{};
    if (!result.ready) {
        result = load();
    }
    return result;
}

void GLAPIENTRY printDebugMessage(GLenum, GLenum type, GLuint, GLenum severity, GLsizei,
                                  const GLchar* message, const void*) {
    if (type == GL_DEBUG_TYPE_ERROR) {
        reportError("GL CALLBACK: %s type = 0x%x, severity = 0x%x, message = %s\n",
                    "** GL ERROR **", type, severity, message);
    }
}

}  // namespace

bool glReady() {
    return loaded().ready;
}

bool hasContext() {
    return glReady() && glGetString(GL_VERSION) != nullptr;
}

void reportEntryPoints() {
    if (const GLenum code = loaded().code; code != GLEW_OK) {
        report("GlHandler::GlHandler Error: %s\n",
               reinterpret_cast<const char*>(glewGetErrorString(code)));
    }
}

void enableDebugOutput() {
    if (glReady() && glDebugMessageCallback != nullptr) {
        glEnable(GL_DEBUG_OUTPUT);
        glDebugMessageCallback(printDebugMessage, nullptr);
    }
}

}  // namespace Orlek::Detail
