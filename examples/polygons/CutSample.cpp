#include "CutSample.h"

namespace Polygons {

namespace {

using namespace Gallery;

Points placed(const Box& box, const Ring& ring) {
    Points points;
    for (const auto& vertex : ring)
        points.push_back(box.at(vertex.x, vertex.y));
    return points;
}

Polygon2D polygonOf(Ring ring) {
    Polygon2D polygon;
    polygon.setVertexes(ring);
    return polygon;
}

Orlek::OpenGL::Polygon filled(const Points& outline, const Colour& colour) {
    Orlek::OpenGL::Tesselator tesselator;
    for (const Point& point : outline)
        tesselator.addVertex(point);
    Orlek::OpenGL::Polygon fill;
    fill.addTessPolygon(tesselator.tesselate());
    fill.setColor(colour);
    return fill;
}

}  // namespace

CutSample::CutSample(Sheet& sheet, const Box& box, const Ring& self, const Ring& other,
                     Polygon2D::BoolOperation operation) {
    mSelf.addLineLoop(placed(box, self));
    mSelf.setColor(cyan);
    mSelf.setLineWidth(pixels(1));
    mOther.addLineLoop(placed(box, other));
    mOther.setColor(amber);
    mOther.setLineWidth(pixels(1));
    mRings.setColor(white);
    mRings.setLineWidth(pixels(2));
    mHoles.setColor(magenta);
    mHoles.setLineWidth(pixels(2));
    Polygon2D polygon = polygonOf(self);
    const auto rings = polygon.boolOperation(polygonOf(other), operation);
    for (const Polygon2D& ring : rings)
        addResult(box, ring);
    const std::string count = std::to_string(rings.size());
    sheet.label(box.at(1, 1), rings.size() == 1 ? "1 ring" : count + " rings", Text::TOP_RIGHT);
}

void CutSample::addResult(const Box& box, const Polygon2D& ring) {
    const bool clockwise = Orlek::Math::getWindingDirection(ring.vertexesD()) == 1;
    const Points outline = placed(box, ring.vertexesD());
    mFills.push_back(filled(outline, clockwise ? glass(green) : panel));
    (clockwise ? mRings : mHoles).addLineLoop(outline);
    mStarts.push_back(filled(polygon(outline.front(), 4.5, 12), red));
}

void CutSample::draw() {
    for (auto& fill : mFills)
        fill.render();
    mRings.render(1.0);
    mHoles.render(1.0);
    mSelf.render(1.0);
    mOther.render(1.0);
    for (auto& start : mStarts)
        start.render();
}

void CutSheet::add(int column, int row, const char* code, const char* note, const Ring& self,
                   const Ring& other, Polygon2D::BoolOperation operation) {
    mCuts.emplace_back(mSheet, mSheet.sample(column, row, code, note), self, other, operation);
}

void CutSheet::draw(double /*seconds*/) {
    mSheet.draw();
    for (CutSample& cut : mCuts)
        cut.draw();
}

}  // namespace Polygons
