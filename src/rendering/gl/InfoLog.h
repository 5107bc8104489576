// Texts that OpenGL hands out: info logs and version strings.
#pragma once

#include <string>

namespace Orlek::Detail {

/// Prints the info log of a shader object, if there is one.
void printShaderLog(unsigned shader);

/// Prints the info log of a program object, if there is one.
void printProgramLog(unsigned program);

/// The context's GL version text; empty without a context.
std::string glVersionText();

/// The context's GLSL version text; empty without a context.
std::string glslVersionText();

/// Prints "name version <text> major.minor" and returns major x 100 + minor.
unsigned reportVersion(const char* name, const std::string& text);

}  // namespace Orlek::Detail
