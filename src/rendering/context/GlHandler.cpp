#include <Orlek/OpenGL/GlHandler.h>

#include <GL/glew.h>

#include <utility>

#include "rendering/gl/EntryPoints.h"
#include "rendering/gl/Errors.h"
#include "rendering/gl/InfoLog.h"
#include "rendering/gl/Names.h"
#include "rendering/programs/StandardPrograms.h"

namespace Orlek::OpenGL {

namespace {

// Value of the active number before any program was in use; 0 stands for none afterwards.
constexpr std::uint32_t neverActive = 999999;

Shader compiled(Shader::TShaderType type, std::string_view source) {
    Shader shader(type);
    std::string bytes(source);
    shader.loadSource(reinterpret_cast<unsigned char*>(bytes.data()),
                      static_cast<unsigned>(bytes.size()));
    shader.compile();
    return shader;
}

ShaderProgram linked(const Detail::StandardProgram& recipe) {
    Shader vertex = compiled(Shader::VERTEX_SHADER, *recipe.vertex);
    Shader fragment = compiled(Shader::FRAGMENT_SHADER, *recipe.fragment);
    ShaderProgram program;
    program.attachShader(vertex);
    program.attachShader(fragment);
    if (recipe.geometry != nullptr) {
        Shader geometry = compiled(Shader::GEOMETRY_SHADER, *recipe.geometry);
        program.attachShader(geometry);
    }
    for (const Detail::AttributeBinding& attribute : recipe.attributes) {
        program.bindLocation(attribute.location, attribute.name);
    }
    program.link();
    return program;
}

}  // namespace

GlHandler& GlHandler::instance() {
    static GlHandler handler;
    return handler;
}

GlHandler::GlHandler() : mActiveShader(neverActive), mViewPort(0.0F, 0.0F) {
    Detail::reportEntryPoints();
    initStandardShaders();
    glVersion();
    glSlVersion();
}

void GlHandler::initStandardShaders() {
    mActiveShader = neverActive;
    mActiveProgram = nullptr;
    mGlVersion = Detail::glVersionText();
    mGlSlVersion = Detail::glslVersionText();
    if (!Detail::hasContext()) {  // programs would have no names
        return;
    }
    Detail::enableDebugOutput();
    Detail::forgetParkedNames();  // this is how an application tells of a new context
    decltype(mShaders) programs;  // all or none
    for (const Detail::StandardProgram& recipe : Detail::standardPrograms()) {
        programs.insert_or_assign(recipe.number, linked(recipe));
    }
    mShaders = std::move(programs);
}

unsigned int GlHandler::glVersion() {
    return Detail::reportVersion("GL", mGlVersion);
}

unsigned int GlHandler::glSlVersion() {
    return Detail::reportVersion("GLSL", mGlSlVersion);
}

void GlHandler::checkError(const std::string& where, const std::string& detail) {
    Detail::reportErrors(where.c_str(), detail.c_str());
}

void GlHandler::clearError() {
    Detail::clearErrors();
}

void GlHandler::setViewPort(Math::Vector2<float> size) {
    mViewPort = size;
}

Math::Vector2<float> GlHandler::viewPort() {
    return mViewPort;
}

void GlHandler::activateViewPort() {
    setFloatVar("viewPort", mViewPort.x, mViewPort.y);
}

void GlHandler::activateShader(unsigned int number) {
    if (number == mActiveShader) {
        return;
    }
    if (mShaders.empty() && Detail::hasContext()) {  // the object is older than the context
        initStandardShaders();
        glVersion();
        glSlVersion();
    }
    const auto program = mShaders.find(number);
    if (program != mShaders.end()) {
        mActiveShader = number;
        mActiveProgram = &program->second;
        mActiveProgram->use(true);
    }
}

void GlHandler::deactivateShader() {
    if (mActiveShader == 0) {
        return;
    }
    mActiveShader = 0;
    mActiveProgram = nullptr;
    if (Detail::glReady()) {
        Detail::clearErrors();
        glUseProgram(0);
        Detail::reportErrors("glUseProgram");
    }
}

unsigned int GlHandler::activeShaderHandle() {
    return mActiveProgram == nullptr ? 0 : mActiveProgram->handle();
}

void GlHandler::setFloatVar(std::string name, float a) {
    if (mActiveProgram != nullptr) {
        mActiveProgram->setFloatVar(std::move(name), a);
    }
}

void GlHandler::setFloatVar(std::string name, float a, float b) {
    if (mActiveProgram != nullptr) {
        mActiveProgram->setFloatVar(std::move(name), a, b);
    }
}

void GlHandler::setFloatVar(std::string name, float a, float b, float c) {
    if (mActiveProgram != nullptr) {
        mActiveProgram->setFloatVar(std::move(name), a, b, c);
    }
}

void GlHandler::setFloatVar(std::string name, float a, float b, float c, float d) {
    if (mActiveProgram != nullptr) {
        mActiveProgram->setFloatVar(std::move(name), a, b, c, d);
    }
}

void GlHandler::setIntVar(std::string name, int value) {
    if (mActiveProgram != nullptr) {
        mActiveProgram->setIntVar(std::move(name), value);
    }
}

void GlHandler::setStippleVar(std::string name, int* const pattern) {
    if (mActiveProgram != nullptr) {
        mActiveProgram->setStippleVar(std::move(name), pattern);
    }
}

}  // namespace Orlek::OpenGL
