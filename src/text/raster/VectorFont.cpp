#include "Orlek/OpenGL/VectorFont.h"

#include <Orlek/OpenGL/MatrixStack.h>

#include "rendering/context/DrawPass.h"
#include "rendering/context/MatrixScope.h"
#include "rendering/context/ProgramNumbers.h"
#include "rendering/gl/Mesh.h"
#include "rendering/gl/Names.h"
#include "text/layout/BuiltInStrokeSet.h"
#include "text/layout/StrokeBatch.h"
#include "text/layout/StrokeCharacters.h"

namespace Orlek::OpenGL {
namespace {

constexpr const char* strokeFontLabel = "VectorFont";

// Uploads the current matrix moved and scaled, and leaves the matrix as it was.
void placeText(Detail::DrawPass& pass, double x, double y, double scale) {
    const Detail::MatrixScope scope;
    MatrixTranslate(x, y, 0.0);
    MatrixScale(scale, scale, 1.0);
    pass.matrix();
}

}  // namespace

VectorFont::VectorFont() = default;
VectorFont::VectorFont(const VectorFont& other) = default;
VectorFont& VectorFont::operator=(const VectorFont& other) = default;

VectorFont::~VectorFont() {
    clear();
}

void VectorFont::vectorFontInit(CHARSET_STRUCT* set) {
    if (mCharacters == nullptr && set != nullptr) {
        takeSet(*set);
    }
}

void VectorFont::takeSet(const CHARSET_STRUCT& set) {
    mCharacters = std::make_shared<const Detail::StrokeCharacters>(set);
    setPoints();
}

void VectorFont::takeBuiltInSet() {
    if (mCharacters == nullptr) {
        takeSet(Detail::builtInStrokeSet());
    }
}

void VectorFont::setPoints() {
    const Detail::Stream streams[] = {
        Detail::streamOf(Detail::Attribute::Vertex, mCharacters->points())};
    Detail::syncMesh(strokeFontLabel, mPointMesh, streams);
}

void VectorFont::setData() {
    const Detail::Stream streams[] = {Detail::streamOf(Detail::Attribute::Vertex, mVertices)};
    mDirty = !Detail::syncMesh(strokeFontLabel, mBatchMesh, streams, mIndices);
}

void VectorFont::addText(const std::string& text, Math::Matrix4<float> transform, double size,
                         Alignment align) {
    takeBuiltInSet();
    Detail::appendStrokes(
        mVertices, mIndices, *mCharacters, text,
        {Detail::strokeScale(size), Detail::strokeOffset(align, *mCharacters, text), transform},
        RESTART_INDEX);
    mDirty = true;
}

void VectorFont::render() {
    if (mIndices.empty()) {
        return;
    }
    if (mDirty || mBatchMesh == nullptr) {
        setData();
    }
    if (mBatchMesh == nullptr) {
        return;
    }
    Detail::DrawPass pass(strokeFontLabel, Detail::strokeProgram);
    pass.restart(RESTART_INDEX);
    pass.set("color", mColor);
    pass.set("offset", Math::Vector3<float>(0.0F, 0.0F, 0.0F));
    pass.matrix();
    pass.lineState(true, static_cast<float>(mLineWidth));
    pass.bind(*mBatchMesh);
    pass.drawIndexed(Detail::DrawMode::LineStrip, mIndices.size());
}

void VectorFont::renderFont(double x, double y, const std::string& text, double size,
                            Alignment align) {
    takeBuiltInSet();
    if (mPointMesh == nullptr) {
        setPoints();
    }
    if (mPointMesh == nullptr) {
        return;
    }
    Detail::DrawPass pass(strokeFontLabel, Detail::strokeProgram);
    pass.set("color", mColor);
    placeText(pass, x, y, Detail::strokeScale(size));
    pass.smoothLinesFromNowOn(static_cast<float>(mLineWidth));
    pass.bind(*mPointMesh);
    const Math::Vector2<float> offset = Detail::strokeOffset(align, *mCharacters, text);
    const int location = pass.locate("offset");
    Detail::walkStrokes(*mCharacters, text, [&](char byte, float pen) {
        pass.setAt(location, Math::Vector3<float>(pen + offset.x, offset.y, 0.0F));
        for (const Detail::Stroke& stroke : mCharacters->strokes(byte)) {
            pass.draw(Detail::DrawMode::LineStrip, stroke.start, stroke.count);
        }
    });
}

void VectorFont::renderFont(const std::string& text, double size, Alignment align) {
    renderFont(0.0, 0.0, text, size, align);
}

void VectorFont::setColor(Math::Vector4<float> color) {
    mColor = color;
}

void VectorFont::setLineWidth(double width) {
    mLineWidth = width;
}

void VectorFont::clearVertex() {
    mVertices.clear();
    mIndices.clear();
    mDirty = true;
}

void VectorFont::clear() {
    Detail::releaseShare(mPointMesh);
    Detail::releaseShare(mBatchMesh);
}

Math::Vector4<float> getOppositeColor(Math::Vector4<float> c) {
    const auto opposite = static_cast<float>(1.0 - static_cast<double>(c.x));
    return {opposite, opposite, opposite, c.w};
}

}  // namespace Orlek::OpenGL
