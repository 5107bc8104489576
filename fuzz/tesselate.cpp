// Outlines of whatever coordinates come: the primitives stay consistent, the time is bounded, and
// so is the work that is expected of them. Input: 8 bytes a corner (two floats, little-endian), the
// first 300 corners; a first byte that is odd takes 12 bytes a corner (three floats).
#include <Orlek/OpenGL/Tesselator.h>

#include <cmath>
#include <cstring>
#include <vector>

#include "FuzzTarget.h"
#include "rendering/geometry/OutlineWork.h"

namespace {

using Corner = Orlek::Math::Vector3<float>;

constexpr std::size_t mostCorners = 300;

float floatAt(const std::uint8_t* data) {
    float value = 0.0F;
    std::memcpy(&value, data, sizeof value);
    return value;
}

void add(Orlek::OpenGL::Tesselator& tesselator, const Corner& p, bool plane) {
    if (plane) {
        tesselator.addVertex(Orlek::Math::Vector2<float>(p.x, p.y));
    } else {
        tesselator.addVertex(Orlek::Math::Vector4<float>(p.x, p.y, p.z, 7.0F));
    }
}

/// No more than each edge crossing each other one, and as many more for the longest.
void checkWork(const std::vector<Corner>& corners) {
    const double work = Orlek::Detail::outlineWork(corners);
    const auto n = static_cast<double>(corners.size());
    require(work >= 0.0 && work <= n * n * n / 2 + 5 * n * n);
    std::vector<Corner> again(corners);
    again.insert(again.end(), corners.begin(), corners.end());
    require(Orlek::Detail::outlineWork(again) >= 0.0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::size_t axes = size > 0 && (data[0] & 1U) != 0 ? 3 : 2;
    const std::size_t bytes = axes * sizeof(float);
    Orlek::OpenGL::Tesselator tesselator;
    std::vector<Corner> corners;
    bool finite = true;
    for (std::size_t i = 0; i < mostCorners && 1 + (i + 1) * bytes <= size; ++i) {
        const std::uint8_t* const corner = data + 1 + i * bytes;
        const float z = axes == 3 ? floatAt(corner + 8) : 0.0F;
        const Corner p(floatAt(corner), floatAt(corner + 4), z);
        finite = finite && std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
        corners.push_back(p);
        add(tesselator, p, axes == 2);
    }
    if (finite) {
        checkWork(corners);
    }
    std::size_t vertices = 0;
    for (const auto& primitive : tesselator.tesselate().primitives) {
        require(finite);
        require(primitive.type >= 4 && primitive.type <= 6);
        require(primitive.vertices.size() >= 3);
        require(primitive.type != 4 || primitive.vertices.size() % 3 == 0);
        require(primitive.start == vertices);
        vertices += primitive.vertices.size();
    }
    tesselator.clearVertex();
    require(tesselator.tesselate().primitives.empty());
    return 0;
}
