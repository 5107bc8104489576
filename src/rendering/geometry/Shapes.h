// Vertex lists of the shapes that several drawing classes offer.
#pragma once

#include <Orlek/Math/Vector2.h>
#include <Orlek/Math/Vector3.h>

#include <array>
#include <cstddef>
#include <vector>

namespace Orlek::Detail {

using Quad = std::array<Math::Vector3<float>, 4>;

/// The corners of a rectangle with one corner in the origin, in the order of its outline.
Quad rectangleOutline(unsigned width, unsigned height);

/// The same corners in the order of a triangle strip.
Quad rectangleStrip(unsigned width, unsigned height);

/// A rectangle around the origin, in the order of a triangle strip.
Quad centredQuad(unsigned width, unsigned height);

/// Texture coordinates for centredQuad: the image's first row is at the top.
std::array<Math::Vector2<float>, 4> uprightImage();

/// Calls add(corner, texture coordinate) for each corner of an upright image around the origin.
template <typename Add>
void eachImageCorner(unsigned width, unsigned height, Add&& add) {
    const Quad corners = centredQuad(width, height);
    const auto uvs = uprightImage();
    for (std::size_t i = 0; i < corners.size(); ++i) {
        add(corners[i], uvs[i]);
    }
}

/// Appends a disc around the origin as a triangle fan: the centre, then the rim clockwise from
/// twelve o'clock (y up) back to its first point. Appends nothing for 0 segments.
void appendDisc(std::vector<Math::Vector3<float>>& vertices, double radius, unsigned segments);

}  // namespace Orlek::Detail
