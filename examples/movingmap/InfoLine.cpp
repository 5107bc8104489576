// Cells keep their order; when a row is full the next one begins, and each row is spread over the
// width.
#include "InfoLine.h"

#include <algorithm>

#include "Format.h"

namespace MovingMap {

namespace {

constexpr double rowHeight = 44.0;
constexpr double cellGap = 20.0;
constexpr double warningHeightM = 150.0;

std::string groundText(const Scene& scene, AltitudeUnit unit) {
    return scene.ground.known ? heightText(scene.ground.heightM, unit) : "NO DATA";
}

Figure heightFigure(const Scene& scene, AltitudeUnit unit) {
    if (!scene.ground.known) {
        return {"HEIGHT ABOVE", "---"};
    }
    const double height = scene.altitudeFt * metresPerFoot - scene.ground.heightM;
    return {"HEIGHT ABOVE", heightText(height, unit), height < warningHeightM ? amber : green};
}

}  // namespace

std::vector<Figure> figuresOf(const Scene& scene, const Style& style) {
    const auto [distance, altitude] = style.units;
    const Colour ahead = paler(style.colours.route, 0.58F);
    std::vector<Figure> figures = {
        {"POSITION", latitudeText(scene.own.lat) + " " + longitudeText(scene.own.lon)},
        {"ALTITUDE", heightText(scene.altitudeFt * metresPerFoot, altitude)},
        {"TERRAIN", groundText(scene, altitude)},
        heightFigure(scene, altitude),
        {"SPEED", speedText(scene.speedKt, distance)},
        {"NEXT", scene.next.name, ahead},
        {"BEARING", direction(scene.next.bearingDeg), ahead},
        {"DISTANCE", distanceText(scene.next.distanceM, distance), ahead},
        {"TIME", scene.next.timeS ? duration(*scene.next.timeS) : "--:--", ahead},
    };
    for (Figure& figure : figures) {
        if (scene.ownState == OwnShipState::unknown) {
            figure.value = "---";
        }
        if (scene.ownState != OwnShipState::current) {
            figure.colour = red;
        }
    }
    return figures;
}

InfoLine::InfoLine(const Canvas& canvas, const Scene& scene, double width)
    : mWidth(width), mUnit(canvas.unit) {
    Row cells;
    for (const Figure& figure : figuresOf(scene, canvas.style)) {
        const double text =
            std::max(canvas.small.width(figure.caption), canvas.normal.width(figure.value));
        cells.push_back({figure, text + cellGap * mUnit});
    }
    mRows = rowsWithin(cells, width);
    for (double narrower = width; narrower > 0.0; narrower -= cellGap * mUnit) {
        const std::vector<Row> rows = rowsWithin(cells, narrower);
        if (rows.size() > mRows.size()) {
            break;
        }
        mRows = rows;
    }
}

std::vector<InfoLine::Row> InfoLine::rowsWithin(const Row& cells, double width) {
    std::vector<Row> rows(1);
    double used = 0.0;
    for (const Cell& cell : cells) {
        if (used + cell.width > width && !rows.back().empty()) {
            rows.emplace_back();
            used = 0.0;
        }
        rows.back().push_back(cell);
        used += cell.width;
    }
    return rows;
}

double InfoLine::height() const {
    return rowHeight * mUnit * static_cast<double>(mRows.size());
}

void InfoLine::drawRow(Canvas& canvas, const Row& row, double bottom) const {
    double used = 0.0;
    for (const Cell& cell : row) {
        used += cell.width;
    }
    const double spread = (mWidth - used) / static_cast<double>(row.size());
    double x = (cellGap * mUnit + spread) / 2.0;
    for (const Cell& cell : row) {
        canvas.small.add(cell.figure.caption, Point(x, bottom + 27.0 * mUnit), Align::left, grey);
        canvas.normal.add(cell.figure.value, Point(x, bottom + 9.0 * mUnit), Align::left,
                          cell.figure.colour);
        x += cell.width + spread;
    }
}

void InfoLine::draw(Canvas& canvas) const {
    canvas.fill.rect(Point(0.0, 0.0), Point(mWidth, height()), Colour(0.05F, 0.07F, 0.10F, 1.0F));
    double bottom = height();
    for (const Row& row : mRows) {
        bottom -= rowHeight * mUnit;
        drawRow(canvas, row, bottom);
    }
}

}  // namespace MovingMap
