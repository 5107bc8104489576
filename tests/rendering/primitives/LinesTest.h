// Fixture of the tests of lines: pictures drawn anew, without a word printed.
#pragma once

#include <Orlek/OpenGL/LineLoops.h>
#include <Orlek/OpenGL/Lines.h>

#include <vector>

#include "support/GlTest.h"

namespace OrlekTest {

using Point = Orlek::Math::Vector2<float>;
using Points = std::vector<Point>;

class LinesTest : public GlTest {
protected:
    static void render(Orlek::OpenGL::Lines& lines) {
        silently([&] { lines.render(); });
    }
    static void render(Orlek::OpenGL::LineLoops& loops, double scale = 1.0) {
        silently([&] { loops.render(scale); });
    }

    /// The number of pixels that these drawables draw on black.
    template <typename... Drawables>
    static int pixelsOf(Drawables&... drawables) {
        wipe();
        (render(drawables), ...);
        return drawnPixels();
    }

    static Orlek::OpenGL::Lines horizontal(float from, float to, float y) {
        Orlek::OpenGL::Lines lines;
        lines.setAntiAlias(false);
        lines.addVertex(Point(from, y));
        lines.addVertex(Point(to, y));
        return lines;
    }
};

inline const Points square{{20.5F, 20.5F}, {60.5F, 20.5F}, {60.5F, 50.5F}, {20.5F, 50.5F}};

// Pixels of the outline of `square`.
inline constexpr int squarePixels = 2 * 40 + 2 * 30;

}  // namespace OrlekTest
