// Points of the tests that draw. Coordinates are pixels (the fixture's matrix); centres of pixels
// lie at .5.
#pragma once

#include <Orlek/Math/Vector4.h>
#include <Orlek/OpenGL/Tesselator.h>

#include <vector>

#include "support/GlTest.h"

namespace OrlekTest {

using Point = Orlek::Math::Vector2<float>;
using Points = std::vector<Point>;
using Vertex = Orlek::Math::Vector3<float>;
using Color = Orlek::Math::Vector4<float>;

inline const Color red{1, 0, 0, 1};
inline const Points square{{20.5F, 20.5F}, {60.5F, 20.5F}, {60.5F, 50.5F}, {20.5F, 50.5F}};

// Pixels of the outline of `square`.
inline constexpr int squarePixels = 2 * 40 + 2 * 30;

inline Orlek::OpenGL::Tesselator::TessPolygon tesselated(const Points& outline) {
    Orlek::OpenGL::Tesselator tesselator;
    for (const Point& p : outline) {
        tesselator.addVertex(p);
    }
    return tesselator.tesselate();
}

}  // namespace OrlekTest
