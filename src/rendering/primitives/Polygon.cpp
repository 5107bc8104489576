#include <Orlek/OpenGL/Polygon.h>

#include "rendering/context/ProgramNumbers.h"
#include "rendering/gl/Mesh.h"
#include "rendering/gl/Names.h"
#include "rendering/primitives/Fill.h"

namespace Orlek::OpenGL {

namespace {

constexpr const char* polygonLabel = "Polygon";

}  // namespace

Polygon::Polygon() = default;
Polygon::Polygon(const Polygon&) = default;
Polygon& Polygon::operator=(const Polygon&) = default;
Polygon::~Polygon() = default;

void Polygon::addTessPolygon(Tesselator::TessPolygon polygon) {
    mDirty = true;
    for (const Tesselator::TessPrimitive& primitive : polygon.primitives) {
        // Vertices first: without memory for the second, no batch reaches beyond them.
        const auto start = static_cast<unsigned>(mVertices.size());
        mVertices.insert(mVertices.end(), primitive.vertices.begin(), primitive.vertices.end());
        mBatches.push_back(
            {primitive.type, start, static_cast<unsigned>(primitive.vertices.size())});
    }
}

void Polygon::clearVertex() {
    mVertices.clear();
    mBatches.clear();
    mDirty = true;
}

void Polygon::clear() {
    Detail::releaseShare(mMesh);
}

void Polygon::setColor(Math::Vector4<float> color) {
    mColor = color;
}

void Polygon::setPattern(unsigned char* pattern) {
    mStipple.set(pattern);
}

void Polygon::setData() {
    const Detail::Stream streams[] = {Detail::streamOf(Detail::Attribute::Vertex, mVertices)};
    mDirty = !Detail::syncMesh(polygonLabel, mMesh, streams);
}

void Polygon::render() {
    if (mBatches.empty()) {
        return;
    }
    if (mDirty || mMesh == nullptr) {
        setData();
    }
    if (mMesh == nullptr) {
        return;
    }
    Detail::DrawPass pass(polygonLabel, Detail::stippleProgram);
    Detail::setFill(pass, mColor, mStipple);
    pass.matrix();
    pass.bind(*mMesh);
    pass.blend();
    for (const DrawBatch& batch : mBatches) {
        pass.draw(Detail::DrawMode{batch.type}, batch.first, batch.count);
    }
}

}  // namespace Orlek::OpenGL
