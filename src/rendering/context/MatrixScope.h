// Puts the current matrix back at the end of a scope, also when the stack is full.
#pragma once

#include <Orlek/OpenGL/MatrixStack.h>

namespace Orlek::Detail {

class MatrixScope {
public:
    MatrixScope() : mBefore(OpenGL::MatrixGet()) {}
    ~MatrixScope() { OpenGL::MatrixSet(mBefore); }
    MatrixScope(const MatrixScope&) = delete;
    MatrixScope& operator=(const MatrixScope&) = delete;

private:
    const Math::Matrix4<float> mBefore;
};

}  // namespace Orlek::Detail
