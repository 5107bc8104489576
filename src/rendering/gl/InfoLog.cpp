#include "rendering/gl/InfoLog.h"

#include <GL/glew.h>

#include <cstdlib>
#include <vector>

#include "platform/Report.h"
#include "rendering/gl/Errors.h"

namespace Orlek::Detail {

namespace {

template <typename GetLog>
void printLog(GLint length, GetLog getLog) {
    if (length > 0) {
        std::vector<char> log(static_cast<std::size_t>(length) + 1);
        getLog(length, log.data());
        report("%s\n", log.data());
    }
}

std::string textOf(GLenum name) {
    const GLubyte* text = glGetString(name);
    return text == nullptr ? std::string() : reinterpret_cast<const char*>(text);
}

}  // namespace

void printShaderLog(unsigned shader) {
    GLint length = 0;
    glGetShaderiv(shader, GL_INFO_LOG_LENGTH, &length);
    printLog(length,
             [&](GLsizei size, char* log) { glGetShaderInfoLog(shader, size, nullptr, log); });
}

void printProgramLog(unsigned program) {
    GLint length = 0;
    clearErrors();
    glGetProgramiv(program, GL_INFO_LOG_LENGTH, &length);
    reportErrors("glGetProgramiv");
    printLog(length,
             [&](GLsizei size, char* log) { glGetProgramInfoLog(program, size, nullptr, log); });
}

std::string glVersionText() {
    return textOf(GL_VERSION);
}

std::string glslVersionText() {
    return textOf(GL_SHADING_LANGUAGE_VERSION);
}

unsigned reportVersion(const char* name, const std::string& text) {
    const std::size_t point = text.find('.');
    const int major = std::atoi(text.c_str());
    const int minor = point == std::string::npos ? 0 : std::atoi(text.c_str() + point + 1);
    report("%s version <%s> %d.%d\n", name, text.c_str(), major, minor);
    return static_cast<unsigned>(major) * 100 + static_cast<unsigned>(minor);
}

}  // namespace Orlek::Detail
