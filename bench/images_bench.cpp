// A frame of moving pictures, 1920 x 1080: Video::putFrame beside what it cannot beat, a memcpy of
// the frame plus the bare update of a texture from a pixel buffer that is filled already, and
// beside an update from client memory, without a pixel buffer.
//
// Every iteration ends with glFinish. Report medians:
//   images_bench --benchmark_repetitions=9 --benchmark_enable_random_interleaving=true
#include <GL/glew.h>
#include <Orlek/OpenGL/GlHandler.h>
#include <Orlek/OpenGL/Video.h>
#include <benchmark/benchmark.h>

#include <cstring>
#include <vector>

#include "HeadlessContext.h"

namespace {

constexpr int width = 1920;
constexpr int height = 1080;
constexpr std::size_t frameBytes = std::size_t{width} * height * 3;

std::vector<unsigned char> makeFrame() {
    std::vector<unsigned char> bytes(frameBytes);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<unsigned char>(i * 7 + i / 4096);
    }
    return bytes;
}

/// What all benchmarks share: a context, the frame, a texture and a filled pixel buffer.
struct Scene {
    OrlekSupport::HeadlessContext context{64, 64};
    std::vector<unsigned char> frame = makeFrame();
    Orlek::OpenGL::Video video;
    GLuint texture = 0;
    GLuint buffer = 0;

    Scene() {
        Orlek::OpenGL::GlHandler::instance();
        video.init(width, height);
        glGenTextures(1, &texture);
        glBindTexture(GL_TEXTURE_2D, texture);
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, width, height, 0, GL_RGB, GL_UNSIGNED_BYTE,
                     nullptr);
        glGenBuffers(1, &buffer);
        glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffer);
        glBufferData(GL_PIXEL_UNPACK_BUFFER, frameBytes, frame.data(), GL_STREAM_DRAW);
        glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    }

    void update(const void* pixels) const {
        glBindTexture(GL_TEXTURE_2D, texture);
        glTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, pixels);
        glFinish();
    }
};

Scene& scene() {
    static Scene shared;
    return shared;
}

void videoPutFrame(benchmark::State& state) {
    for (auto _ : state) {
        scene().video.putFrame(scene().frame.data());
        glFinish();
    }
}
BENCHMARK(videoPutFrame)->Unit(benchmark::kMillisecond)->UseRealTime();

void copyAndBareUpdate(benchmark::State& state) {
    std::vector<unsigned char> copy(frameBytes);
    for (auto _ : state) {
        std::memcpy(copy.data(), scene().frame.data(), frameBytes);
        benchmark::DoNotOptimize(copy.data());
        glBindBuffer(GL_PIXEL_UNPACK_BUFFER, scene().buffer);
        scene().update(nullptr);
        glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    }
}
BENCHMARK(copyAndBareUpdate)->Unit(benchmark::kMillisecond)->UseRealTime();

void updateFromClientMemory(benchmark::State& state) {
    for (auto _ : state) {
        scene().update(scene().frame.data());
    }
}
BENCHMARK(updateFromClientMemory)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
