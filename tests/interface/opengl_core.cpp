// The shared GL state, shader objects and the matrix stack.
#include "interface.h"

#include <string>

namespace interface {
namespace {
using namespace Orlek::OpenGL;
using Size = Orlek::Math::Vector2<float>;
using Matrix = Orlek::Math::Matrix4<float>;
}  // namespace

void shared() {
    static_assert(sizeof(Shader::TShaderType) == 4 && Shader::VERTEX_SHADER == 0);
    static_assert(Shader::FRAGMENT_SHADER == 1 && Shader::GEOMETRY_SHADER == 2);
    static_assert(std::is_trivially_destructible_v<Shader>);
    static_assert(std::is_trivially_destructible_v<ShaderProgram>);
    value<ShaderProgram>();
    made<Shader, Shader::TShaderType>();
    copied<Shader>();
    singleton<GlHandler>();
    member<unsigned int()>(&GlHandler::glVersion, &GlHandler::glSlVersion,
                           &GlHandler::activeShaderHandle, &Shader::handle, &ShaderProgram::handle);
    function<void(const std::string&, const std::string&)>(&GlHandler::checkError);
    function<void()>(&GlHandler::clearError, &MatrixLoadIdent, &MatrixPush, &MatrixPop,
                     &MatrixActivate);
    member<void(Size)>(&GlHandler::setViewPort);
    member<Size()>(&GlHandler::viewPort);
    member<void()>(&GlHandler::activateViewPort, &GlHandler::deactivateShader,
                   &GlHandler::initStandardShaders, &Shader::info, &ShaderProgram::info);
    member<void(unsigned int)>(&GlHandler::activateShader);
    member<void(std::string, float)>(&GlHandler::setFloatVar, &ShaderProgram::setFloatVar);
    member<void(std::string, float, float)>(&GlHandler::setFloatVar, &ShaderProgram::setFloatVar);
    member<void(std::string, float, float, float)>(&GlHandler::setFloatVar,
                                                   &ShaderProgram::setFloatVar);
    member<void(std::string, float, float, float, float)>(&GlHandler::setFloatVar,
                                                          &ShaderProgram::setFloatVar);
    member<void(std::string, int)>(&GlHandler::setIntVar, &ShaderProgram::setIntVar);
    member<void(std::string, int* const)>(&GlHandler::setStippleVar, &ShaderProgram::setStippleVar);
    member<bool(unsigned char*, unsigned int)>(&Shader::loadSource);
    member<bool(std::string)>(&Shader::loadSource);
    member<bool()>(&Shader::compile, &ShaderProgram::link);
    member<bool(Shader&)>(&ShaderProgram::attachShader, &ShaderProgram::detachShader);
    member<void(int, const std::string&)>(&ShaderProgram::bindLocation);
    member<bool(bool)>(&ShaderProgram::use);
    function<void(const Matrix&)>(&MatrixSet, &MatrixMult);
    function<Matrix()>(&MatrixGet);
    function<void(double, double, double)>(&MatrixTranslate, &MatrixScale);
    function<void(double, double, double, double)>(&MatrixRotate);
}

}  // namespace interface
