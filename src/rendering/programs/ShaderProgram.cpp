#include <Orlek/OpenGL/ShaderProgram.h>

#include <GL/glew.h>

#include "rendering/gl/EntryPoints.h"
#include "rendering/gl/InfoLog.h"
#include "rendering/programs/Checked.h"
#include "rendering/programs/UniformLocations.h"
#include "rendering/programs/Uniforms.h"

namespace Orlek::OpenGL {

using Detail::checked;

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
    Detail::setUniform(mHandle, name, a);
}

void ShaderProgram::setFloatVar(std::string name, float a, float b) {
    Detail::setUniform(mHandle, name, a, b);
}

void ShaderProgram::setFloatVar(std::string name, float a, float b, float c) {
    Detail::setUniform(mHandle, name, a, b, c);
}

void ShaderProgram::setFloatVar(std::string name, float a, float b, float c, float d) {
    Detail::setUniform(mHandle, name, a, b, c, d);
}

void ShaderProgram::setIntVar(std::string name, int value) {
    Detail::setUniform(mHandle, name, value);
}

void ShaderProgram::setStippleVar(std::string name, int* const pattern) {
    Detail::setStippleUniform(mHandle, name, pattern);
}

}  // namespace Orlek::OpenGL
