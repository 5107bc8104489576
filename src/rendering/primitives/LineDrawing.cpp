#include "rendering/primitives/LineDrawing.h"

#include <Orlek/OpenGL/GlHandler.h>
#include <Orlek/OpenGL/MatrixStack.h>

#include "rendering/geometry/Adjacency.h"
#include "rendering/geometry/LineMeasure.h"
#include "rendering/gl/Mesh.h"

namespace Orlek::Detail {

namespace {

std::vector<float> measured(std::span<const Math::Vector3<float>> vertices) {
    return measureLine(vertices, OpenGL::MatrixGet(), OpenGL::GlHandler::instance().viewPort());
}

// Most of these are there for the wide-line programs; the program in use ignores what it lacks.
void setUniforms(DrawPass& pass, const LineStyle& style) {
    pass.set("lineWidth", style.lineWidth);
    pass.set("color", style.color);
    pass.set("antialias", style.antiAlias ? 1 : 0);
    pass.set("lineStipple", style.stipple);
    pass.setViewPort();
}

}  // namespace

void uploadSegments(std::shared_ptr<Mesh>& mesh,
                    const std::vector<Math::Vector3<float>>& vertices) {
    const Stream streams[] = {streamOf(Attribute::Vertex, vertices)};
    syncMesh(mesh, streams);
}

void uploadStrips(std::shared_ptr<Mesh>& mesh, const LineRecipe& recipe,
                  const IndexedPoints& points) {
    const std::vector<float> positions = measured(points.vertices);
    const Stream streams[] = {streamOf(Attribute::Vertex, points.vertices),
                              streamOf(Attribute::Position, positions)};
    syncMesh(mesh, streams, adjacencyIndices(points.indices, recipe.restart.value()));
}

void updatePositions(Mesh& mesh, const std::vector<Math::Vector3<float>>& vertices) {
    mesh.update(streamOf(Attribute::Position, measured(vertices)));
}

void drawLines(const LineRecipe& recipe, const LineStyle& style, const Mesh& mesh,
               std::size_t count) {
    constexpr unsigned oneColorProgram = 2;
    DrawPass pass(recipe.label, oneColorProgram);
    setUniforms(pass, style);
    pass.bind(mesh);
    pass.lineState(style.antiAlias, style.lineWidth, static_cast<unsigned short>(style.stipple));
    pass.matrix();
    if (recipe.restart.has_value()) {
        pass.restart(*recipe.restart);
        pass.drawIndexed(recipe.mode, count);
    } else {
        pass.draw(recipe.mode, 0, count);
    }
}

}  // namespace Orlek::Detail
