// Outlines of whatever coordinates come: the primitives stay consistent and the time is bounded.
// Input: 8 bytes a corner (two floats, little-endian), the first 300 corners; a first byte that is
// odd takes 12 bytes a corner (three floats).
#include <Orlek/OpenGL/Tesselator.h>

#include <cmath>
#include <cstring>

#include "FuzzTarget.h"

namespace {

constexpr std::size_t mostCorners = 300;

float floatAt(const std::uint8_t* data) {
    float value = 0.0F;
    std::memcpy(&value, data, sizeof value);
    return value;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::size_t axes = size > 0 && (data[0] & 1U) != 0 ? 3 : 2;
    const std::size_t bytes = axes * sizeof(float);
    Orlek::OpenGL::Tesselator tesselator;
    bool finite = true;
    for (std::size_t i = 0; i < mostCorners && 1 + (i + 1) * bytes <= size; ++i) {
        const std::uint8_t* const corner = data + 1 + i * bytes;
        const float z = axes == 3 ? floatAt(corner + 8) : 0.0F;
        const Orlek::Math::Vector3<float> p(floatAt(corner), floatAt(corner + 4), z);
        finite = finite && std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
        tesselator.addVertex(p);
    }
    std::size_t vertices = 0;
    for (const auto& primitive : tesselator.tesselate().primitives) {
        require(finite);
        require(primitive.type >= 4 && primitive.type <= 6);
        require(primitive.start == vertices);
        vertices += primitive.vertices.size();
    }
    return 0;
}
