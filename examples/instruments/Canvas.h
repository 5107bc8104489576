// The tools that every instrument draws with, in the units of the panel's design.
#pragma once

#include <Orlek/OpenGL.h>

#include <string>
#include <vector>

#include "Colours.h"

namespace Instruments {

using Point = Orlek::Math::Vector2<float>;
using Points = std::vector<Point>;

struct Box {
    float left;
    float bottom;
    float right;
    float top;

    float width() const { return right - left; }
    float height() const { return top - bottom; }
    Point centre() const { return {(left + right) / 2, (bottom + top) / 2}; }
};

/// Draws on a panel of 1280 x 800 units, which fills the picture as far as its shape allows. Needs
/// the GL context.
class Canvas {
public:
    static constexpr Box panel{0, 0, 1280, 800};
    using Align = Orlek::OpenGL::VectorFont::Alignment;

    /// @param fontFile a font that FreeType reads; throws std::runtime_error when it cannot be
    /// used.
    explicit Canvas(const std::string& fontFile);
    ~Canvas();

    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    /// Begins a picture of this size in pixels.
    void begin(int width, int height);

    /// Keeps what is drawn until noClip() inside the box.
    void clip(const Box& box) const;
    void noClip() const;

    void fill(const Box& box, const Colour& colour);
    /// A triangle strip with a colour for each vertex.
    void shade(const Points& strip, const std::vector<Colour>& colours);
    /// The inside of an outline of any form.
    void polygon(const Points& outline, const Colour& colour);
    void disc(Point centre, float radius, const Colour& colour);

    void line(const Points& points, const Colour& colour, float width = 2);
    void loop(const Points& points, const Colour& colour, float width = 2);
    void segments(const Points& pairs, const Colour& colour, float width = 2);

    /// Words and values in the font of the file, centred in height on the place.
    /// @param align BOTTOM_LEFT, BOTTOM_CENTER or BOTTOM_RIGHT
    void label(const std::string& text, Point at, float size, const Colour& colour,
               Align align = Align::BOTTOM_CENTER);

    /// The figures of a scale, in strokes; its height is that of the whole line, capitals have 0.86
    /// of it.
    void text(const std::string& text, Point at, float size, const Colour& colour,
              Align align = Align::CENTER);

private:
    float mScale = 1;
    Point mOrigin;  // of the panel, in pixels
    Orlek::OpenGL::TriangleStrip mStrip;
    Orlek::OpenGL::Polygon mPolygon;
    Orlek::OpenGL::Circle mDisc;
    Orlek::OpenGL::Lines mLines;
    Orlek::OpenGL::LineLoops mLoops;
    Orlek::OpenGL::LineStrips mStrips;
    Orlek::OpenGL::VectorFont mFigures;
    Orlek::OpenGL::TextureFontSdf mLabels;
};

/// The matrix of the moment, restored at the end of the scope.
class Placed {
public:
    explicit Placed(Point at, float clockwiseDeg = 0);
    ~Placed();
    Placed(const Placed&) = delete;
    Placed& operator=(const Placed&) = delete;
};

/// Points of an arc around the origin, clockwise from twelve o'clock.
Points arc(float radius, float fromDeg, float toDeg);

/// The point of a circle around the origin at a clockwise angle from twelve o'clock.
Point onCircle(float radius, float clockwiseDeg);

}  // namespace Instruments
