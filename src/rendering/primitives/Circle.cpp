#include <Orlek/OpenGL/Circle.h>

#include "rendering/context/DrawPass.h"
#include "rendering/context/ProgramNumbers.h"
#include "rendering/geometry/Shapes.h"
#include "rendering/gl/Errors.h"
#include "rendering/gl/Mesh.h"
#include "rendering/gl/Names.h"

namespace Orlek::OpenGL {

namespace {

constexpr const char* circleLabel = "Circle";

constexpr Detail::UploadLabels circleLabels{
    .first = {.generate = "glGenVertexArrays",
              .bind = "glBindVertexArray",
              .streams = {{{"glGenBuffers", "glBindBuffer", "glBufferData", "glVertexAttribPointer",
                            "glEnableVertexAttribArray"}}}},
    .later = {.bind = "glBindVertexArray",
              .streams = {{{.bind = "glBindBuffer", .data = "glBufferData"}}}}};

// Far more corners than a disc has pixels.
constexpr unsigned mostSegments = 1000000;

}  // namespace

Circle::Circle() = default;
Circle::Circle(const Circle&) = default;
Circle& Circle::operator=(const Circle&) = default;
Circle::~Circle() = default;

void Circle::setCircle(double radius, unsigned segments) {
    if (segments > mostSegments) {
        Detail::reportInvalidValue(circleLabel);
        return;
    }
    Detail::appendDisc(mVertices, radius, segments);
}

void Circle::clearVertex() {
    mVertices.clear();
    mDirty = true;
}

void Circle::setColor(Math::Vector4<float> color) {
    mColor = color;
}

void Circle::setPattern(unsigned char* pattern) {
    mPattern = pattern;
}

void Circle::clear() {
    Detail::releaseShare(mMesh);
}

void Circle::setData() {
    const Detail::Stream streams[] = {Detail::streamOf(Detail::Attribute::Vertex, mVertices)};
    mDirty = !Detail::syncMesh(circleLabel, mMesh, streams, {}, circleLabels);
}

void Circle::render() {
    if (mVertices.size() < 2) {
        return;
    }
    if (mDirty || mMesh == nullptr) {
        setData();
    }
    if (mMesh == nullptr) {
        return;
    }
    Detail::DrawPass pass(circleLabel, Detail::oneColorProgram, Detail::ErrorReports::EachStep);
    pass.set("color", mColor);
    pass.bind(*mMesh);
    pass.blend();
    pass.polygonStipple(mPattern);
    pass.matrix();
    pass.draw(Detail::DrawMode::TriangleFan, 0, mVertices.size());
}

}  // namespace Orlek::OpenGL
