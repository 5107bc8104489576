#include <Orlek/OpenGL/Shader.h>

#include <GL/glew.h>

#include <fstream>

#include "rendering/gl/EntryPoints.h"
#include "rendering/gl/InfoLog.h"

namespace Orlek::OpenGL {

namespace {

constexpr std::size_t largestSource = std::size_t{16} << 20;

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

// False when the file cannot be read to its end. The bound holds for devices that never end.
bool readLines(std::istream& file, std::string& text) {
    std::string chunk(std::size_t{1} << 16, '\0');
    while (file.read(chunk.data(), std::ssize(chunk)), file.gcount() > 0) {
        text.append(chunk, 0, static_cast<std::size_t>(file.gcount()));
        if (text.size() > largestSource) {
            return false;
        }
    }
    if (!text.empty() && text.back() != '\n') {
        text.push_back('\n');
    }
    return !file.bad();
}

}  // namespace

Shader::Shader(TShaderType type) : mType(type) {
    if (glType(type) != GL_NONE && Detail::glReady()) {
        mHandle = glCreateShader(glType(type));
    }
}

bool Shader::loadSource(unsigned char* source, unsigned int length) {
    handOver(mHandle, source == nullptr ? std::string() : std::string(source, source + length));
    return true;
}

bool Shader::loadSource(std::string fileName) {
    std::ifstream file(fileName);
    std::string text;
    if (!file || !readLines(file, text)) {
        return false;
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
