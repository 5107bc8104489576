// Filled outlines: cutting 10,000 corners into triangles beside the same GLU calls with callbacks
// that only store, and the draw of a fill beside the bare draw calls.
#include <GL/glew.h>
#include <GL/glu.h>
#include <Orlek/OpenGL/GlHandler.h>
#include <Orlek/OpenGL/MatrixStack.h>
#include <Orlek/OpenGL/Polygon.h>
#include <Orlek/OpenGL/Tesselator.h>
#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <deque>
#include <random>
#include <vector>

#include "HeadlessContext.h"

namespace {

using namespace Orlek::OpenGL;
using Points = std::vector<Orlek::Math::Vector2<float>>;

constexpr int corners = 10000;

/// A ring whose radius is changed at random by up to `noise`.
Points ring(float noise) {
    std::mt19937 random(1);
    std::uniform_real_distribution<float> change(-noise, noise);
    Points points;
    for (int i = 0; i < corners; ++i) {
        const float angle = 6.2831853F * static_cast<float>(i) / corners;
        const float radius = 0.7F + change(random);
        points.emplace_back(radius * std::cos(angle), radius * std::sin(angle));
    }
    return points;
}

Tesselator tesselatorOf(const Points& points) {
    Tesselator tesselator;
    for (const auto& p : points) {
        tesselator.addVertex(p);
    }
    return tesselator;
}

void tesselateLibrary(benchmark::State& state, float noise) {
    Tesselator tesselator = tesselatorOf(ring(noise));
    for (auto _ : state) {
        benchmark::DoNotOptimize(tesselator.tesselate());
    }
}

/// What GLU gives, in the plainest form that could be drawn.
struct Stored {
    struct Primitive {
        GLenum type;
        std::size_t first;
    };
    std::vector<Primitive> primitives;
    std::vector<std::array<float, 3>> vertices;
    std::deque<std::array<double, 3>> crossings;

    void clear() {
        primitives.clear();
        vertices.clear();
        crossings.clear();
    }
};

Stored stored;

void storeBegin(GLenum type) {
    stored.primitives.push_back({type, stored.vertices.size()});
}

void storeVertex(void* data) {
    const auto* v = static_cast<const double*>(data);
    stored.vertices.push_back(
        {static_cast<float>(v[0]), static_cast<float>(v[1]), static_cast<float>(v[2])});
}

void storeCrossing(GLdouble at[3], void* [4], GLfloat[4], void** data) {
    *data = stored.crossings.emplace_back(std::array{at[0], at[1], at[2]}).data();
}

void storeNothing() {}
void storeError(GLenum) {}

template <typename Function>
_GLUfuncptr callback(Function* function) {
    return reinterpret_cast<_GLUfuncptr>(function);
}

void tesselateBare(benchmark::State& state, float noise) {
    std::vector<std::array<double, 3>> points;
    for (const auto& p : ring(noise)) {
        points.push_back({p.x, p.y, 0});
    }
    stored.primitives.reserve(corners);
    stored.vertices.reserve(std::size_t{3} * corners);
    for (auto _ : state) {
        stored.clear();
        GLUtesselator* const tess = gluNewTess();
        gluTessProperty(tess, GLU_TESS_WINDING_RULE, GLU_TESS_WINDING_NONZERO);
        gluTessCallback(tess, GLU_TESS_COMBINE, callback(storeCrossing));
        gluTessCallback(tess, GLU_TESS_VERTEX, callback(storeVertex));
        gluTessCallback(tess, GLU_TESS_BEGIN, callback(storeBegin));
        gluTessCallback(tess, GLU_TESS_END, callback(storeNothing));
        gluTessCallback(tess, GLU_TESS_ERROR, callback(storeError));
        gluTessBeginPolygon(tess, nullptr);
        gluTessBeginContour(tess);
        for (auto& p : points) {
            gluTessVertex(tess, p.data(), p.data());
        }
        gluTessEndContour(tess);
        gluTessEndPolygon(tess);
        gluDeleteTess(tess);
        benchmark::DoNotOptimize(stored.vertices.data());
    }
}

constexpr int size = 64;

/// Draws into a small picture, so that the calls count and not the pixels.
template <typename Frame>
void measureFrames(benchmark::State& state, Frame frame) {
    frame();
    glFinish();
    int frames = 0;
    for (auto _ : state) {
        frame();
        if (++frames % 16 == 0) {
            state.PauseTiming();
            glFinish();
            state.ResumeTiming();
        }
    }
    glFinish();
}

void prepare() {
    static OrlekSupport::HeadlessContext context(size, size);
    context.makeCurrent();
    GlHandler::instance().setViewPort({size, size});
    MatrixLoadIdent();
    glViewport(0, 0, size, size);
}

void drawLibrary(benchmark::State& state) {
    prepare();
    Polygon polygon;
    polygon.addTessPolygon(tesselatorOf(ring(0.2F)).tesselate());
    measureFrames(state, [&] { polygon.render(); });
    polygon.clear();
}

void drawBare(benchmark::State& state) {
    prepare();
    const auto polygon = tesselatorOf(ring(0.2F)).tesselate();
    std::vector<Orlek::Math::Vector3<float>> vertices;
    for (const auto& primitive : polygon.primitives) {
        vertices.insert(vertices.end(), primitive.vertices.begin(), primitive.vertices.end());
    }
    GLuint array = 0;
    GLuint buffer = 0;
    glGenVertexArrays(1, &array);
    glBindVertexArray(array);
    glGenBuffers(1, &buffer);
    glBindBuffer(GL_ARRAY_BUFFER, buffer);
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(vertices.size() * sizeof(vertices[0])),
                 vertices.data(), GL_STATIC_DRAW);
    glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
    glEnableVertexAttribArray(0);
    GlHandler& handler = GlHandler::instance();
    handler.activateShader(11);
    MatrixActivate();
    handler.setFloatVar("color", 1, 1, 1, 1);
    handler.setIntVar("stippleUse", 0);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    measureFrames(state, [&] {
        for (const auto& primitive : polygon.primitives) {
            glDrawArrays(primitive.type, static_cast<GLint>(primitive.start),
                         static_cast<GLsizei>(primitive.vertices.size()));
        }
    });
    glBindVertexArray(0);
    handler.deactivateShader();
    glDeleteBuffers(1, &buffer);
    glDeleteVertexArrays(1, &array);
}

BENCHMARK_CAPTURE(tesselateLibrary, star, 0.2F)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(tesselateBare, star, 0.2F)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(tesselateLibrary, circle, 0.0F)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(tesselateBare, circle, 0.0F)->Unit(benchmark::kMillisecond);
BENCHMARK(drawLibrary)->Unit(benchmark::kMicrosecond);
BENCHMARK(drawBare)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
