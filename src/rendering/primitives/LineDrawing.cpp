#include "rendering/primitives/LineDrawing.h"

#include <Orlek/OpenGL/GlHandler.h>
#include <Orlek/OpenGL/MatrixStack.h>

#include "rendering/context/ProgramNumbers.h"
#include "rendering/geometry/Adjacency.h"
#include "rendering/geometry/LineMeasure.h"

namespace Orlek::Detail {

namespace {

std::vector<float> withLengths(std::span<const Math::Vector3<float>> vertices) {
    return measureLine(vertices, OpenGL::MatrixGet(), OpenGL::GlHandler::instance().viewPort());
}

void setLineState(DrawPass& pass, const LineRecipe& recipe, const LineStyle& style) {
    if (recipe.setsWidthAndStipple) {
        pass.lineState(style.antiAlias, style.lineWidth,
                       static_cast<unsigned short>(style.stipple));
    } else {
        pass.lineState(style.antiAlias);
    }
}

}  // namespace

bool uploadSegments(std::shared_ptr<Mesh>& mesh, const LineRecipe& recipe,
                    const std::vector<Math::Vector3<float>>& vertices) {
    const Stream streams[] = {streamOf(Attribute::Vertex, vertices)};
    return syncMesh(recipe.label, mesh, streams);
}

bool uploadStrips(std::shared_ptr<Mesh>& mesh, const LineRecipe& recipe,
                  const IndexedPoints& points, StripLengths lengths, std::span<const Stream> more) {
    std::vector<Stream> streams{streamOf(Attribute::Vertex, points.vertices)};
    streams.insert(streams.end(), more.begin(), more.end());
    const std::vector<float> positions =
        lengths == StripLengths::Measured ? withLengths(points.vertices) : std::vector<float>();
    streams.push_back(streamOf(Attribute::Position, positions));
    if (recipe.mode == DrawMode::LineStripAdjacency) {
        return syncMesh(recipe.label, mesh, streams,
                        adjacencyIndices(points.indices, recipe.restart.value()));
    }
    return syncMesh(recipe.label, mesh, streams, points.indices);
}

bool updatePositions(std::shared_ptr<Mesh>& mesh, const LineRecipe& recipe,
                     const std::vector<Math::Vector3<float>>& vertices) {
    return updateMesh(recipe.label, mesh, streamOf(Attribute::Position, withLengths(vertices)));
}

void drawLines(const LineRecipe& recipe, const LineStyle& style, const Mesh& mesh,
               std::size_t count, LineColor color) {
    DrawPass pass(recipe.label,
                  color == LineColor::EachVertex ? vertexColorProgram : oneColorProgram);
    if (color == LineColor::One) {
        pass.set("color", style.color);
    }
    setLineState(pass, recipe, style);
    pass.matrix();
    pass.bind(mesh);  // behind the matrix, which discards errors
    if (recipe.restart.has_value()) {
        pass.restart(*recipe.restart);
        pass.drawIndexed(recipe.mode, count);
    } else {
        pass.draw(recipe.mode, 0, count);
    }
}

}  // namespace Orlek::Detail
