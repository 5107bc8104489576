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
#include "rendering/gl/Mesh.h"

namespace Orlek::Detail {

/// One line class.
struct LineRecipe {
    const char* label;  ///< In error lines.
    DrawMode mode;
    /// Separates runs; without it lines have no indices.
    std::optional<std::uint32_t> restart = std::nullopt;
    bool setsWidthAndStipple = true;  ///< Otherwise they stay as the application has them.
};

enum class LineColor { One, EachVertex };

/// Uploads separate segments. True when that is done, as in what follows; see syncMesh().
bool uploadSegments(std::shared_ptr<Mesh>& mesh, const LineRecipe& recipe,
                    const std::vector<Math::Vector3<float>>& vertices);

/// Whether the lengths of strips in pixels under the current matrix are uploaded. Only a stipple
/// needs them, and they cost more than all the rest of an upload; loops always have them.
enum class StripLengths { Measured, None };

/// Uploads strips, in the adjacency form if the recipe draws with adjacency.
/// @param more streams beside these.
bool uploadStrips(std::shared_ptr<Mesh>& mesh, const LineRecipe& recipe,
                  const IndexedPoints& points, StripLengths lengths = StripLengths::Measured,
                  std::span<const Stream> more = {});

/// Measures the lengths of uploaded strips anew. The mesh must be this drawable's own.
bool updatePositions(std::shared_ptr<Mesh>& mesh, const LineRecipe& recipe,
                     const std::vector<Math::Vector3<float>>& vertices);

/// Draws a mesh.
/// @param count vertices, or index entries when the recipe has a restart value.
void drawLines(const LineRecipe& recipe, const LineStyle& style, const Mesh& mesh,
               std::size_t count, LineColor color = LineColor::One);

}  // namespace Orlek::Detail
