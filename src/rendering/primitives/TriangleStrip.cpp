#include <Orlek/OpenGL/TriangleStrip.h>

#include "rendering/context/ProgramNumbers.h"
#include "rendering/geometry/Positions.h"
#include "rendering/geometry/PushWith.h"
#include "rendering/geometry/Shapes.h"
#include "rendering/gl/Mesh.h"
#include "rendering/gl/Names.h"
#include "rendering/primitives/Fill.h"

namespace Orlek::OpenGL {

namespace {

using Detail::Attribute;

constexpr const char* stripLabel = "TriangleStrip";

constexpr Detail::UploadLabels stripLabels{
    .first = {.generate = "glGenVertexArrays",
              .bind = "glBindVertexArray",
              .streams = {{{.generate = "glGenBuffers",
                            .bind = "glBindBuffer",
                            .data = "glBufferData",
                            .enable = "glVertexAttribPointer"},
                           {.enable = "glEnableVertexAttribArray"}}}},
    .later = {.bind = "glBindVertexArray",
              .streams = {{{.enable = "glBindBuffer"}, {.enable = "glBufferData"}}}}};

}  // namespace

TriangleStrip::TriangleStrip() = default;
TriangleStrip::TriangleStrip(const TriangleStrip&) = default;
TriangleStrip& TriangleStrip::operator=(const TriangleStrip&) = default;
TriangleStrip::~TriangleStrip() = default;

void TriangleStrip::addVertex(Math::Vector2<float> p) {
    addVertex(Detail::toPosition(p));
}

void TriangleStrip::addVertex(Math::Vector3<float> p) {
    mVertices.push_back(p);
    mDirty = true;
}

void TriangleStrip::addVertex(Math::Vector4<float> p) {
    addVertex(Detail::toPosition(p));
}

void TriangleStrip::addVertex(Math::Vector2<float> p, Math::Vector4<float> c) {
    addVertex(Detail::toPosition(p), c);
}

void TriangleStrip::addVertex(Math::Vector3<float> p, Math::Vector4<float> c) {
    Detail::pushWith(mColors, c, [&] { addVertex(p); });
}

void TriangleStrip::addVertex(Math::Vector4<float> p, Math::Vector4<float> c) {
    addVertex(Detail::toPosition(p), c);
}

void TriangleStrip::clearVertex() {
    mVertices.clear();
    mColors.clear();
    mDirty = true;
}

void TriangleStrip::setRect(unsigned width, unsigned height) {
    const Detail::Quad corners = Detail::rectangleStrip(width, height);
    mVertices.assign(corners.begin(), corners.end());
    mDirty = true;
}

void TriangleStrip::setColor(Math::Vector4<float> color) {
    mColor = color;
}

void TriangleStrip::setUseMultiColor(bool on) {
    mUseMultiColor = on;
}

void TriangleStrip::setPattern(unsigned char* pattern) {
    mStipple.set(pattern);
}

void TriangleStrip::clear() {
    Detail::releaseShare(mMesh);
}

void TriangleStrip::setData() {
    const Detail::Stream streams[] = {Detail::streamOf(Attribute::Vertex, mVertices),
                                      Detail::streamOf(Attribute::Color, mColors)};
    mDirty = !Detail::syncMesh(stripLabel, mMesh, streams, {}, stripLabels);
}

void TriangleStrip::render() {
    if (mVertices.size() < 2) {
        return;
    }
    if (mDirty || mMesh == nullptr) {
        setData();
    }
    if (mMesh == nullptr) {
        return;
    }
    const bool multiColor = mUseMultiColor && mColors.size() == mVertices.size();
    Detail::DrawPass pass(stripLabel,
                          multiColor ? Detail::vertexColorProgram : Detail::stippleProgram,
                          Detail::ErrorReports::EachStep);
    Detail::setFill(pass, mColor, mStipple);
    pass.bind(*mMesh);
    pass.blend();
    pass.matrix();
    pass.draw(Detail::DrawMode::TriangleStrip, 0, mVertices.size());
}

}  // namespace Orlek::OpenGL
