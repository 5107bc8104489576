// The bare GL objects and calls of one batch of text: what no font can beat. The program that draws
// it is one of the standard programs with an offset, by its number.
#pragma once

#include <GL/glew.h>
#include <Orlek/OpenGL/GlHandler.h>
#include <Orlek/OpenGL/MatrixStack.h>

#include <cstdint>
#include <vector>

namespace OrlekBench {

constexpr std::uint32_t restartIndex = 0xFFFFFFFFU;

class BareBatch {
public:
    explicit BareBatch(unsigned standardProgram) {
        Orlek::OpenGL::GlHandler& gl = Orlek::OpenGL::GlHandler::instance();
        gl.activateShader(standardProgram);
        mProgram = gl.activeShaderHandle();
        gl.deactivateShader();
        mColor = glGetUniformLocation(mProgram, "color");
        mOffset = glGetUniformLocation(mProgram, "offset");
        mMatrix = glGetUniformLocation(mProgram, "mvp");
        glGenVertexArrays(1, &mVao);
        glGenBuffers(3, mBuffers);
    }
    ~BareBatch() {
        glDeleteBuffers(3, mBuffers);
        glDeleteVertexArrays(1, &mVao);
    }
    BareBatch(const BareBatch&) = delete;
    BareBatch& operator=(const BareBatch&) = delete;

    unsigned program() const { return mProgram; }

    template <typename Position>
    void upload(const std::vector<Position>& positions, const std::vector<std::uint32_t>& indices) {
        glBindVertexArray(mVao);
        attribute(0, 3, mBuffers[0], positions);
        fill(GL_ELEMENT_ARRAY_BUFFER, mBuffers[1], indices);
        mCount = static_cast<GLsizei>(indices.size());
    }

    template <typename Coordinate>
    void uploadCoordinates(const std::vector<Coordinate>& coordinates) {
        glBindVertexArray(mVao);
        attribute(2, 2, mBuffers[2], coordinates);
    }

    /// Calls setState() for what the mode needs besides, with the program in use.
    template <typename SetState>
    void draw(GLenum mode, SetState setState) const {
        use(Orlek::OpenGL::MatrixGet());
        glPrimitiveRestartIndex(restartIndex);
        glEnable(GL_PRIMITIVE_RESTART);
        setState();
        glBindVertexArray(mVao);
        glDrawElements(mode, mCount, GL_UNSIGNED_INT, nullptr);
        glBindVertexArray(0);
        glDisable(GL_PRIMITIVE_RESTART);
        glUseProgram(0);
    }

    /// Draws parts of the vertices: drawEach(location of the offset) sets it and draws each.
    template <typename DrawEach>
    void drawParts(const Orlek::Math::Matrix4<float>& matrix, DrawEach drawEach) const {
        use(matrix);
        glBindVertexArray(mVao);
        drawEach(mOffset);
        glBindVertexArray(0);
        glUseProgram(0);
    }

private:
    void use(const Orlek::Math::Matrix4<float>& matrix) const {
        glUseProgram(mProgram);
        glUniform4f(mColor, 1.0F, 1.0F, 1.0F, 1.0F);
        glUniform3f(mOffset, 0.0F, 0.0F, 0.0F);
        glUniformMatrix4fv(mMatrix, 1, GL_FALSE, matrix.m);
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    }

    template <typename T>
    static void attribute(GLuint location, GLint components, unsigned buffer,
                          const std::vector<T>& values) {
        fill(GL_ARRAY_BUFFER, buffer, values);
        glVertexAttribPointer(location, components, GL_FLOAT, GL_FALSE, 0, nullptr);
        glEnableVertexAttribArray(location);
    }

    template <typename T>
    static void fill(GLenum target, unsigned buffer, const std::vector<T>& values) {
        glBindBuffer(target, buffer);
        glBufferData(target, static_cast<GLsizeiptr>(values.size() * sizeof(T)), values.data(),
                     GL_STATIC_DRAW);
    }

    unsigned mProgram = 0;
    int mColor = -1;
    int mOffset = -1;
    int mMatrix = -1;
    unsigned mVao = 0;
    unsigned mBuffers[3]{};  // positions, indices, texture coordinates
    GLsizei mCount = 0;
};

}  // namespace OrlekBench
