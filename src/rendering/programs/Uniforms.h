// Setting uniforms of the program in use by name. Each setter discards earlier errors, makes its GL
// call and reports the errors of it under the name of that call. A name that the program does not
// have is ignored.
#pragma once

#include <string_view>

namespace Orlek::Detail {

void setUniform(unsigned program, std::string_view name, float a);
void setUniform(unsigned program, std::string_view name, float a, float b);
void setUniform(unsigned program, std::string_view name, float a, float b, float c);
void setUniform(unsigned program, std::string_view name, float a, float b, float c, float d);
void setUniform(unsigned program, std::string_view name, int value);

/// The same at a location that is known.
void setUniformAt(int location, float a);
void setUniformAt(int location, float a, float b, float c);
void setUniformAt(int location, float a, float b, float c, float d);
void setUniformAt(int location, int value);

/// Sets an array of 32 ints; nothing when `pattern` is null.
void setStippleUniform(unsigned program, std::string_view name, const int* pattern);

/// Sets a 4 x 4 matrix from sixteen floats, column after column.
void setMatrixUniform(unsigned program, std::string_view name, const float* matrix);

}  // namespace Orlek::Detail
