// The line of figures under the map.
#pragma once

#include <string>
#include <vector>

#include "Canvas.h"
#include "Scene.h"

namespace MovingMap {

/// A caption and its value.
struct Figure {
    std::string caption;
    std::string value;
    Colour colour = white;
};

/// Position, terrain and height above it, speed, and the way to the next waypoint; red when old,
/// dashes when unknown.
std::vector<Figure> figuresOf(const Scene& scene, const Style& style);

/// Rows of figures that fit a picture's width, as few and as even as can be.
class InfoLine {
public:
    InfoLine(const Canvas& canvas, const Scene& scene, double width);

    double height() const;

    /// Draws the rows along the picture's lower edge.
    void draw(Canvas& canvas) const;

private:
    struct Cell {
        Figure figure;
        double width;
    };
    using Row = std::vector<Cell>;

    static std::vector<Row> rowsWithin(const Row& cells, double width);

    void drawRow(Canvas& canvas, const Row& row, double bottom) const;

    std::vector<Row> mRows;
    double mWidth;
    double mUnit;
};

}  // namespace MovingMap
