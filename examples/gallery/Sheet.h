// The page that every picture of the gallery is drawn on: a title, and framed samples with the call
// that made each below it.
#pragma once

#include <Orlek/OpenGL.h>

#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

namespace Gallery {

using Point = Orlek::Math::Vector2<float>;
using Points = std::vector<Point>;
using Colour = Orlek::Math::Vector4<float>;
using Text = Orlek::OpenGL::TextureFont;

/// Size of a page in units; one unit is a pixel of the picture, the origin its lower left corner.
constexpr int pageWidth = 960;
constexpr int pageHeight = 600;

inline const Colour white(0.93F, 0.95F, 0.97F, 1.0F);
inline const Colour grey(0.55F, 0.61F, 0.68F, 1.0F);
inline const Colour cyan(0.30F, 0.83F, 0.95F, 1.0F);
inline const Colour magenta(1.0F, 0.35F, 0.86F, 1.0F);
inline const Colour amber(1.0F, 0.75F, 0.25F, 1.0F);
inline const Colour green(0.45F, 0.90F, 0.50F, 1.0F);
inline const Colour red(1.0F, 0.38F, 0.35F, 1.0F);
inline const Colour blue(0.25F, 0.47F, 0.95F, 1.0F);

/// What samples stand on.
inline const Colour panel(0.090F, 0.114F, 0.149F, 1.0F);

/// So many units of the page in pixels, which line widths are in. Only in a picture that is an
/// ordinary screen's they are the same.
float pixels(float units);

/// How many pixels are a unit. Pictures made before keep what they have.
void setPixelsOfUnit(double count);

/// The same colour, half transparent.
inline Colour glass(const Colour& colour) {
    return {colour.x, colour.y, colour.z, 0.5F};
}

/// A rectangle of the page.
struct Box {
    float x = 0.0F;
    float y = 0.0F;
    float width = 0.0F;
    float height = 0.0F;

    /// A point of it: (0, 0) is the lower left corner, (1, 1) the upper right one.
    Point at(double u, double v) const {
        return {x + width * static_cast<float>(u), y + height * static_cast<float>(v)};
    }
    Point centre() const { return at(0.5, 0.5); }

    /// The square of its height in its middle.
    Box square() const { return {centre().x - height / 2.0F, y, height, height}; }

    /// The box without a margin, a share of its size on each side.
    Box inside(double margin) const {
        const auto m = static_cast<float>(margin);
        return {x + m * width, y + m * height, (1 - 2 * m) * width, (1 - 2 * m) * height};
    }

    /// Several points of it.
    Points points(std::initializer_list<std::pair<double, double>> places) const {
        Points result;
        for (const auto& [u, v] : places) {
            result.push_back(at(u, v));
        }
        return result;
    }

    /// One of @p count equal rows, 0 is the highest.
    Box row(int number, int count) const {
        const float high = height / static_cast<float>(count);
        return {x, y + height - high * static_cast<float>(number + 1), width, high};
    }
    /// One of @p count equal columns, 0 is the leftmost.
    Box column(int number, int count) const {
        const float wide = width / static_cast<float>(count);
        return {x + wide * static_cast<float>(number), y, wide, height};
    }
};

/// The point in a direction, @p bearing degrees clockwise from the top.
Point polar(Point centre, double bearing, double radius);

/// Corners of a regular polygon, the first at the top, clockwise.
/// @param step 1 for the plain polygon; 2 joins every second corner, which makes a star of 5.
Points polygon(Point centre, double radius, int corners, int step = 1);

/// The matrix that puts the origin at a point, turns by @p bearing degrees clockwise and scales.
Orlek::Math::Matrix4<float> placement(Point at, double bearing = 0.0, double scale = 1.0);

/// Runs @p draw under that matrix.
template <typename Function>
void place(Point at, double bearing, double scale, Function&& draw) {
    Orlek::OpenGL::MatrixPush();
    Orlek::OpenGL::MatrixMult(placement(at, bearing, scale));
    draw();
    Orlek::OpenGL::MatrixPop();
}

/// Runs @p draw under that matrix without a scale.
template <typename Function>
void place(Point at, double bearing, Function&& draw) {
    place(at, bearing, 1.0, std::forward<Function>(draw));
}

/// Loads a font of the package fonts-dejavu-core, to be drawn with a unit a pixel.
/// @param size in units of the page
/// Throws std::runtime_error when it is missing.
void load(Text& font, const char* name, int size, const Colour& colour);

/// A page. Needs the GL context and GlHandler from construction to destruction.
class Sheet {
public:
    /// @param columns, rows the grid that the samples stand in
    /// Throws std::runtime_error when a font is missing.
    Sheet(const std::string& title, const std::string& subtitle, int columns, int rows);

    /// Adds a framed sample and its caption.
    /// @param column, row its cell, from the upper left, 0 is the first
    /// @param code the call that makes it
    /// @param note one line about it
    /// @param columns, rows how many cells it covers
    /// @return the area above the caption, to draw in.
    Box sample(int column, int row, const std::string& code, const std::string& note,
               int columns = 1, int rows = 1);

    /// Adds a small text inside a sample.
    void label(Point at, const std::string& text, Text::Alignment align = Text::BOTTOM_LEFT);

    /// Adds a label at the left of a row of a sample.
    /// @return the rest of the row.
    Box labelledRow(const Box& box, int number, int count, const std::string& text);

    /// Adds a magnifier at the right of a sample: finish() shows the pixels around a point again,
    /// six times as large.
    void magnify(const Box& sample, Point around);

    /// Adds a small red cross that finish() draws.
    void mark(Point at);

    /// Clears the picture and draws the page, to be followed by the samples.
    void draw();

    /// Draws what belongs over the samples.
    void finish();

private:
    struct Magnifier {
        Box from;
        Box to;
    };

    void addFrame(const Box& box);
    void add(Text& font, Point at, const std::string& text, Text::Alignment align);

    int mColumns;
    int mRows;
    std::vector<Box> mPanels;
    std::vector<Magnifier> mMagnifiers;
    Orlek::OpenGL::LineLoops mFrames;
    Orlek::OpenGL::Lines mRule;
    Orlek::OpenGL::Lines mMarks;
    Text mTitle;
    Text mCode;
    Text mNote;
};

}  // namespace Gallery
