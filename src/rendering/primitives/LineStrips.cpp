#include <Orlek/OpenGL/LineStrips.h>

#include "rendering/geometry/Positions.h"
#include "rendering/gl/Mesh.h"
#include "rendering/gl/Names.h"
#include "rendering/primitives/LineDrawing.h"

namespace Orlek::OpenGL {

namespace {

constexpr Detail::LineRecipe stripRecipe{
    .label = "LineStrips",
    .mode = Detail::DrawMode::LineStripAdjacency,
    .restart = static_cast<std::uint32_t>(LineStrips::RESTART_INDEX),
};

}  // namespace

LineStrips::LineStrips() = default;
LineStrips::LineStrips(const LineStrips&) = default;
LineStrips& LineStrips::operator=(const LineStrips&) = default;

LineStrips::~LineStrips() {
    clear();
}

void LineStrips::addLineStrip(std::vector<Math::Vector2<float>> points) {
    mStrips.addStrip(stripRecipe, points);
}

void LineStrips::addLineStrip(std::vector<Math::Vector3<float>> points) {
    mStrips.addStrip(stripRecipe, points);
}

void LineStrips::addLineStrip(std::vector<Math::Vector4<float>> points) {
    mStrips.addStrip(stripRecipe, points);
}

void LineStrips::addVertex(Math::Vector2<float> position) {
    mStrips.addVertex(Detail::toPosition(position));
}

void LineStrips::addVertex(Math::Vector3<float> position) {
    mStrips.addVertex(position);
}

void LineStrips::addVertex(Math::Vector4<float> position) {
    mStrips.addVertex(Detail::toPosition(position));
}

void LineStrips::addVertex(Math::Vector2<float> position, Math::Vector4<float> color) {
    mStrips.addVertex(Detail::toPosition(position), color);
}

void LineStrips::addVertex(Math::Vector3<float> position, Math::Vector4<float> color) {
    mStrips.addVertex(position, color);
}

void LineStrips::addVertex(Math::Vector4<float> position, Math::Vector4<float> color) {
    mStrips.addVertex(Detail::toPosition(position), color);
}

void LineStrips::setUseMultiColor(bool on) {
    mStrips.useColors = on;
}

void LineStrips::setRect(unsigned int width, unsigned int height) {
    mStrips.setRect(stripRecipe, width, height);
}

void LineStrips::clearVertex() {
    mStrips.clearVertices();
}

void LineStrips::clear() {
    Detail::releaseShare(mStrips.mesh);
}

void LineStrips::setColor(Math::Vector4<float> color) {
    mStrips.style.color = color;
}

void LineStrips::setLineWidth(float width) {
    mStrips.style.lineWidth = width;
}

void LineStrips::setAntiAlias(bool on) {
    mStrips.style.antiAlias = on;
}

void LineStrips::setStipple(unsigned short pattern) {
    mStrips.style.setPattern(pattern);
}

void LineStrips::render(int count) {
    mStrips.render(stripRecipe, count);
}

}  // namespace Orlek::OpenGL
