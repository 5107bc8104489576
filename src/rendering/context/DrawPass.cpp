#include "rendering/context/DrawPass.h"

#include <GL/glew.h>
#include <Orlek/OpenGL/GlHandler.h>
#include <Orlek/OpenGL/MatrixStack.h>

#include <algorithm>

#include "rendering/gl/Mesh.h"
#include "rendering/gl/UnpackState.h"
#include "rendering/programs/UniformLocations.h"
#include "rendering/programs/Uniforms.h"

namespace Orlek::Detail {

static_assert(static_cast<GLenum>(DrawMode::Lines) == GL_LINES);
static_assert(static_cast<GLenum>(DrawMode::LineStrip) == GL_LINE_STRIP);
static_assert(static_cast<GLenum>(DrawMode::TriangleStrip) == GL_TRIANGLE_STRIP);
static_assert(static_cast<GLenum>(DrawMode::TriangleFan) == GL_TRIANGLE_FAN);
static_assert(static_cast<GLenum>(DrawMode::LineStripAdjacency) == GL_LINE_STRIP_ADJACENCY);

namespace {

bool knowsFixedIndex() {
    return GLEW_VERSION_4_3 != 0 || GLEW_ARB_ES3_compatibility != 0;
}

}  // namespace

PrimitiveRestart::PrimitiveRestart(std::uint32_t index)
    : mFixedIndex(knowsFixedIndex() && glIsEnabled(GL_PRIMITIVE_RESTART_FIXED_INDEX) == GL_TRUE) {
    if (mFixedIndex) {  // it would go before ours
        glDisable(GL_PRIMITIVE_RESTART_FIXED_INDEX);
    }
    glPrimitiveRestartIndex(index);
    glEnable(GL_PRIMITIVE_RESTART);
}

PrimitiveRestart::~PrimitiveRestart() {
    glDisable(GL_PRIMITIVE_RESTART);
    if (mFixedIndex) {
        glEnable(GL_PRIMITIVE_RESTART_FIXED_INDEX);
    }
}

PolygonStipple::PolygonStipple(const unsigned char* pattern) {
    if (pattern == nullptr) {
        glDisable(GL_POLYGON_STIPPLE);
        return;
    }
    const UnpackState packed;
    glEnable(GL_POLYGON_STIPPLE);
    glPolygonStipple(pattern);
}

PolygonStipple::~PolygonStipple() {
    glDisable(GL_POLYGON_STIPPLE);
}

DrawPass::DrawPass(const char* label, unsigned program, ErrorReports reports)
    : mCheck(label), mReports(reports), mHandler(OpenGL::GlHandler::instance()) {
    mHandler.activateShader(program);
    mProgram = mHandler.activeShaderHandle();
}

DrawPass::~DrawPass() {
    mTextures.reset();
    glBindVertexArray(0);
    step("glBindVertexArray");
    mCheck.reportNow();  // leaving the program discards what is pending
    mHandler.deactivateShader();
}

template <typename... Values>
void DrawPass::setIfPresent(std::string_view uniform, Values... values) {
    const int location = uniformLocation(mProgram, uniform);
    if (location >= 0) {
        setUniformAt(location, values...);
    }
}

void DrawPass::set(std::string_view uniform, float value) {
    setIfPresent(uniform, value);
}

void DrawPass::set(std::string_view uniform, int value) {
    setIfPresent(uniform, value);
}

void DrawPass::set(std::string_view uniform, const Math::Vector3<float>& value) {
    setIfPresent(uniform, value.x, value.y, value.z);
}

void DrawPass::set(std::string_view uniform, const Math::Vector4<float>& value) {
    setIfPresent(uniform, value.x, value.y, value.z, value.w);
}

int DrawPass::locate(std::string_view uniform) const {
    return uniformLocation(mProgram, uniform);
}

void DrawPass::setAt(int location, const Math::Vector3<float>& value) {
    glUniform3f(location, value.x, value.y, value.z);
}

void DrawPass::setPattern(std::string_view uniform, std::span<const int, 32> rows) {
    if (locate(uniform) >= 0) {
        setStippleUniform(mProgram, uniform, rows.data());
    }
}

void DrawPass::blend() {
    blendFunction();
    step("glBlendFunc");
    glEnable(GL_BLEND);
    step("glEnable");
}

void DrawPass::step(const char* function) const {
    if (mReports == ErrorReports::EachStep) {
        reportErrors(function);
    }
}

void DrawPass::blendFunction() {
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
}

void DrawPass::matrix() {
    OpenGL::MatrixActivate();
    step("MatrixActivate");
}

void DrawPass::bind(const Mesh& mesh) {
    mMesh = mesh.bind() && mProgram != 0 ? &mesh : nullptr;
    step("glBindVertexArray");
}

void DrawPass::draw(DrawMode mode, std::size_t first, std::size_t count) {
    if (mMesh != nullptr && first < mMesh->vertexCount()) {
        const std::size_t there = std::min(count, mMesh->vertexCount() - first);
        glDrawArrays(static_cast<GLenum>(mode), static_cast<GLint>(first),
                     static_cast<GLsizei>(there));
    }
    step("glDrawArrays");
}

void DrawPass::drawIndexed(DrawMode mode, std::size_t count) {
    if (mMesh != nullptr) {
        const std::size_t there = std::min(count, mMesh->indexCount());
        glDrawElements(static_cast<GLenum>(mode), static_cast<GLsizei>(there), GL_UNSIGNED_INT,
                       nullptr);
    }
}

}  // namespace Orlek::Detail
