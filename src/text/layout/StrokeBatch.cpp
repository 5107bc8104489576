#include "text/layout/StrokeBatch.h"

#include <cstddef>

#include "text/layout/Anchor.h"
#include "text/layout/Transform.h"

namespace Orlek::Detail {

namespace {

constexpr float nominalHeight = 15.97F;

struct Sizes {
    std::size_t points = 0;
    std::size_t strokes = 0;
};

Sizes sizesOf(const StrokeCharacters& characters, std::string_view text) {
    Sizes sizes;
    walkStrokes(characters, text, [&](char byte, float) {
        sizes.points += characters.points(byte).size();
        sizes.strokes += characters.strokes(byte).size();
    });
    return sizes;
}

}  // namespace

Math::Vector2<float> strokeOffset(int alignment, const StrokeCharacters& characters,
                                  std::string_view text) {
    return anchorOffset(alignment, static_cast<float>(text.size()) * characters.advance(),
                        nominalHeight);
}

double strokeScale(double size) {
    return size / static_cast<double>(nominalHeight);
}

void appendStrokes(std::vector<Math::Vector3<float>>& vertices, std::vector<std::uint32_t>& indices,
                   const StrokeCharacters& characters, std::string_view text,
                   const StrokePlacement& placement, std::uint32_t restartIndex) {
    const Sizes sizes = sizesOf(characters, text);
    std::size_t vertex = vertices.size();
    std::size_t index = indices.size();
    vertices.resize(vertex + sizes.points);
    indices.resize(index + sizes.points + sizes.strokes);
    const Math::Matrix4<float> transform = placement.transform;
    const double s = placement.scale;
    const double up = s * static_cast<double>(placement.offset.y);
    const auto z = static_cast<float>(s * 0.0);  // of all points
    auto point = vertices.begin() + static_cast<std::ptrdiff_t>(vertex);
    walkStrokes(characters, text, [&](char byte, float pen) {
        const double right = s * static_cast<double>(pen + placement.offset.x);
        for (const Math::Vector3<float>& q : characters.points(byte)) {
            const auto x = static_cast<float>(s * static_cast<double>(q.x) + right);
            const auto y = static_cast<float>(s * static_cast<double>(q.y) + up);
            *point++ = transformed(transform, x, y, z);
        }
        for (const Stroke& stroke : characters.strokes(byte)) {
            for (std::size_t k = 0; k < stroke.count; ++k) {
                indices[index++] = static_cast<std::uint32_t>(vertex++);
            }
            indices[index++] = restartIndex;
        }
    });
}

}  // namespace Orlek::Detail
