#include <Orlek/OpenGL/StripSet.h>

#include <cstddef>

#include "rendering/geometry/Positions.h"
#include "rendering/geometry/PushWith.h"
#include "rendering/geometry/Shapes.h"
#include "rendering/gl/Errors.h"
#include "rendering/gl/Mesh.h"
#include "rendering/primitives/LineDrawing.h"

namespace Orlek::Detail {

template <typename Vector>
void StripSet::addStrip(const LineRecipe& recipe, const std::vector<Vector>& strip) {
    dirty = true;
    for (const Vector& point : strip) {
        points.append(toPosition(point));
    }
    points.restart(recipe.restart.value());
}

template void StripSet::addStrip(const LineRecipe&, const std::vector<Math::Vector2<float>>&);
template void StripSet::addStrip(const LineRecipe&, const std::vector<Math::Vector3<float>>&);
template void StripSet::addStrip(const LineRecipe&, const std::vector<Math::Vector4<float>>&);

void StripSet::addVertex(const Math::Vector3<float>& position) {
    points.append(position);
    dirty = true;
}

void StripSet::addVertex(const Math::Vector3<float>& position, const Math::Vector4<float>& color) {
    pushWith(colors, color, [&] { addVertex(position); });
}

void StripSet::setRect(const LineRecipe& recipe, unsigned width, unsigned height) {
    clearVertices();
    const Quad corners = rectangleOutline(width, height);
    std::vector<Math::Vector3<float>> outline(corners.begin(), corners.end());
    outline.push_back(outline.front());
    addStrip(recipe, outline);
}

void StripSet::clearVertices() {
    points.clear();
    colors.clear();
    dirty = true;
}

void StripSet::render(const LineRecipe& recipe, int count) {
    clearErrors();
    if (points.indices.size() < 2) {
        return;
    }
    const bool measure = style.stipple != 0 && recipe.mode == DrawMode::LineStripAdjacency;
    if (dirty || mesh == nullptr || (measure && !measured)) {
        const Stream colorStream = streamOf(Attribute::Color, colors);
        dirty =
            !uploadStrips(mesh, recipe, points,
                          measure ? StripLengths::Measured : StripLengths::None, {&colorStream, 1});
        measured = measure;
    }
    if (mesh == nullptr) {
        return;
    }
    const std::size_t all = mesh->indexCount();
    const auto wanted = static_cast<std::size_t>(count);
    const bool eachColored = useColors && colors.size() == points.vertices.size();
    drawLines(recipe, style, *mesh, count < 0 || wanted > all ? all : wanted,
              eachColored ? LineColor::EachVertex : LineColor::One);
}

}  // namespace Orlek::Detail
