#include <Orlek/OpenGL/ShaderProgram.h>

#include <GL/glew.h>

#include "rendering/gl/EntryPoints.h"
#include "rendering/gl/Errors.h"
#include "rendering/gl/InfoLog.h"
#include "rendering/programs/UniformLocations.h"

namespace Orlek::OpenGL {

namespace {

// Errors before the call are not blamed on it.
template <typename Call>
void checked(const char* label, Call call) {
    if (Detail::glReady()) {
        Detail::clearErrors();
        call();
        Detail::reportErrors(label);
    }
}

}  // namespace

ShaderProgram::ShaderProgram() {
    checked("glCreateProgram", [&] { mHandle = glCreateProgram(); });
    Detail::forgetLocations(mHandle);
}

bool ShaderProgram::attachShader(Shader& shader) {
    checked("glAttachShader", [&] { glAttachShader(mHandle, shader.handle()); });
    return true;
}

bool ShaderProgram::detachShader(Shader& shader) {
    checked("glDetachShader", [&] { glDetachShader(mHandle, shader.handle()); });
    return true;
}

void ShaderProgram::bindLocation(int location, const std::string& name) {
    checked("glBindAttribLocation",
            [&] { glBindAttribLocation(mHandle, static_cast<GLuint>(location), name.c_str()); });
}

bool ShaderProgram::link() {
    Detail::forgetLocations(mHandle);
    checked("glLinkProgram", [&] { glLinkProgram(mHandle); });
    const bool linked = checkError();
    if (linked) {
        Detail::rememberLocations(mHandle);
    }
    return linked;
}

bool ShaderProgram::checkError() {
    GLint status = GL_FALSE;
    checked("glGetProgramiv", [&] { glGetProgramiv(mHandle, GL_LINK_STATUS, &status); });
    if (status == GL_FALSE) {
        info();
    }
    return status != GL_FALSE;
}

bool ShaderProgram::use(bool on) {
    checked("glUseProgram", [&] { glUseProgram(on ? mHandle : 0); });
    return true;
}

void ShaderProgram::info() {
    if (Detail::glReady()) {
        Detail::printProgramLog(mHandle);
    }
}

unsigned int ShaderProgram::handle() {
    return mHandle;
}

void ShaderProgram::setFloatVar(std::string name, float a) {
    checked("glUniform1f", [&] { glUniform1f(Detail::uniformLocation(mHandle, name), a); });
}

void ShaderProgram::setFloatVar(std::string name, float a, float b) {
    checked("glUniform2f", [&] { glUniform2f(Detail::uniformLocation(mHandle, name), a, b); });
}

void ShaderProgram::setFloatVar(std::string name, float a, float b, float c) {
    checked("glUniform3f", [&] { glUniform3f(Detail::uniformLocation(mHandle, name), a, b, c); });
}

void ShaderProgram::setFloatVar(std::string name, float a, float b, float c, float d) {
    checked("glUniform4f",
            [&] { glUniform4f(Detail::uniformLocation(mHandle, name), a, b, c, d); });
}

void ShaderProgram::setIntVar(std::string name, int value) {
    checked("glUniform1i", [&] { glUniform1i(Detail::uniformLocation(mHandle, name), value); });
}

void ShaderProgram::setStippleVar(std::string name, int* const pattern) {
    checked("glUniform1iv", [&] {
        glUniform1iv(Detail::uniformLocation(mHandle, name), pattern == nullptr ? 0 : 32, pattern);
    });
}

}  // namespace Orlek::OpenGL
