#include "rendering/programs/Uniforms.h"

#include <GL/glew.h>

#include "rendering/programs/Checked.h"
#include "rendering/programs/UniformLocations.h"

namespace Orlek::Detail {

void setUniform(unsigned program, std::string_view name, float a) {
    checked("glUniform1f", [&] { glUniform1f(uniformLocation(program, name), a); });
}

void setUniform(unsigned program, std::string_view name, float a, float b) {
    checked("glUniform2f", [&] { glUniform2f(uniformLocation(program, name), a, b); });
}

void setUniform(unsigned program, std::string_view name, float a, float b, float c) {
    checked("glUniform3f", [&] { glUniform3f(uniformLocation(program, name), a, b, c); });
}

void setUniform(unsigned program, std::string_view name, float a, float b, float c, float d) {
    checked("glUniform4f", [&] { glUniform4f(uniformLocation(program, name), a, b, c, d); });
}

void setUniform(unsigned program, std::string_view name, int value) {
    checked("glUniform1i", [&] { glUniform1i(uniformLocation(program, name), value); });
}

void setUniformAt(int location, float a) {
    checked("glUniform1f", [&] { glUniform1f(location, a); });
}

void setUniformAt(int location, float a, float b, float c) {
    checked("glUniform3f", [&] { glUniform3f(location, a, b, c); });
}

void setUniformAt(int location, float a, float b, float c, float d) {
    checked("glUniform4f", [&] { glUniform4f(location, a, b, c, d); });
}

void setUniformAt(int location, int value) {
    checked("glUniform1i", [&] { glUniform1i(location, value); });
}

void setStippleUniform(unsigned program, std::string_view name, const int* pattern) {
    const GLsizei count = pattern == nullptr ? 0 : 32;
    checked("glUniform1iv", [&] { glUniform1iv(uniformLocation(program, name), count, pattern); });
}

void setMatrixUniform(unsigned program, std::string_view name, const float* matrix) {
    checked("glUniformMatrix4fv",
            [&] { glUniformMatrix4fv(uniformLocation(program, name), 1, GL_FALSE, matrix); });
}

}  // namespace Orlek::Detail
