#include <Orlek/OpenGL/LineStripsSimple.h>

#include "rendering/geometry/Positions.h"
#include "rendering/gl/Mesh.h"
#include "rendering/gl/Names.h"
#include "rendering/primitives/LineDrawing.h"

namespace Orlek::OpenGL {

namespace {

constexpr Detail::LineRecipe simpleStripRecipe{
    .label = "LineStripsSimple",
    .mode = Detail::DrawMode::LineStrip,
    .restart = static_cast<std::uint32_t>(LineStripsSimple::RESTART_INDEX),
    .setsWidthAndStipple = false,
};

}  // namespace

LineStripsSimple::LineStripsSimple() = default;
LineStripsSimple::LineStripsSimple(const LineStripsSimple&) = default;
LineStripsSimple& LineStripsSimple::operator=(const LineStripsSimple&) = default;

LineStripsSimple::~LineStripsSimple() {
    clear();
}

void LineStripsSimple::addLineStrip(std::vector<Math::Vector2<float>> points) {
    mStrips.addStrip(simpleStripRecipe, points);
}

void LineStripsSimple::addLineStrip(std::vector<Math::Vector3<float>> points) {
    mStrips.addStrip(simpleStripRecipe, points);
}

void LineStripsSimple::addLineStrip(std::vector<Math::Vector4<float>> points) {
    mStrips.addStrip(simpleStripRecipe, points);
}

void LineStripsSimple::addVertex(Math::Vector2<float> position) {
    mStrips.addVertex(Detail::toPosition(position));
}

void LineStripsSimple::addVertex(Math::Vector3<float> position) {
    mStrips.addVertex(position);
}

void LineStripsSimple::addVertex(Math::Vector4<float> position) {
    mStrips.addVertex(Detail::toPosition(position));
}

void LineStripsSimple::addVertex(Math::Vector2<float> position, Math::Vector4<float> color) {
    mStrips.addVertex(Detail::toPosition(position), color);
}

void LineStripsSimple::addVertex(Math::Vector3<float> position, Math::Vector4<float> color) {
    mStrips.addVertex(position, color);
}

void LineStripsSimple::addVertex(Math::Vector4<float> position, Math::Vector4<float> color) {
    mStrips.addVertex(Detail::toPosition(position), color);
}

void LineStripsSimple::setUseMultiColor(bool on) {
    mStrips.useColors = on;
}

void LineStripsSimple::setRect(unsigned int width, unsigned int height) {
    mStrips.setRect(simpleStripRecipe, width, height);
}

void LineStripsSimple::clearVertex() {
    mStrips.clearVertices();
}

void LineStripsSimple::clear() {
    Detail::releaseShare(mStrips.mesh);
}

void LineStripsSimple::setColor(Math::Vector4<float> color) {
    mStrips.style.color = color;
}

void LineStripsSimple::setLineWidth(float width) {
    mStrips.style.lineWidth = width;
}

void LineStripsSimple::setAntiAlias(bool on) {
    mStrips.style.antiAlias = on;
}

void LineStripsSimple::setStipple(unsigned short pattern) {
    mStrips.style.setPattern(pattern);
}

void LineStripsSimple::render(int count) {
    mStrips.render(simpleStripRecipe, count);
}

}  // namespace Orlek::OpenGL
