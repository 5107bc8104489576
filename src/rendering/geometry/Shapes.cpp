#include "rendering/geometry/Shapes.h"

#include <cmath>
#include <cstddef>

#include "math/Degrees.h"

namespace Orlek::Detail {

namespace {

Math::Vector3<float> rimPoint(double radius, double angle) {
    return {static_cast<float>(std::sin(angle) * radius),
            static_cast<float>(std::cos(angle) * radius), 0.0F};
}

}  // namespace

Quad rectangleOutline(unsigned width, unsigned height) {
    const auto w = static_cast<float>(width);
    const auto h = static_cast<float>(height);
    return {{{0.0F, 0.0F, 0.0F}, {0.0F, h, 0.0F}, {w, h, 0.0F}, {w, 0.0F, 0.0F}}};
}

Quad rectangleStrip(unsigned width, unsigned height) {
    const Quad outline = rectangleOutline(width, height);
    return {outline[0], outline[1], outline[3], outline[2]};
}

Quad centredQuad(unsigned width, unsigned height) {
    const float w = static_cast<float>(width) * 0.5F;
    const float h = static_cast<float>(height) * 0.5F;
    return {{{-w, -h, 0.0F}, {-w, h, 0.0F}, {w, -h, 0.0F}, {w, h, 0.0F}}};
}

std::array<Math::Vector2<float>, 4> uprightImage() {
    return {{{0.0F, 1.0F}, {0.0F, 0.0F}, {1.0F, 1.0F}, {1.0F, 0.0F}}};
}

void appendDisc(std::vector<Math::Vector3<float>>& vertices, double radius, unsigned segments) {
    if (segments == 0) {
        return;
    }
    vertices.emplace_back(0.0F, 0.0F, 0.0F);
    const double step = 360.0 / segments;
    for (std::size_t i = 0; i <= segments; ++i) {
        vertices.push_back(rimPoint(radius, static_cast<double>(i) * step * radiansPerDegree));
    }
}

}  // namespace Orlek::Detail
