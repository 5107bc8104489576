// Many strips in one object. Drawing: the library beside the bare draw, which it cannot beat, and
// beside cairo's image backend. Uploading: the library beside the same job written by hand:
// adjacency expansion and buffers, for stippled strips also their lengths in pixels.
#include <GL/glew.h>
#include <Orlek/OpenGL/GlHandler.h>
#include <Orlek/OpenGL/LineStrips.h>
#include <Orlek/OpenGL/MatrixStack.h>
#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <random>
#include <vector>

#include "HeadlessContext.h"

#ifdef ORLEK_HAVE_CAIRO
#include <cairo.h>
#endif

namespace {

using namespace Orlek::OpenGL;
using Point = Orlek::Math::Vector2<float>;
using Strips = std::vector<std::vector<Point>>;

constexpr int width = 1024;
constexpr int height = 768;
constexpr std::uint32_t restart = 0x12FFFFFF;
constexpr std::size_t pointsPerStrip = 100;

/// Wandering lines with steps of 5 pixels, like contours or tracks on a map.
Strips wanderingStrips(std::size_t count) {
    std::mt19937 random(7);
    std::uniform_real_distribution<float> unit(0.0F, 1.0F);
    Strips strips(count);
    for (auto& strip : strips) {
        Point at{unit(random) * width, unit(random) * height};
        float heading = unit(random) * 6.28F;
        for (std::size_t i = 0; i < pointsPerStrip; ++i) {
            strip.push_back(at);
            heading += unit(random) * 0.6F - 0.3F;
            at.x += 5.0F * std::cos(heading);
            at.y += 5.0F * std::sin(heading);
        }
    }
    return strips;
}

void prepare() {
    static OrlekSupport::HeadlessContext context(width, height);
    context.makeCurrent();
    GlHandler::instance().setViewPort({width, height});
    MatrixSet({{2.0F / width, 0, 0, 0, 0, 2.0F / height, 0, 0, 0, 0, 1, 0, -1, -1, 0, 1}});
    glViewport(0, 0, width, height);
    glClear(GL_COLOR_BUFFER_BIT);
}

LineStrips libraryStrips(const Strips& strips) {
    LineStrips object;
    for (const auto& strip : strips) {
        object.addLineStrip(strip);
    }
    return object;
}

template <typename T>
void fill(GLenum target, const std::vector<T>& values) {
    glBufferData(target, static_cast<GLsizeiptr>(values.size() * sizeof(T)), values.data(),
                 GL_STATIC_DRAW);
}

/// The same strips with GL objects made by hand.
class BareStrips {
public:
    explicit BareStrips(const Strips& strips) {
        for (const auto& strip : strips) {
            for (const Point& point : strip) {
                mVertices.emplace_back(point.x, point.y, 0.0F);
            }
        }
        GlHandler& handler = GlHandler::instance();
        handler.activateShader(2);
        mProgram = handler.activeShaderHandle();
        handler.deactivateShader();
        mMatrix = glGetUniformLocation(mProgram, "mvp");
        mColor = glGetUniformLocation(mProgram, "color");
    }
    ~BareStrips() { release(); }
    BareStrips(const BareStrips&) = delete;
    BareStrips& operator=(const BareStrips&) = delete;

    /// The way along all points in pixels, point by point.
    void measureLengths() {
        const Orlek::Math::Matrix4<float> matrix = MatrixGet();
        const float* m = matrix.m;
        const auto screen = [&](std::size_t row, const Orlek::Math::Vector3<float>& p) {
            return static_cast<double>(m[row]) * p.x + static_cast<double>(m[row + 4]) * p.y +
                   static_cast<double>(m[row + 8]) * p.z + static_cast<double>(m[row + 12]);
        };
        mPositions.resize(mVertices.size());
        double sum = 0.0;
        Orlek::Math::Vector3<float> last;
        for (std::size_t i = 0; i < mVertices.size(); ++i) {
            const Orlek::Math::Vector3<float> at{
                static_cast<float>((screen(0, mVertices[i]) + 1.0) * 0.5 * width),
                static_cast<float>((screen(1, mVertices[i]) + 1.0) * 0.5 * height),
                static_cast<float>(screen(2, mVertices[i]))};
            if (i > 0) {
                const double dx = static_cast<double>(at.x) - last.x;
                const double dy = static_cast<double>(at.y) - last.y;
                const double dz = static_cast<double>(at.z) - last.z;
                sum += std::sqrt(dx * dx + dy * dy + dz * dz);
            }
            mPositions[i] = static_cast<float>(sum);
            last = at;
        }
    }

