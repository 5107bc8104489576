#include "rendering/gl/Errors.h"

#include <GL/glew.h>

#include "platform/Report.h"

namespace Orlek::Detail {

namespace {

// Without a current context, or after it was lost, some drivers report an error for ever. No
// driver holds more flags than this.
constexpr int mostErrors = 256;

void printLine(const char* where, const char* detail, GLenum code) {
    report("Error <%s> <%s> %d\n", where, detail, static_cast<int>(code));
}

}  // namespace

void clearErrors() {
    for (int i = 0; i < mostErrors && glGetError() != GL_NO_ERROR; ++i) {
    }
}

bool reportErrors(const char* where, const char* detail) {
    for (int i = 0; i < mostErrors; ++i) {
        const GLenum code = glGetError();
        if (code == GL_NO_ERROR) {
            return i > 0;
        }
        printLine(where, detail, code);
    }
    return true;
}

void reportInvalidValue(const char* where) {
    printLine(where, "Nix", GL_INVALID_VALUE);
}

}  // namespace Orlek::Detail
