// The shared GL state, shader objects and the matrix stack.
#include "interface.h"

#include <string>

namespace interface {
namespace {
using namespace Orlek::OpenGL;
using Size = Orlek::Math::Vector2<float>;
using Matrix = Orlek::Math::Matrix4<float>;

void handler() {
    singleton<GlHandler>();
    member<unsigned int()>(&GlHandler::glVersion);
    member<unsigned int()>(&GlHandler::glSlVersion);
    function<void(const std::string&, const std::string&)>(&GlHandler::checkError);
    function<void()>(&GlHandler::clearError);
    member<void(Size)>(&GlHandler::setViewPort);
    member<Size()>(&GlHandler::viewPort);
    member<void()>(&GlHandler::activateViewPort);
    member<void(unsigned int)>(&GlHandler::activateShader);
    member<void()>(&GlHandler::deactivateShader);
    member<unsigned int()>(&GlHandler::activeShaderHandle);
    member<void(std::string, float)>(&GlHandler::setFloatVar);
    member<void(std::string, float, float)>(&GlHandler::setFloatVar);
    member<void(std::string, float, float, float)>(&GlHandler::setFloatVar);
    member<void(std::string, float, float, float, float)>(&GlHandler::setFloatVar);
    member<void(std::string, int)>(&GlHandler::setIntVar);
    member<void(std::string, int* const)>(&GlHandler::setStippleVar);
    member<void()>(&GlHandler::initStandardShaders);
}

void shaders() {
    static_assert(sizeof(Shader::TShaderType) == 4 && Shader::VERTEX_SHADER == 0);
    static_assert(Shader::FRAGMENT_SHADER == 1 && Shader::GEOMETRY_SHADER == 2);
    static_assert(std::is_trivially_destructible_v<Shader>);
    made<Shader, Shader::TShaderType>();
    copied<Shader>();
    member<bool(unsigned char*, unsigned int)>(&Shader::loadSource);
    member<bool(std::string)>(&Shader::loadSource);
    member<bool()>(&Shader::compile);
    member<void()>(&Shader::info);
    member<unsigned int()>(&Shader::handle);

    static_assert(std::is_trivially_destructible_v<ShaderProgram>);
    value<ShaderProgram>();
    member<bool(Shader&)>(&ShaderProgram::attachShader);
    member<bool(Shader&)>(&ShaderProgram::detachShader);
    member<void(int, const std::string&)>(&ShaderProgram::bindLocation);
    member<bool()>(&ShaderProgram::link);
    member<bool(bool)>(&ShaderProgram::use);
    member<void()>(&ShaderProgram::info);
    member<unsigned int()>(&ShaderProgram::handle);
    member<void(std::string, float)>(&ShaderProgram::setFloatVar);
    member<void(std::string, float, float)>(&ShaderProgram::setFloatVar);
    member<void(std::string, float, float, float)>(&ShaderProgram::setFloatVar);
    member<void(std::string, float, float, float, float)>(&ShaderProgram::setFloatVar);
    member<void(std::string, int)>(&ShaderProgram::setIntVar);
    member<void(std::string, int* const)>(&ShaderProgram::setStippleVar);
}

void matrices() {
    function<void()>(&MatrixLoadIdent);
    function<void(const Matrix&)>(&MatrixSet);
    function<Matrix()>(&MatrixGet);
    function<void(const Matrix&)>(&MatrixMult);
    function<void(double, double, double)>(&MatrixTranslate);
    function<void(double, double, double)>(&MatrixScale);
    function<void(double, double, double, double)>(&MatrixRotate);
    function<void()>(&MatrixPush);
    function<void()>(&MatrixPop);
    function<void()>(&MatrixActivate);
}

}  // namespace

void core() {
    handler();
    shaders();
    matrices();
}

}  // namespace interface