    /// Uploads vertices, measured lengths if there are any, and the adjacency form of the indices,
    /// expanded for strips whose length is known.
    void upload() {
        glGenVertexArrays(1, &mArray);
        glBindVertexArray(mArray);
        glGenBuffers(3, mBuffers.data());
        glBindBuffer(GL_ARRAY_BUFFER, mBuffers[0]);
        fill(GL_ARRAY_BUFFER, mVertices);
        glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 0, nullptr);
        glEnableVertexAttribArray(0);
        if (!mPositions.empty()) {
            glBindBuffer(GL_ARRAY_BUFFER, mBuffers[1]);
            fill(GL_ARRAY_BUFFER, mPositions);
            glVertexAttribPointer(5, 1, GL_FLOAT, GL_FALSE, 0, nullptr);
            glEnableVertexAttribArray(5);
        }
        glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, mBuffers[2]);
        const std::vector<std::uint32_t> indices = adjacency();
        mCount = static_cast<GLsizei>(indices.size());
        fill(GL_ELEMENT_ARRAY_BUFFER, indices);
        glBindVertexArray(0);
    }

    void release() {
        glDeleteVertexArrays(1, &mArray);
        glDeleteBuffers(3, mBuffers.data());
        mArray = 0;
        mBuffers = {};
    }

    void draw() const {
        glUseProgram(mProgram);
        glUniform4f(mColor, 1, 1, 1, 1);
        glUniformMatrix4fv(mMatrix, 1, GL_FALSE, MatrixGet().m);
        glBindVertexArray(mArray);
        glPrimitiveRestartIndex(restart);
        glEnable(GL_PRIMITIVE_RESTART);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        glEnable(GL_BLEND);
        glEnable(GL_LINE_SMOOTH);
        glLineWidth(1);
        glDrawElements(GL_LINE_STRIP_ADJACENCY, mCount, GL_UNSIGNED_INT, nullptr);
        glDisable(GL_LINE_SMOOTH);
        glDisable(GL_PRIMITIVE_RESTART);
        glBindVertexArray(0);
        glUseProgram(0);
    }

private:
    std::vector<std::uint32_t> adjacency() const {
        std::vector<std::uint32_t> indices;
        indices.reserve(mVertices.size() / pointsPerStrip * (pointsPerStrip + 3));
        for (std::uint32_t first = 0; first < mVertices.size(); first += pointsPerStrip) {
            indices.push_back(first);
            for (std::uint32_t i = 0; i < pointsPerStrip; ++i) {
                indices.push_back(first + i);
            }
            indices.push_back(first + pointsPerStrip - 1);
            indices.push_back(restart);
        }
        return indices;
    }

    std::vector<Orlek::Math::Vector3<float>> mVertices;
    std::vector<float> mPositions;
    GLuint mProgram = 0;
    GLint mMatrix = 0;
    GLint mColor = 0;
    GLuint mArray = 0;
    std::array<GLuint, 3> mBuffers{};
    GLsizei mCount = 0;
};

/// Each frame waits for its pixels: the rasteriser works on threads of its own.
template <typename Frame>
void measure(benchmark::State& state, Frame frame) {
    frame();
    glFinish();
    for (auto _ : state) {
        frame();
        glFinish();
    }
}

constexpr std::size_t drawnStrips = 1000;

void drawLibrary(benchmark::State& state) {
    prepare();
    LineStrips strips = libraryStrips(wanderingStrips(drawnStrips));
    measure(state, [&] { strips.render(-1); });
}

void drawBare(benchmark::State& state) {
    prepare();
    BareStrips strips(wanderingStrips(drawnStrips));
    strips.upload();
    measure(state, [&] { strips.draw(); });
}

#ifdef ORLEK_HAVE_CAIRO
/// Each strip one path, stroked 1 pixel wide with antialiasing into an image in memory.
void drawCairo(benchmark::State& state) {
    const Strips strips = wanderingStrips(drawnStrips);
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    cairo_t* cairo = cairo_create(surface);
    cairo_set_source_rgb(cairo, 1, 1, 1);
    cairo_set_line_width(cairo, 1);
    for (auto _ : state) {
        for (const auto& strip : strips) {
            for (const Point& point : strip) {
                cairo_line_to(cairo, static_cast<double>(point.x), static_cast<double>(point.y));
            }
            cairo_stroke(cairo);
        }
        cairo_surface_flush(surface);
    }
    cairo_destroy(cairo);
    cairo_surface_destroy(surface);
}
#endif

constexpr std::size_t uploadedStrips = 10000;

/// GL objects deleted and made anew, everything uploaded, nothing drawn.
void uploadLibrary(benchmark::State& state, bool stippled) {
    prepare();
    LineStrips strips = libraryStrips(wanderingStrips(uploadedStrips));
    strips.setStipple(stippled ? 0x00FF : 0);
    measure(state, [&] {
        strips.clear();
        strips.render(0);
    });
}

void uploadByHand(benchmark::State& state, bool stippled) {
    prepare();
    BareStrips strips(wanderingStrips(uploadedStrips));
    measure(state, [&] {
        strips.release();
        if (stippled) {
            strips.measureLengths();
        }
        strips.upload();
    });
}

BENCHMARK(drawLibrary)->Unit(benchmark::kMillisecond);
BENCHMARK(drawBare)->Unit(benchmark::kMillisecond);
#ifdef ORLEK_HAVE_CAIRO
BENCHMARK(drawCairo)->Unit(benchmark::kMillisecond);
#endif
BENCHMARK_CAPTURE(uploadLibrary, solid, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(uploadByHand, solid, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(uploadLibrary, stippled, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(uploadByHand, stippled, true)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
