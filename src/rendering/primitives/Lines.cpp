#include <Orlek/OpenGL/Lines.h>

#include "rendering/geometry/Positions.h"
#include "rendering/gl/Mesh.h"
#include "rendering/gl/Names.h"
#include "rendering/primitives/LineDrawing.h"

namespace Orlek::OpenGL {

namespace {

constexpr Detail::LineRecipe lineRecipe{.label = "Lines", .mode = Detail::DrawMode::Lines};

}  // namespace

Lines::Lines() = default;
Lines::Lines(const Lines&) = default;
Lines& Lines::operator=(const Lines&) = default;

Lines::~Lines() {
    clear();
}

void Lines::addVertex(Math::Vector2<float> position) {
    addVertex(Detail::toPosition(position));
}

void Lines::addVertex(Math::Vector3<float> position) {
    mVertices.push_back(position);
    mDirty = true;
}

void Lines::addVertex(Math::Vector4<float> position) {
    addVertex(Detail::toPosition(position));
}

void Lines::setRect(unsigned int width, unsigned int height) {
    const auto w = static_cast<float>(width);
    const auto h = static_cast<float>(height);
    mVertices = {{0, 0, 0}, {0, h, 0}, {w, 0, 0}, {w, h, 0}};
    mDirty = true;
}

void Lines::clearVertex() {
    mVertices.clear();
    mDirty = true;
}

void Lines::clear() {
    Detail::releaseShare(mMesh);
}

void Lines::setColor(Math::Vector4<float> color) {
    mStyle.color = color;
}

void Lines::setLineWidth(float width) {
    mStyle.lineWidth = width;
}

void Lines::setAntiAlias(bool on) {
    mStyle.antiAlias = on;
}

void Lines::setStipple(unsigned short pattern) {
    mStyle.setPattern(pattern);
}

void Lines::render() {
    if (mVertices.size() < 2) {
        return;
    }
    if (mDirty || mMesh == nullptr) {
        mDirty = !Detail::uploadSegments(mMesh, lineRecipe, mVertices);
    }
    if (mMesh != nullptr) {
        Detail::drawLines(lineRecipe, mStyle, *mMesh, mVertices.size());
    }
}

}  // namespace Orlek::OpenGL
