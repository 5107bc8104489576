#include <Orlek/OpenGL/Shader.h>

#include <GL/glew.h>

#include <vector>

#include "platform/WholeFile.h"
#include "rendering/gl/EntryPoints.h"
#include "rendering/gl/InfoLog.h"

namespace Orlek::OpenGL {

namespace {

constexpr std::uint64_t largestSource = std::uint64_t{16} << 20U;

GLenum glType(Shader::TShaderType type) {
    switch (type) {
        case Shader::VERTEX_SHADER:
            return GL_VERTEX_SHADER;
        case Shader::FRAGMENT_SHADER:
            return GL_FRAGMENT_SHADER;
        case Shader::GEOMETRY_SHADER:
            return GL_GEOMETRY_SHADER;
    }
    return GL_NONE;
}

void handOver(unsigned handle, const std::string& text) {
    if (handle != 0) {
        const GLchar* source = text.c_str();
        glShaderSource(handle, 1, &source, nullptr);
    }
}

}  // namespace

Shader::Shader(TShaderType type) : mType(type) {
    if (glType(mType) != GL_NONE && Detail::glReady()) {
        mHandle = glCreateShader(glType(mType));
    }
}

bool Shader::loadSource(unsigned char* source, unsigned int length) {
    if (length == 0) {
        handOver(mHandle, std::string());
    } else if (source != nullptr) {
        handOver(mHandle, std::string(source, source + length));
    }
    return true;
}

bool Shader::loadSource(std::string fileName) {
    std::vector<char> bytes;
    if (!Detail::readWholeFile(fileName, bytes, largestSource)) {
        return false;
    }
    std::string text(bytes.begin(), bytes.end());
    if (!text.empty() && text.back() != '\n') {
        text.push_back('\n');
    }
    handOver(mHandle, text);
    return true;
}

bool Shader::compile() {
    if (mHandle == 0) {
        return false;
    }
    glCompileShader(mHandle);
    return checkError();
}

bool Shader::checkError() {
    GLint status = GL_FALSE;
    glGetShaderiv(mHandle, GL_COMPILE_STATUS, &status);
    if (status == GL_FALSE) {
        info();
    }
    return status != GL_FALSE;
}

void Shader::info() {
    if (mHandle != 0) {
        Detail::printShaderLog(mHandle);
    }
}

unsigned int Shader::handle() {
    return mHandle;
}

}  // namespace Orlek::OpenGL
