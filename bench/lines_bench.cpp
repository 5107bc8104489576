// One small line object a frame: the library beside the bare draw, which it cannot beat, and beside
// the same draw with every uniform looked up by name between two drains of the error flags.
#include <GL/glew.h>
#include <Orlek/OpenGL/GlHandler.h>
#include <Orlek/OpenGL/LineLoops.h>
#include <Orlek/OpenGL/Lines.h>
#include <Orlek/OpenGL/MatrixStack.h>
#include <benchmark/benchmark.h>

#include <array>
#include <map>
#include <string>
#include <vector>

#include "HeadlessContext.h"

namespace {

using namespace Orlek::OpenGL;
using Points = std::vector<Orlek::Math::Vector2<float>>;

constexpr int width = 640;
constexpr int height = 400;

// Frames between two waits for the rasteriser, which works on threads of its own.
constexpr int framesPerWait = 256;

void prepare() {
    static OrlekSupport::HeadlessContext context(width, height);
    context.makeCurrent();
    GlHandler::instance().setViewPort({width, height});
    MatrixLoadIdent();
    glViewport(0, 0, width, height);
    glClear(GL_COLOR_BUFFER_BIT);
}

template <typename Frame>
void measure(benchmark::State& state, Frame frame) {
    frame();  // uploads, and has the driver compile its shaders
    glFinish();
    int frames = 0;
    for (auto _ : state) {
        frame();
        if (++frames % framesPerWait == 0) {
            state.PauseTiming();
            glFinish();
            state.ResumeTiming();
        }
    }
    glFinish();
}

const Points triangle{{-0.02F, -0.02F}, {0.02F, -0.02F}, {0, 0.03F}};

/// The GL objects of the triangle's outline, as the library would upload it.
class BareLoop {
public:
    BareLoop() {
        GlHandler& handler = GlHandler::instance();
        handler.activateShader(2);
        mProgram = handler.activeShaderHandle();
        handler.deactivateShader();
        mMatrix = glGetUniformLocation(mProgram, "mvp");
        mColor = glGetUniformLocation(mProgram, "color");
        std::vector<float> vertices;
        for (const std::size_t i : {0U, 1U, 2U, 0U}) {
            vertices.insert(vertices.end(), {triangle[i].x, triangle[i].y, 0.0F});
        }
        const std::array<unsigned, 7> indices{0, 0, 1, 2, 3, 3, 0xFFFFFFFF};
        mCount = static_cast<GLsizei>(indices.size());
        glGenVertexArrays(1, &mArray);
        glBindVertexArray(mArray);
        glGenBuffers(2, mBuffers.data());
        glBindBuffer(GL_ARRAY_BUFFER, mBuffers[0]);
        glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(vertices.size() * sizeof(float)),
                     vertices.data(), GL_STATIC_DRAW);
        glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
        glEnableVertexAttribArray(0);
        glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, mBuffers[1]);
        glBufferData(GL_ELEMENT_ARRAY_BUFFER, sizeof indices, indices.data(), GL_STATIC_DRAW);
        glBindVertexArray(0);
    }
    ~BareLoop() {
        glDeleteBuffers(2, mBuffers.data());
        glDeleteVertexArrays(1, &mArray);
    }
    BareLoop(const BareLoop&) = delete;
    BareLoop& operator=(const BareLoop&) = delete;

    /// Program, matrix, colour, line state and draw, handed back; nothing is checked.
    void drawBare(bool smooth) const {
        glUseProgram(mProgram);
        glUniform4f(mColor, 1, 1, 1, 1);
        glBindVertexArray(mArray);
        setState(smooth);
        glUniformMatrix4fv(mMatrix, 1, GL_FALSE, MatrixGet().m);
        glDrawElements(GL_LINE_STRIP_ADJACENCY, mCount, GL_UNSIGNED_INT, nullptr);
        handBack();
    }

    GLuint program() const { return mProgram; }
    void bindArray() const { glBindVertexArray(mArray); }

    /// The draw alone: everything is bound and set already.
    void bind() const {
        glUseProgram(mProgram);
        glUniform4f(mColor, 1, 1, 1, 1);
        glUniformMatrix4fv(mMatrix, 1, GL_FALSE, MatrixGet().m);
        glBindVertexArray(mArray);
        setState(false);
    }
    void drawOnly() const {
        glDrawElements(GL_LINE_STRIP_ADJACENCY, mCount, GL_UNSIGNED_INT, nullptr);
    }
    static void handBack() {
        glBindVertexArray(0);
        glUseProgram(0);
        glDisable(GL_LINE_SMOOTH);
        glDisable(GL_PRIMITIVE_RESTART);
    }

