// What the line classes have in common: upload and drawing, told apart by a recipe.
#pragma once

#include <Orlek/Math/Vector3.h>
#include <Orlek/OpenGL/IndexedPoints.h>
#include <Orlek/OpenGL/LineStyle.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "rendering/context/DrawPass.h"

namespace Orlek::Detail {

/// One line class.
struct LineRecipe {
    const char* label;  ///< In error lines.
    DrawMode mode;
    std::optional<std::uint32_t> restart;  ///< Separates runs; without it lines have no indices.
};

/// Uploads separate segments.
void uploadSegments(std::shared_ptr<Mesh>& mesh, const std::vector<Math::Vector3<float>>& vertices);

/// Uploads strips in their adjacency form, with their lengths in pixels under the current matrix.
void uploadStrips(std::shared_ptr<Mesh>& mesh, const LineRecipe& recipe,
                  const IndexedPoints& points);

/// Measures the lengths of uploaded strips anew. The mesh must be this drawable's own.
void updatePositions(Mesh& mesh, const std::vector<Math::Vector3<float>>& vertices);

/// Draws a mesh in one colour.
/// @param count vertices, or index entries when the recipe has a restart value.
void drawLines(const LineRecipe& recipe, const LineStyle& style, const Mesh& mesh,
               std::size_t count);

}  // namespace Orlek::Detail
