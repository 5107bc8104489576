#include <Orlek/OpenGL/MatrixStack.h>

#include <Orlek/OpenGL/GlHandler.h>

#include <array>
#include <cmath>
#include <cstddef>

#include "rendering/programs/Uniforms.h"

namespace Orlek::OpenGL {

namespace {

using Matrix = Math::Matrix4<float>;

std::array<Matrix, 32> gMatrixStack{};
std::size_t gMatrixTop = 0;

Matrix& current() {
    return gMatrixStack[gMatrixTop];
}

Matrix product(const Matrix& a, const Matrix& b) {
    Matrix result{};
    for (std::size_t column = 0; column < 4; ++column) {
        for (std::size_t row = 0; row < 4; ++row) {
            float sum = 0.0F;
            for (std::size_t k = 0; k < 4; ++k) {
                sum += a.m[4 * k + row] * b.m[4 * column + k];
            }
            result.m[4 * column + row] = sum;
        }
    }
    return result;
}

Matrix scaling(float x, float y, float z) {
    return {{x, 0, 0, 0, 0, y, 0, 0, 0, 0, z, 0, 0, 0, 0, 1}};
}

Matrix rotation(double angleDeg, double x, double y, double z) {
    const double a = angleDeg * 0.017453292519943295;
    const double c = std::cos(a);
    const double s = std::sin(a);
    const double t = 1.0 - c;
    const auto f = [](double value) { return static_cast<float>(value); };
    return {{f(x * x * t + c), f(y * x * t + z * s), f(z * x * t - y * s), 0,  //
             f(x * y * t - z * s), f(y * y * t + c), f(z * y * t + x * s), 0,  //
             f(x * z * t + y * s), f(y * z * t - x * s), f(z * z * t + c), 0,  //
             0, 0, 0, 1}};
}

}  // namespace

void MatrixLoadIdent() {
    current() = scaling(1.0F, 1.0F, 1.0F);
}

void MatrixSet(const Matrix& m) {
    current() = m;
}

Matrix MatrixGet() {
    return current();
}

void MatrixMult(const Matrix& m) {
    current() = product(current(), m);
}

void MatrixTranslate(double x, double y, double z) {
    Matrix translation = scaling(1.0F, 1.0F, 1.0F);
    translation.m[12] = static_cast<float>(x);
    translation.m[13] = static_cast<float>(y);
    translation.m[14] = static_cast<float>(z);
    MatrixMult(translation);
}

void MatrixScale(double x, double y, double z) {
    MatrixMult(scaling(static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)));
}

void MatrixRotate(double angle, double x, double y, double z) {
    MatrixMult(
        rotation(angle, static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)));
}

void MatrixPush() {
    if (gMatrixTop < gMatrixStack.size() - 1) {
        gMatrixStack[gMatrixTop + 1] = current();
        ++gMatrixTop;
    }
}

void MatrixPop() {
    if (gMatrixTop > 0) {
        --gMatrixTop;
    }
}

void MatrixActivate() {
    const unsigned program = GlHandler::instance().activeShaderHandle();
    if (program != 0) {
        Detail::setMatrixUniform(program, "mvp", current().m);
    }
}

}  // namespace Orlek::OpenGL