private:
    static void setState(bool smooth) {
        glPrimitiveRestartIndex(0xFFFFFFFF);
        glEnable(GL_PRIMITIVE_RESTART);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        (smooth ? glEnable : glDisable)(GL_BLEND);
        (smooth ? glEnable : glDisable)(GL_LINE_SMOOTH);
        glLineWidth(1);
        glDisable(GL_LINE_STIPPLE);
    }

    GLuint mProgram = 0;
    GLint mMatrix = 0;
    GLint mColor = 0;
    GLuint mArray = 0;
    std::array<GLuint, 2> mBuffers{};
    GLsizei mCount = 0;
};

/// The frame of a line loop with nothing remembered: the program by its number, every uniform by
/// its name, each call between two drains of the error flags.
class FrameByName {
public:
    explicit FrameByName(const BareLoop& loop) : mLoop(loop) {
        GlHandler& handler = GlHandler::instance();
        for (unsigned number = 1; number <= 11; ++number) {
            handler.activateShader(number);
            mPrograms[number] = handler.activeShaderHandle();
            handler.deactivateShader();
        }
    }

    void draw(bool smooth) {
        checked("glUseProgram", [&] { glUseProgram(mPrograms[2]); });
        setViewPort();
        set("lineWidth", "glUniform1f", [](GLint at) { glUniform1f(at, 1); });
        set("color", "glUniform4f", [](GLint at) { glUniform4f(at, 1, 1, 1, 1); });
        set("antialias", "glUniform1i", [&](GLint at) { glUniform1i(at, smooth ? 1 : 0); });
        set("lineStipple", "glUniform1i", [](GLint at) { glUniform1i(at, 0); });
        setViewPort();
        glPrimitiveRestartIndex(0xFFFFFFFF);
        mLoop.bindArray();
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        glEnable(GL_BLEND);
        (smooth ? glEnable : glDisable)(GL_LINE_SMOOTH);
        (smooth ? glEnable : glDisable)(GL_BLEND);
        glEnable(GL_PRIMITIVE_RESTART);
        glLineWidth(1);
        glDisable(GL_LINE_STIPPLE);
        set("mvp", "glUniformMatrix4fv",
            [](GLint at) { glUniformMatrix4fv(at, 1, GL_FALSE, MatrixGet().m); });
        mLoop.drawOnly();
        glBindVertexArray(0);
        checked("glUseProgram", [] { glUseProgram(0); });
        glDisable(GL_LINE_STIPPLE);
        glDisable(GL_LINE_SMOOTH);
        glDisable(GL_PRIMITIVE_RESTART);
        GlHandler::checkError("LineLoops", "Nix");
    }

private:
    template <typename Call>
    static void checked(const char* label, Call call) {
        GlHandler::clearError();
        call();
        GlHandler::checkError(label, "Nix");
    }

    // The handler's setter and the program's: both take the name by value.
    template <typename Set>
    void set(std::string name, const char* label, Set setter) {
        setIn(mPrograms[2], name, label, setter);
    }

    template <typename Set>
    static void setIn(GLuint program, std::string name, const char* label, Set setter) {
        checked(label, [&] { setter(glGetUniformLocation(program, name.c_str())); });
    }

    void setViewPort() {
        set("viewPort", "glUniform2f", [](GLint at) { glUniform2f(at, width, height); });
    }

    const BareLoop& mLoop;
    std::map<unsigned, GLuint> mPrograms;
};

void loopLibrary(benchmark::State& state, bool smooth) {
    prepare();
    LineLoops loop;
    loop.addLineLoop(triangle);
    loop.setAntiAlias(smooth);
    measure(state, [&] { loop.render(1.0); });
}

void loopByName(benchmark::State& state, bool smooth) {
    prepare();
    const BareLoop loop;
    FrameByName frame(loop);
    measure(state, [&] { frame.draw(smooth); });
}

void loopBare(benchmark::State& state, bool smooth) {
    prepare();
    const BareLoop loop;
    measure(state, [&] { loop.drawBare(smooth); });
}

void loopDrawOnly(benchmark::State& state) {
    prepare();
    const BareLoop loop;
    loop.bind();
    measure(state, [&] { loop.drawOnly(); });
    BareLoop::handBack();
}

BENCHMARK_CAPTURE(loopLibrary, hard, false);
BENCHMARK_CAPTURE(loopByName, hard, false);
BENCHMARK_CAPTURE(loopBare, hard, false);
BENCHMARK(loopDrawOnly);
BENCHMARK_CAPTURE(loopLibrary, smooth, true);
BENCHMARK_CAPTURE(loopByName, smooth, true);
BENCHMARK_CAPTURE(loopBare, smooth, true);

}  // namespace

BENCHMARK_MAIN();
