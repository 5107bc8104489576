// The library keeps vertices per object; here they are collected anew for every shape.
#include "Canvas.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>

namespace Instruments {

namespace {

namespace Gl = Orlek::OpenGL;

constexpr double degree = std::numbers::pi / 180.0;

}  // namespace

Canvas::Canvas(const std::string& fontFile) {
    if (!mLabels.load(fontFile.c_str(), 50)) {
        throw std::runtime_error("cannot use the font file " + fontFile);
    }
    mLabels.setOutlineColor(black);
    mLabels.setOutlineWidth(0.12F);
}

// The other classes clear themselves.
Canvas::~Canvas() {
    mStrip.clear();
    mPolygon.clear();
    mDisc.clear();
}

void Canvas::begin(int width, int height) {
    const auto w = static_cast<float>(width);
    const auto h = static_cast<float>(height);
    mScale = std::min(w / panel.width(), h / panel.height());
    mOrigin = {(w - panel.width() * mScale) / 2, (h - panel.height() * mScale) / 2};
    glViewport(0, 0, width, height);
    noClip();
    glClearColor(bezel.x * 0.4F, bezel.y * 0.4F, bezel.z * 0.4F, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    Gl::GlHandler::instance().setViewPort({w, h});
    Gl::MatrixLoadIdent();
    Gl::MatrixTranslate(-1, -1, 0);
    Gl::MatrixScale(2.0 / width, 2.0 / height, 1);
    Gl::MatrixTranslate(mOrigin.x, mOrigin.y, 0);
    Gl::MatrixScale(mScale, mScale, 1);
}

void Canvas::clip(const Box& box) const {
    const auto pixel = [](float value) { return static_cast<int>(std::lround(value)); };
    glEnable(GL_SCISSOR_TEST);
    glScissor(pixel(mOrigin.x + box.left * mScale), pixel(mOrigin.y + box.bottom * mScale),
              pixel(box.width() * mScale), pixel(box.height() * mScale));
}

void Canvas::noClip() const {
    glDisable(GL_SCISSOR_TEST);
}

void Canvas::fill(const Box& box, const Colour& colour) {
    shade({{box.left, box.bottom},
           {box.left, box.top},
           {box.right, box.bottom},
           {box.right, box.top}},
          {colour, colour, colour, colour});
}

void Canvas::shade(const Points& strip, const std::vector<Colour>& colours) {
    mStrip.clearVertex();
    for (std::size_t i = 0; i < strip.size(); ++i) {
        mStrip.addVertex(strip[i], colours[i]);
    }
    mStrip.setUseMultiColor(true);
    mStrip.render();
}

void Canvas::polygon(const Points& outline, const Colour& colour) {
    Gl::Tesselator tesselator;
    for (const Point& point : outline) {
        tesselator.addVertex(point);
    }
    mPolygon.clearVertex();
    mPolygon.addTessPolygon(tesselator.tesselate());
    mPolygon.setColor(colour);
    mPolygon.render();
}

void Canvas::disc(Point centre, float radius, const Colour& colour) {
    const Placed placed(centre);
    mDisc.clearVertex();
    mDisc.setCircle(radius, 48);
    mDisc.setColor(colour);
    mDisc.render();
}

void Canvas::line(const Points& points, const Colour& colour, float width) {
    mStrips.clearVertex();
    mStrips.addLineStrip(points);
    mStrips.setColor(colour);
    mStrips.setLineWidth(width * mScale);
    mStrips.render(-1);
}

void Canvas::loop(const Points& points, const Colour& colour, float width) {
    mLoops.clearVertex();
    mLoops.addLineLoop(points);
    mLoops.setColor(colour);
    mLoops.setLineWidth(width * mScale);
    mLoops.render(1);
}

void Canvas::segments(const Points& pairs, const Colour& colour, float width) {
    mLines.clearVertex();
    for (const Point& point : pairs) {
        mLines.addVertex(point);
    }
    mLines.setColor(colour);
    mLines.setLineWidth(width * mScale);
    mLines.render();
}

void Canvas::text(const std::string& text, Point at, float size, const Colour& colour,
                  Align align) {
    mFigures.setColor(colour);
    mFigures.setLineWidth(std::max(1.2F, size * 0.085F) * mScale);
    mFigures.renderFont(at.x, at.y, text, size, align);
}

void Canvas::label(const std::string& text, Point at, float size, const Colour& colour,
                   Align align) {
    constexpr float halfCapital = 0.365F;  // of the size
    mLabels.setSize(static_cast<int>(std::lround(size)));
    mLabels.setColor(colour);
    mLabels.renderFont(at.x, at.y - halfCapital * size, text, align);
}

Placed::Placed(Point at, float clockwiseDeg) {
    Gl::MatrixPush();
    Gl::MatrixTranslate(at.x, at.y, 0);
    Gl::MatrixRotate(-clockwiseDeg, 0, 0, 1);
}

Placed::~Placed() {
    Gl::MatrixPop();
}

Points arc(float radius, float fromDeg, float toDeg) {
    const int steps = std::max(4, static_cast<int>(std::abs(toDeg - fromDeg) / 3));
    Points points;
    for (int i = 0; i <= steps; ++i) {
        const float share = static_cast<float>(i) / static_cast<float>(steps);
        points.push_back(onCircle(radius, fromDeg + (toDeg - fromDeg) * share));
    }
    return points;
}

Point onCircle(float radius, float clockwiseDeg) {
    const double angle = clockwiseDeg * degree;
    return {static_cast<float>(radius * std::sin(angle)),
            static_cast<float>(radius * std::cos(angle))};
}

}  // namespace Instruments
